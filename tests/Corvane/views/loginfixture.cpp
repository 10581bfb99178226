#include "loginfixture.h"

#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/accessmethodsystem.h"
#include "support/userinput.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

const QString kAdministrator = QStringLiteral("windows_administrator_combo");
const QString kAuthenticated = QStringLiteral("authenticated_user_combo");
const QString kFailed = QStringLiteral("Sign in failed!");

QString currentAccount()
{
    QString sid;
    QString error;
    return currentUsername(sid, error);
}

void LoginFixture::initTestCase()
{
    qRegisterMetaType<AccessControl *>("AccessControl*");
    m_workstation = std::make_unique<Workstation>();
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation->dataDirectory() + kSettingsFileName);
}

void LoginFixture::init()
{
    m_warnings = std::make_unique<QtWarnings>();
    QFile::remove(m_workstation->dataDirectory() + LocalCache::kFileName);
    SettingsHandler::getInstance()->setSafeValue(SettingsKeys::kDefaultRights, kStoredRights);
    m_database = std::make_unique<AccessDatabase>(m_workstation->path("access.db"));
    m_database->configure(m_workstation->dataDirectory());
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation->dataDirectory(), nullptr);
    QVERIFY(m_handler->connectOnline());
    m_view = std::make_unique<LoginView>(m_handler.get(), nullptr);
    m_loggedIn = std::make_unique<QSignalSpy>(m_view.get(), &LoginView::loggedIn);
    m_actions = std::make_unique<QSignalSpy>(m_view.get(), &LoginView::logAction);
    m_errors = std::make_unique<QSignalSpy>(m_view.get(), &LoginView::logError);
    m_view->resize(800, 600);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

void LoginFixture::cleanup()
{
    m_view.reset();
    m_handler.reset();
    m_database.reset();
    for (const QString &warning : m_warnings->seen())
        QVERIFY2(!warning.startsWith(QLatin1String("QSqlDatabase")), qPrintable(warning));
    m_warnings.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
    QFile::remove(m_workstation->path("access.db"));
}

void LoginFixture::choose(const QString &combo, int entry)
{
    chooseEntry(find<QComboBox>(combo), entry);
}

void LoginFixture::fillIn(const QString &user, const QString &password)
{
    find<QLineEdit>("username_edit")->clear();
    find<QLineEdit>("password_edit")->clear();
    QTest::keyClicks(find<QLineEdit>("username_edit"), user);
    find<QLineEdit>("password_edit")->insert(password);  // key clicks can't type every letter
}

void LoginFixture::clickSignIn()
{
    QTest::mouseClick(find<QPushButton>("sign_in_button"), Qt::LeftButton);
}

QString LoginFixture::status() const
{
    return find<QLabel>("status_label")->text();
}

QString LoginFixture::page() const
{
    for (const char *name : {"selection_page", "sign_in_page"}) {
        const auto *candidate = find<QWidget>(name);
        if (candidate && candidate->isVisible())
            return QString::fromLatin1(name);
    }
    return QString();
}

bool LoginFixture::bothBoxesAreEmpty() const
{
    return find<QComboBox>(kAdministrator)->currentIndex() == -1 &&
           find<QComboBox>(kAuthenticated)->currentIndex() == -1;
}

void LoginFixture::answerDialog(const QString &button, const std::function<void(QWidget *)> &look)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [timer, button, look] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *answer = dialog ? dialog->findChild<QPushButton *>(button) : nullptr;
        if (!answer || !answer->isVisible())
            return;
        timer->deleteLater();
        timer->stop();
        if (look)
            look(dialog);
        QTest::mouseClick(answer, Qt::LeftButton);
    });
    timer->start(10);
}

int LoginFixture::logLines(const QByteArray &tags, const QByteArray &message) const
{
    int count = 0;
    for (const QByteArray &line : readFile(m_workstation->runtimeLog()).split('\n')) {
        if (line.startsWith(tags) && line.endsWith('\t' + message))
            ++count;
    }
    return count;
}
