#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/centralelement.h"
#include "Corvane/views/viewstacker.h"
#include "Corvane/views/zephansplash.h"
#include "accessdatabase.h"
#include "actionlogreader.h"
#include "support/messageboxes.h"
#include "support/workstation.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QHostInfo>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QSettings>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTranslator>

#include <memory>

namespace {

const char *const kHeaderButtons[] = {"header_home_button", "header_settings_button",
                                      "header_access_control_button", "header_audit_trail_button",
                                      "header_menu_button"};

/// Translates the texts of the header.
class HeaderTranslator : public QTranslator
{
public:
    bool isEmpty() const override
    {
        return false;
    }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return qstrcmp(context, "CentralElement") == 0 ? QString::fromLatin1(source).toUpper() : QString();
    }
};

}  // namespace

class TestCentralElement : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void engineStartsAgainstALocalActiveLogAndTheSettingsComeBack();
    void goodStartShowsTheMainWindowWithTheLoginView_data();
    void goodStartShowsTheMainWindowWithTheLoginView();
    void badCodeIsToldAndRecordedAndShowsNoMainWindow_data();
    void badCodeIsToldAndRecordedAndShowsNoMainWindow();

    void headerHoldsTheButtonsInTheirOrder();
    void headerIsHiddenOnTheLoginAndTheHomeView();
    void headerButtonsLeadToTheViews_data();
    void headerButtonsLeadToTheViews();
    void headerButtonsAreAllOfOneSize();
    void menuButtonOpensTheAboutDialog();
    void missingRightsDisableTheHeaderButtons();
    void headerFollowsTheLanguage();

    void eventsOfTheViewsReachTheLogInTheOperatorsName();
    void closedBeforeAnySignInItStillWritesLogoutAndStopping();
    void openViewIsLeftBeforeTheLogout();

private:
    void build();
    void startWell();
    QWidget *find(const QString &name) const;
    QString view() const;
    QString logPath() const;
    QStringList log(const QString &columns = QStringLiteral("printf('%x', action), info")) const;

    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<AccessDatabase> m_database;
    std::unique_ptr<ZephanSplash> m_splash;
    std::unique_ptr<QMainWindow> m_window;
    QPointer<CentralElement> m_element;
};

void TestCentralElement::initTestCase()
{
    m_workstation = std::make_unique<Workstation>();
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation->dataDirectory() + kSettingsFileName);
    m_database = std::make_unique<AccessDatabase>(m_workstation->path("access.db"));
}

void TestCentralElement::init()
{
    QDir(m_workstation->dataDirectory() + "CorvaneActions").removeRecursively();
    m_database->configure(m_workstation->dataDirectory());
}

void TestCentralElement::cleanup()
{
    delete m_element;
    m_window.reset();
    m_splash.reset();
}

/// As the program does it, up to the event loop.
void TestCentralElement::build()
{
    m_splash =
        std::make_unique<ZephanSplash>(Qt::AlignBottom, Qt::black, QPixmap(), Qt::WindowFlags(), nullptr);
    m_splash->setTimerInterval(1);
    m_splash->show();
    m_window = std::make_unique<QMainWindow>();
    m_window->resize(800, 600);
    m_element = new CentralElement(m_workstation->dataDirectory(), m_splash.get(), nullptr);
    m_window->setCentralWidget(m_element);
}

void TestCentralElement::startWell()
{
    build();
    QTRY_COMPARE(view(), QStringLiteral("LoginView"));
    QVERIFY(m_window->isVisible());
}

QWidget *TestCentralElement::find(const QString &name) const
{
    return m_element->findChild<QWidget *>(name);
}

QString TestCentralElement::view() const
{
    const auto *stacker = m_element->findChild<ViewStacker *>();
    return stacker ? QString::fromLatin1(stacker->currentWidget()->metaObject()->className()) : QString();
}

QString TestCentralElement::logPath() const
{
    return m_workstation->dataDirectory() + "CorvaneActions/actionlog.db";
}

QStringList TestCentralElement::log(const QString &columns) const
{
    QStringList rows = readActionLog(logPath(), columns);
    rows.removeAll(QStringLiteral("5101|Corvane access connection"));
    return rows;
}

void TestCentralElement::engineStartsAgainstALocalActiveLogAndTheSettingsComeBack()
{
    SettingsHandler *settings = SettingsHandler::getInstance();
    settings->setValue(SettingsKeys::kActionLogLocation, "elsewhere");
    settings->setValue(SettingsKeys::kActionLogActivated, false);
    settings->generalSettings()->sync();
    const QString file = settings->generalSettings()->fileName();
    const QByteArray before = readFile(file);
    build();
    QCOMPARE(settings->value(SettingsKeys::kActionLogLocation).toString(),
             m_workstation->dataDirectory() + "CorvaneActions/");
    QCOMPARE(settings->value(SettingsKeys::kActionLogActivated).toBool(), true);
    QVERIFY(!m_window->isVisible());
    QVERIFY(m_splash->isVisible());
    // Whoever is killed now leaves the user's own settings on disk.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
    QCOMPARE(readFile(file), before);

    QTRY_VERIFY(m_window->isVisible());
    QCOMPARE(readFile(file), before);
    QCOMPARE(settings->value(SettingsKeys::kActionLogLocation).toString(), QStringLiteral("elsewhere"));
    QCOMPARE(settings->value(SettingsKeys::kActionLogActivated).toBool(), false);
    QVERIFY(!m_splash->isVisible());
    QCOMPARE(log(), QStringList("5100|Corvane"));
    settings->generalSettings()->clear();
}

void TestCentralElement::goodStartShowsTheMainWindowWithTheLoginView_data()
{
    QTest::addColumn<QByteArray>("logFile");

    QTest::newRow("0, a new log") << QByteArray();
    QTest::newRow("0x04300001, a damaged log that was replaced") << QByteArray(5000, 'x');
}

void TestCentralElement::goodStartShowsTheMainWindowWithTheLoginView()
{
    QFETCH(QByteArray, logFile);
    if (!logFile.isEmpty())
        QVERIFY(writeFile(logPath(), logFile));
    const MessageBoxes boxes;
    startWell();
    QVERIFY(!m_splash->isVisible());
    QCOMPARE(log(), QStringList("5100|Corvane"));
    QCOMPARE(log("action_type, target_server"), QStringList("1|" + QHostInfo::localHostName()));
    QCOMPARE(boxes.seen().size(), 0);
}

void TestCentralElement::badCodeIsToldAndRecordedAndShowsNoMainWindow_data()
{
    QTest::addColumn<ZephanError>("code");
    QTest::addColumn<QString>("told");

    QTest::newRow("5") << ZephanError(5) << "5";
    QTest::newRow("numbers are decimal") << ZephanError(0x04300000) << "70254592";
    QTest::newRow("a number near the good one is bad") << ZephanError(0x04300002) << "70254594";
    QTest::newRow("all bits") << ZephanError(0xffffffff) << "4294967295";
}

void TestCentralElement::badCodeIsToldAndRecordedAndShowsNoMainWindow()
{
    QFETCH(ZephanError, code);
    QFETCH(QString, told);
    build();
    QCoreApplication::removePostedEvents(nullptr, QEvent::MetaCall);  // the engine's own, good answer
    const MessageBoxes boxes;
    const QString text = "Could not start program. Error code " + told;

    QVERIFY(QMetaObject::invokeMethod(m_element, "start", Q_ARG(ZephanError, code)));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Initialisation failed"));
    QCOMPARE(boxes.seen().first().text, text);
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen().first().buttons, QStringList("Ok"));
    QVERIFY(!m_window->isVisible());
    QVERIFY(!m_splash->isVisible());
    QVERIFY(!find("header_home_button"));

    QTRY_VERIFY(!m_element);  // it deletes itself
    QVERIFY(!m_window->isVisible());
    const QStringList rows = log("printf('%x', action), printf('%x', category), info");
    QCOMPARE(rows.first(), "5100|6000|Error code: 18874368, " + text);
}

void TestCentralElement::headerHoldsTheButtonsInTheirOrder()
{
    startWell();
    auto *layout = qobject_cast<QVBoxLayout *>(m_element->layout());
    auto *header = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    for (int i = 0; i < 5; ++i) {
        auto *button = qobject_cast<QAbstractButton *>(header->itemAt(i)->widget());
        QCOMPARE(button->objectName(), QString::fromLatin1(kHeaderButtons[i]));
        QCOMPARE(button->iconSize(), QSize(48, 48));
        QVERIFY(!button->icon().pixmap(48, 48).isNull());
        QVERIFY(!button->accessibleName().isEmpty());
        QCOMPARE(button->toolTip(), button->accessibleName());
    }
    auto *title = qobject_cast<QLabel *>(header->itemAt(5)->widget());
    QCOMPARE(title->text(), QStringLiteral("Title"));
    QCOMPARE(title->maximumHeight(), 50);
    QCOMPARE(layout->itemAt(1)->widget(), m_element->findChild<ViewStacker *>());
}

void TestCentralElement::headerIsHiddenOnTheLoginAndTheHomeView()
{
    startWell();
    auto *stacker = m_element->findChild<ViewStacker *>();
    const auto visible = [this] {
        int count = find("header_title")->isVisible() ? 1 : 0;
        for (const char *name : kHeaderButtons)
            count += find(name)->isVisible() ? 1 : 0;
        return count;
    };
    QCOMPARE(visible(), 0);
    const auto access = accessControlWith(-1);
    stacker->setupAccess(access.get());
    QCOMPARE(view(), QStringLiteral("IntroductionView"));
    QCOMPARE(visible(), 0);
    stacker->showSettings();
    QCOMPARE(visible(), 6);
    stacker->showIntroduction();
    QCOMPARE(visible(), 0);
}

void TestCentralElement::headerButtonsLeadToTheViews_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("title");

    QTest::newRow("home") << "header_home_button"
                          << "IntroductionView"
                          << "Audit Trail Viewer";
    QTest::newRow("settings") << "header_settings_button"
                              << "SettingsView"
                              << "Settings Management";
    QTest::newRow("access control") << "header_access_control_button"
                                    << "AccesscontrolView"
                                    << "Access Control Management";
    QTest::newRow("audit trail") << "header_audit_trail_button"
                                 << "AuditTrailView"
                                 << "Audit Trail Viewer";
}

void TestCentralElement::headerButtonsLeadToTheViews()
{
    QFETCH(QString, button);
    QFETCH(QString, className);
    QFETCH(QString, title);
    startWell();
    m_element->findChild<SupportConnectionHandler *>()->connectOnline();
    const auto access = accessControlWith(-1);
    m_element->findChild<ViewStacker *>()->setupAccess(access.get());
    m_element->findChild<ViewStacker *>()->showAuditTrail();
    QTest::mouseClick(find(button), Qt::LeftButton);
    QCOMPARE(view(), className);
    QCOMPARE(qobject_cast<QLabel *>(find("header_title"))->text(), title);

    m_element->findChild<ViewStacker *>()->showAuditTrail();
    QTest::keyClick(find(button), Qt::Key_Return);
    QCOMPARE(view(), className);
}

void TestCentralElement::headerButtonsAreAllOfOneSize()
{
    startWell();
    m_element->findChild<ViewStacker *>()->showSettings();
    QCoreApplication::sendPostedEvents();
    for (const char *name : kHeaderButtons) {
        QCOMPARE(find(name)->size(), find("header_settings_button")->size());
        QCOMPARE(find(name)->y(), find("header_settings_button")->y());
    }
}

void TestCentralElement::menuButtonOpensTheAboutDialog()
{
    startWell();
    m_element->findChild<ViewStacker *>()->showAuditTrail();
    QString text;
    QTimer::singleShot(0, this, [&text] {
        QWidget *dialog = QApplication::activeModalWidget();
        text = dialog->findChild<QTextEdit *>("about_text")->toPlainText();
        QTest::mouseClick(dialog->findChild<QAbstractButton *>("ok_button"), Qt::LeftButton);
    });
    QTest::mouseClick(find("header_menu_button"), Qt::LeftButton);
    QTRY_VERIFY(text.startsWith("Halvorn Pulmadesk v"));
    QCOMPARE(view(), QStringLiteral("AuditTrailView"));
}

void TestCentralElement::missingRightsDisableTheHeaderButtons()
{
    startWell();
    const auto access = accessControlWith(0x4);
    m_element->findChild<ViewStacker *>()->setupAccess(access.get());
    m_element->findChild<ViewStacker *>()->showSettings();
    QVERIFY(!find("header_access_control_button")->isEnabled());
    QVERIFY(find("header_audit_trail_button")->isEnabled());
    QVERIFY(find("header_settings_button")->isEnabled());
}

void TestCentralElement::headerFollowsTheLanguage()
{
    startWell();
    QCOMPARE(find("header_home_button")->toolTip(), QStringLiteral("Home"));
    HeaderTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(find("header_home_button")->toolTip(), QStringLiteral("HOME"));
    QCOMPARE(find("header_menu_button")->accessibleName(), QStringLiteral("ABOUT"));
}

void TestCentralElement::eventsOfTheViewsReachTheLogInTheOperatorsName()
{
    startWell();
    auto *stacker = m_element->findChild<ViewStacker *>();
    const auto access = accessControlWith(-1);
    stacker->setupAccess(access.get());
    stacker->showSettings();
    emit stacker->logError(Actions::LoadSettings, ZephanErrors::kLoadingFailed, QStringLiteral("cause"));
    QCOMPARE(log("printf('%x', action), operator_name"),
             (QStringList{"5100|", "5100|tester", "220d|tester"}));
}

void TestCentralElement::closedBeforeAnySignInItStillWritesLogoutAndStopping()
{
    startWell();
    m_window->close();
    delete m_element;
    QCOMPARE(log(), (QStringList{"5100|Corvane", "1301|Corvane", "5101|Corvane"}));
    QCOMPARE(log("action_type, target_server").last(), "1|" + QHostInfo::localHostName());
}

void TestCentralElement::openViewIsLeftBeforeTheLogout()
{
    startWell();
    const auto access = accessControlWith(-1);
    m_element->findChild<ViewStacker *>()->setupAccess(access.get());
    m_element->findChild<ViewStacker *>()->showAuditTrail();
    delete m_element;
    QCOMPARE(log(), (QStringList{"5100|Corvane", "5100|Corvane Audit Trail Viewer",
                                 "5101|Corvane Audit Trail Viewer", "1301|Corvane", "5101|Corvane"}));
}

QTEST_MAIN(TestCentralElement)
#include "test_centralelement.moc"
