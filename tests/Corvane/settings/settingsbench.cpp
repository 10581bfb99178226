#include "settingsbench.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "settingstest.h"

#include <QApplication>
#include <QDir>
#include <QHostInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

using namespace SettingsTest;

namespace {

constexpr int kPollInterval = 5;  // milliseconds
const QString kNilKey = QStringLiteral("00000000-0000-0000-0000-000000000000");

QString describe(const AuditEvent &event)
{
    return QStringLiteral("{%1 %2 %3 '%4' %5 '%6' %7}")
        .arg(event.action, 0, 16)
        .arg(event.type)
        .arg(event.key, event.name, event.server, event.info)
        .arg(event.error, 0, 16);
}

template<class Container>
QAction *actionNamed(const Container *container, const char *name)
{
    for (QAction *action : container->actions()) {
        const QString found = action->menu() ? action->menu()->objectName() : action->objectName();
        if (found == QLatin1String(name))
            return action;
    }
    qFatal("There is no %s", name);
}

}  // namespace

bool operator==(const AuditEvent &a, const AuditEvent &b)
{
    return describe(a) == describe(b);
}

char *toString(const AuditEvent &event)
{
    return qstrdup(qPrintable(describe(event)));
}

char *toString(const QList<AuditEvent> &events)
{
    QStringList texts;
    for (const AuditEvent &event : events)
        texts.append(describe(event));
    return qstrdup(qPrintable(texts.join(QLatin1Char(' '))));
}

AuditEvent settingsEvent(Actions::Action action, const QString &info, Actions::ActionType type)
{
    return {action, type, kNilKey, QString(), QHostInfo::localHostName(), info, 0};
}

AuditEvent settingsError(Actions::Action action, ZephanError error, const QString &data)
{
    return {action, -1, QString(), QString(), QString(), data, error};
}

SettingsFiles::SettingsFiles(const Workstation &workstation)
    : m_workstation(workstation)
{}

void SettingsFiles::reset()
{
    store()->changeSettingsFile(m_workstation.path(QStringLiteral("aside.ini")));
    QDir(m_workstation.dataDirectory()).removeRecursively();
    QDir().mkpath(m_workstation.dataDirectory());
    QDir(QFileInfo(local()).path()).removeRecursively();
    store()->changeSettingsFile(working());
}

QString SettingsFiles::working() const
{
    return m_workstation.dataDirectory() + QStringLiteral("corvane.ini");
}

QString SettingsFiles::local() const
{
    return m_workstation.localApplicationSettings();
}

QString SettingsFiles::cache() const
{
    return m_workstation.dataDirectory() + QStringLiteral("local_cache");
}

QString SettingsFiles::temporaryDirectory() const
{
    return m_workstation.dataDirectory() + QStringLiteral("tmp_ini");
}

QVariant SettingsFiles::workingValue(const char *key) const
{
    return store()->generalSettings()->value(QLatin1String(key));
}

QVariant SettingsFiles::localValue(const char *key) const
{
    return openLocalApplicationSettings()->value(QLatin1String(key));
}

QVariant SettingsFiles::cacheValue(const char *key) const
{
    return openSettingsFile(cache())->value(QLatin1String(key));
}

void SettingsFiles::setLocal(const QMap<QString, QVariant> &values)
{
    const auto file = openLocalApplicationSettings();
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        file->setValue(value.key(), *value);
}

QStringList SettingsFiles::localKeys() const
{
    return openLocalApplicationSettings()->allKeys();
}

QStringList SettingsFiles::workingKeys() const
{
    return store()->generalSettings()->allKeys();
}

SettingsBench::SettingsBench(const Workstation &workstation, int rights)
    : m_access(signIn(rights))
    , m_view(std::make_unique<SettingsView>(workstation.dataDirectory(), nullptr))
{
    connect(m_view.get(), &SettingsView::logAction, this,
            [this](Actions::Action action, Actions::ActionType type, const UuidString &key,
                   const QString &name, const QString &server, const QVariant &info) {
                m_events.append({action, type, key.toString(), name, server, info.toString(), 0});
            });
    connect(m_view.get(), &SettingsView::logError, this,
            [this](Actions::Action action, ZephanError error, const QVariant &data) {
                m_events.append(settingsError(action, error, data.toString()));
            });
    m_view->setAccessControl(m_access.get());
    m_view->resize(800, 600);
    m_view->show();
    if (!QTest::qWaitForWindowExposed(m_view.get()))
        qFatal("The view does not show");
}

SettingsBench::~SettingsBench()
{
    m_view.reset();  // saves and tells of it, which is recorded here
}

std::unique_ptr<AccessControl> SettingsBench::signIn(int rights)
{
    store()->setSafeValue(QLatin1String(SettingsKeys::kDefaultRights), rights);
    auto access = std::make_unique<AccessControl>(nullptr, QStringLiteral("none"), &m_database,
                                                  SqlStorage::UnknownType);
    QSignalSpy result(access.get(), &AccessControl::loginResult);
    access->login(QStringLiteral("anna"), QString());
    if (!result.wait() || result.first().first().toUInt() != 0)
        qFatal("Nobody could sign in");
    return access;
}

void SettingsBench::choose(const char *menu, const char *action)
{
    auto *bar = child<QMenuBar>(*m_view, "settings_menus");
    QAction *entry = actionNamed(bar, menu);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(entry).center());
    QMenu *popup = entry->menu();
    if (!QTest::qWaitForWindowExposed(popup))
        qFatal("The menu does not open");
    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(actionNamed(popup, action)).center());
    popup->close();
}

void SettingsBench::seeChanges(const std::function<void(DiffView &)> &visit)
{
    const DiffAnswers answers(visit);
    choose("online_menu", "diff_action");
    QCOMPARE(answers.count(), 1);
}

void SettingsBench::close()
{
    m_view.reset();
}

QList<AuditEvent> SettingsBench::takeEvents()
{
    return std::exchange(m_events, {});
}

DiffAnswers::DiffAnswers(std::function<void(DiffView &)> visit, bool accept)
    : m_visit(std::move(visit))
    , m_accept(accept)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &DiffAnswers::answer);
    timer->start(kPollInterval);
}

void DiffAnswers::answer()
{
    auto *dialog = qobject_cast<DiffView *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible())
        return;
    ++m_count;
    m_visit(*dialog);
    if (m_accept)
        QTest::mouseClick(child<QPushButton>(*dialog, "ok_button"), Qt::LeftButton);
    else
        dialog->close();
}
