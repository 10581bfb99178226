#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/settings/settingsview.h"
#include "Corvane/views/viewstacker.h"
#include "accessdatabase.h"
#include "support/workstation.h"

#include <QHostInfo>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

#include <memory>

namespace {

const QString kSettings = QStringLiteral("Corvane Settings Management");
const QString kAccess = QStringLiteral("Corvane Access Control Management");
const QString kAudit = QStringLiteral("Corvane Audit Trail Viewer");

}  // namespace

class TestViewStacker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void loginViewComesFirstAndLeavesNoTrace();
    void eachViewHasItsHeaderAndTraces_data();
    void eachViewHasItsHeaderAndTraces();
    void settingsToAuditViewWritesStoppingThenStarted();
    void aSwitchIsRecordedBeforeAndAfterTheViewAndTheHeaderChange();
    void homeViewItselfIsNotRecorded();
    void secondClickOnAccessControlWritesNothing();
    void refusedConnectionKeepsTheCurrentView();
    void rightsDecideWhichButtonsWork_data();
    void rightsDecideWhichButtonsWork();
    void eachReturnToTheHomeViewRepeatsTheMissingRights();
    void setupWithoutAccessControlKeepsTheRights();
    void setupGivesTheOperatorAndShowsThePlainHomeView();
    void showDatabaseDoesNothingAtAll();
    void exitIsRecordedForTheViewThatIsOpen();
    void aboutDialogReadsTheVersionEachTime();
    void settingsViewReportsItsLastSavingWhileItGoes();

private:
    QToolButton *homeButton(const QString &name) const;
    QString view() const;
    QStringList events() const;

    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<AccessDatabase> m_database;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<ViewStacker> m_stacker;
    std::unique_ptr<QSignalSpy> m_log;
};

void TestViewStacker::initTestCase()
{
    m_workstation = std::make_unique<Workstation>();
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation->dataDirectory() + kSettingsFileName);
    m_database = std::make_unique<AccessDatabase>(m_workstation->path("access.db"));
    qRegisterMetaType<OperatorModel>("OperatorModel");
}

void TestViewStacker::init()
{
    QFile::remove(m_workstation->dataDirectory() + LocalCache::kFileName);
    m_database->configure(m_workstation->dataDirectory());
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation->dataDirectory(), nullptr);
    m_stacker = std::make_unique<ViewStacker>(m_workstation->dataDirectory(), m_handler.get(), nullptr);
    m_log = std::make_unique<QSignalSpy>(m_stacker.get(), &ViewStacker::logAction);
    m_stacker->resize(800, 600);
    m_stacker->show();
}

void TestViewStacker::cleanup()
{
    m_stacker.reset();
    m_handler.reset();
}

QToolButton *TestViewStacker::homeButton(const QString &name) const
{
    return m_stacker->findChild<QToolButton *>(name);
}

QString TestViewStacker::view() const
{
    return QString::fromLatin1(m_stacker->currentWidget()->metaObject()->className());
}

/// The entries and exits so far, as "+" or "-" and the text.
QStringList TestViewStacker::events() const
{
    QStringList events;
    for (const QList<QVariant> &arguments : *m_log) {
        const auto action = arguments.at(0).value<Actions::Action>();
        events.append((action == Actions::Started ? QLatin1Char('+') : QLatin1Char('-')) +
                      arguments.at(5).toString());
    }
    return events;
}

void TestViewStacker::loginViewComesFirstAndLeavesNoTrace()
{
    QSignalSpy plain(m_stacker.get(), &ViewStacker::showPlainHeader);
    m_stacker->showLogin();
    QCOMPARE(view(), QStringLiteral("LoginView"));
    QCOMPARE(plain.takeFirst().first().toBool(), true);
    m_stacker->logEntry();
    m_stacker->logExit();
    QCOMPARE(events(), QStringList());
}

void TestViewStacker::eachViewHasItsHeaderAndTraces_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("className");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("plain");
    QTest::addColumn<QString>("subtitle");
    QTest::addColumn<QStringList>("trace");

    QTest::newRow("login view") << "showLogin"
                                << "LoginView" << 0 << true << QString() << QStringList();
    QTest::newRow("home view") << "showIntroduction"
                               << "IntroductionView" << 1 << true << QString() << QStringList();
    QTest::newRow("settings view") << "showSettings"
                                   << "SettingsView" << 2 << false << "Settings Management"
                                   << QStringList('+' + kSettings);
    QTest::newRow("access control view")
        << "showAccesscontrol"
        << "AccesscontrolView" << 3 << false << "Access Control Management" << QStringList('+' + kAccess);
    QTest::newRow("audit trail view")
        << "showAuditTrail"
        << "AuditTrailView" << 4 << false << "Audit Trail Viewer" << QStringList('+' + kAudit);
}

void TestViewStacker::eachViewHasItsHeaderAndTraces()
{
    QFETCH(QString, slot);
    QFETCH(QString, className);
    QFETCH(int, position);
    QFETCH(bool, plain);
    QFETCH(QString, subtitle);
    QFETCH(QStringList, trace);
    QVERIFY(m_handler->connectOnline());
    QSignalSpy plainHeader(m_stacker.get(), &ViewStacker::showPlainHeader);
    QSignalSpy subtitles(m_stacker.get(), &ViewStacker::setSubtitle);

    QVERIFY(QMetaObject::invokeMethod(m_stacker.get(), slot.toLatin1().constData()));
    QCOMPARE(view(), className);
    QCOMPARE(m_stacker->currentIndex(), position);
    QCOMPARE(plainHeader.size(), 1);
    QCOMPARE(plainHeader.first().first().toBool(), plain);
    QCOMPARE(subtitles.size(), subtitle.isEmpty() ? 0 : 1);
    QCOMPARE(subtitles.value(0).value(0).toString(), subtitle);
    QCOMPARE(events(), trace);
}

void TestViewStacker::settingsToAuditViewWritesStoppingThenStarted()
{
    m_stacker->showSettings();
    m_log->clear();
    m_stacker->showAuditTrail();
    QCOMPARE(events(), (QStringList{'-' + kSettings, '+' + kAudit}));
    const QList<QVariant> stopping = m_log->first();
    QCOMPARE(stopping.at(1).value<Actions::ActionType>(), Actions::Human);
    QCOMPARE(stopping.at(2).value<UuidString>(), UuidString());
    QCOMPARE(stopping.at(3).toString(), QString());
    QCOMPARE(stopping.at(4).toString(), QHostInfo::localHostName());
}

void TestViewStacker::aSwitchIsRecordedBeforeAndAfterTheViewAndTheHeaderChange()
{
    m_stacker->showSettings();
    QStringList order;
    const auto note = [this, &order](const QString &what) {
        order.append(view() + QLatin1String(": ") + what);
    };
    connect(m_stacker.get(), &ViewStacker::logAction, this, [note] { note("recorded"); });
    connect(m_stacker.get(), &ViewStacker::showPlainHeader, this, [note] { note("header"); });
    connect(m_stacker.get(), &ViewStacker::setSubtitle, this, [note] { note("subtitle"); });
    m_stacker->showAuditTrail();
    QCOMPARE(order, (QStringList{"SettingsView: recorded", "AuditTrailView: header",
                                 "AuditTrailView: subtitle", "AuditTrailView: recorded"}));
}

void TestViewStacker::homeViewItselfIsNotRecorded()
{
    m_stacker->showIntroduction();
    QTest::mouseClick(homeButton("settings_button"), Qt::LeftButton);
    QCOMPARE(view(), QStringLiteral("SettingsView"));
    m_stacker->showIntroduction();
    QCOMPARE(events(), (QStringList{'+' + kSettings, '-' + kSettings}));
}

void TestViewStacker::secondClickOnAccessControlWritesNothing()
{
    QVERIFY(m_handler->connectOnline());
    m_stacker->showSettings();
    m_log->clear();
    m_stacker->showAccesscontrol();
    m_stacker->showAccesscontrol();
    QCOMPARE(events(), (QStringList{'-' + kSettings, '+' + kAccess}));
}

void TestViewStacker::refusedConnectionKeepsTheCurrentView()
{
    m_stacker->showSettings();
    m_log->clear();
    QSignalSpy plainHeader(m_stacker.get(), &ViewStacker::showPlainHeader);
    QTimer::singleShot(0, m_handler.get(), [this] {
        QTest::mouseClick(m_handler->findChild<QPushButton *>("cancel_button"), Qt::LeftButton);
    });
    m_stacker->showAccesscontrol();
    QCOMPARE(view(), QStringLiteral("SettingsView"));
    QCOMPARE(events(), QStringList());
    QCOMPARE(plainHeader.size(), 0);
}

void TestViewStacker::rightsDecideWhichButtonsWork_data()
{
    QTest::addColumn<int>("rights");
    QTest::addColumn<bool>("accessControl");
    QTest::addColumn<bool>("auditTrail");

    QTest::newRow("an operator without both rights sees both disabled") << 0 << false << false;
    QTest::newRow("the first right alone") << 1 << true << false;
    QTest::newRow("the fourth right alone") << 4 << false << true;
    QTest::newRow("other rights do not count") << (0x3ff032 & ~5) << false << false;
    QTest::newRow("all rights") << -1 << true << true;
}

void TestViewStacker::rightsDecideWhichButtonsWork()
{
    QFETCH(int, rights);
    QFETCH(bool, accessControl);
    QFETCH(bool, auditTrail);
    const auto access = accessControlWith(rights);
    m_stacker->setupAccess(access.get());
    QCOMPARE(homeButton("access_control_button")->isEnabled(), accessControl);
    QCOMPARE(homeButton("audit_trail_button")->isEnabled(), auditTrail);
    QVERIFY(homeButton("settings_button")->isEnabled());
}

void TestViewStacker::eachReturnToTheHomeViewRepeatsTheMissingRights()
{
    const auto access = accessControlWith(0);
    QSignalSpy audit(m_stacker.get(), &ViewStacker::disableAuditTrailViewer);
    QSignalSpy management(m_stacker.get(), &ViewStacker::disableAccessControlManagement);
    m_stacker->setupAccess(access.get());
    for (int visits = 2; visits <= 3; ++visits) {
        m_stacker->showSettings();
        m_stacker->showIntroduction();
        QCOMPARE(audit.size(), visits);
        QCOMPARE(management.size(), visits);
        QCOMPARE(audit.last().first().toBool(), true);
        QCOMPARE(management.last().first().toBool(), true);
    }
}

void TestViewStacker::setupWithoutAccessControlKeepsTheRights()
{
    m_stacker->setupAccess(nullptr);
    QVERIFY(!homeButton("access_control_button")->isEnabled());
    QVERIFY(!homeButton("audit_trail_button")->isEnabled());
    QCOMPARE(view(), QStringLiteral("IntroductionView"));

    const auto access = accessControlWith(-1);
    m_stacker->setupAccess(access.get());
    QSignalSpy audit(m_stacker.get(), &ViewStacker::disableAuditTrailViewer);
    QSignalSpy operators(m_stacker.get(), &ViewStacker::setOperatorInfo);
    m_stacker->setupAccess(nullptr);
    QCOMPARE(audit.size(), 0);
    QCOMPARE(operators.size(), 0);
}

void TestViewStacker::setupGivesTheOperatorAndShowsThePlainHomeView()
{
    QSignalSpy operators(m_stacker.get(), &ViewStacker::setOperatorInfo);
    QSignalSpy plainHeader(m_stacker.get(), &ViewStacker::showPlainHeader);
    const auto access = accessControlWith(-1);
    m_stacker->setupAccess(access.get());
    QCOMPARE(operators.size(), 1);
    QCOMPARE(operators.first().first().value<OperatorModel>()->username(), QStringLiteral("tester"));
    QCOMPARE(view(), QStringLiteral("IntroductionView"));
    QCOMPARE(plainHeader.last().first().toBool(), true);
    QCOMPARE(events(), QStringList());
}

void TestViewStacker::showDatabaseDoesNothingAtAll()
{
    m_stacker->showSettings();
    m_log->clear();
    QSignalSpy plainHeader(m_stacker.get(), &ViewStacker::showPlainHeader);
    QSignalSpy subtitles(m_stacker.get(), &ViewStacker::setSubtitle);
    m_stacker->showDatabase();
    QCOMPARE(view(), QStringLiteral("SettingsView"));
    QCOMPARE(m_log->size() + plainHeader.size() + subtitles.size(), 0);
}

void TestViewStacker::exitIsRecordedForTheViewThatIsOpen()
{
    m_stacker->showAuditTrail();
    m_log->clear();
    m_stacker->logExit();
    QCOMPARE(events(), QStringList('-' + kAudit));
}

void TestViewStacker::aboutDialogReadsTheVersionEachTime()
{
    for (const QByteArray version : {"5.1.2.0", "6.0"}) {
        QVERIFY(writeFile(m_workstation->dataDirectory() + "version", version));
        QString title;
        QTimer::singleShot(0, m_stacker.get(), [&] {
            QWidget *dialog = QApplication::activeModalWidget();
            title = dialog->findChild<QTextEdit *>("about_text")->toPlainText().section('\n', 0, 0);
            QTest::mouseClick(dialog->findChild<QPushButton *>("ok_button"), Qt::LeftButton);
        });
        m_stacker->showAbout();
        QCOMPARE(title, "Halvorn Pulmadesk v" + QString::fromLatin1(version).left(5).remove(QRegExp("\\.$")));
    }
    QVERIFY(!QApplication::activeModalWidget());
}

void TestViewStacker::settingsViewReportsItsLastSavingWhileItGoes()
{
    openSettingsFile(m_workstation->dataDirectory() + LocalCache::kFileName)
        ->setValue(LocalCache::kLocalSave, true);
    const auto access = accessControlWith(-1);
    auto *settings = m_stacker->findChild<SettingsView *>();
    settings->setAccessControl(access.get());
    settings->showSettings();

    QList<int> actions;
    connect(m_stacker.get(), &ViewStacker::logAction, this,
            [&actions](Actions::Action action) { actions.append(action); });
    m_stacker.reset();
    QVERIFY(actions.contains(Actions::SaveSettings));
}

QTEST_MAIN(TestViewStacker)
#include "test_viewstacker.moc"
