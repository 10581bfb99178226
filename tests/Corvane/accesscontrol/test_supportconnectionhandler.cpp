#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "support/messageboxes.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTcpServer>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>

namespace {

const QString kOnlineName = QStringLiteral("access.supportdb");
const QString kOfflineName = QStringLiteral("supportConnectionHandler");
const QString kInfo = QStringLiteral("Corvane access connection");
const QString kConnectedText = QStringLiteral("Connected to authentication database");
const QString kNoConnectionText = QStringLiteral("No connection to authentication database");
const QStringList kDefaultOptions{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                  QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")};

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

/// Runs steps on the open options dialog, one after the other from a timer.
class DialogSteps : public QObject
{
public:
    using Step = std::function<void(QDialog &dialog)>;

    explicit DialogSteps(QList<Step> steps)
        : m_steps(std::move(steps))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            auto *dialog = qobject_cast<SupportConnectionHandler *>(QApplication::activeModalWidget());
            if (dialog && dialog->isVisible() && !m_steps.isEmpty())
                m_steps.takeFirst()(*dialog);
        });
        m_timer.start(10);
    }

    bool areDone() const
    {
        return m_steps.isEmpty();
    }

private:
    QList<Step> m_steps;
    QTimer m_timer;
};

template<typename Widget>
Widget *find(QDialog &dialog, const char *name)
{
    return dialog.findChild<Widget *>(text(name));
}

void press(QDialog &dialog, const char *button)
{
    QTest::mouseClick(find<QPushButton>(dialog, button), Qt::LeftButton);
}

void pressConnect(QDialog &dialog)
{
    press(dialog, "connect_button");
}

void pressCancel(QDialog &dialog)
{
    press(dialog, "cancel_button");
}

DialogSteps::Step chooseOffline(const QString &location)
{
    return [location](QDialog &dialog) {
        find<QComboBox>(dialog, "online_mode_combo")->setCurrentIndex(1);
        find<QLineEdit>(dialog, "offline_location_edit")->setText(location);
    };
}

/// One row of the audit trail, as a signal told it.
struct Event
{
    int action;
    int type;
    QString key;
    QString database;
    QString info;

    friend bool operator==(const Event &a, const Event &b)
    {
        return a.action == b.action && a.type == b.type && a.key == b.key && a.database == b.database &&
               a.info == b.info;
    }
};

char *toString(const Event &event)
{
    return QTest::toString(QStringLiteral("%1 type %2, \"%3\", \"%4\", \"%5\"")
                               .arg(event.action, 0, 16)
                               .arg(event.type)
                               .arg(event.key, event.database, event.info));
}

Event started(const QString &database)
{
    return {Actions::Started, Actions::Automatic, kOnlineName, database, kInfo};
}

Event stopping(const QString &key, const QString &database)
{
    return {Actions::Stopping, Actions::Automatic, key, database, kInfo};
}

}  // namespace

class TestSupportConnectionHandler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theLastUsedParametersComeFirst();
    void theWorkingSettingsComeSecond();
    void theMachineWideSettingsComeThird();
    void withoutAnySourceTheTimeoutsAreThere();
    void theOfflineChoiceIsReadWhicheverSourceWins();
    void theParametersLastUsedAreWrittenAtTheEnd();
    void aFileWithoutAUsernameLeavesTheCredentialsEmpty();
    void credentialsNeverReachTheDisk();
    void aDamagedLocalCacheIsReadAsFarAsItGoes();

    void anEmptyMapOfParametersFailsWithNothingInTheText();
    void aCompleteDatabaseConnects();
    void aDatabaseWithoutATableFailsWithAnEmptyErrorText_data();
    void aDatabaseWithoutATableFailsWithAnEmptyErrorText();
    void badConnectionLinesFail_data();
    void badConnectionLinesFail();
    void unknownKeywordsAndOptionsDoNoHarm();
    void aPasswordAmongTheParametersStaysOutOfTheAuditTrail();
    void connectingAgainReplacesTheConnection();
    void closingForgetsTheConnection();
    void aSilentServerBlocksNoLongerThanTheOptionsSay_data();
    void aSilentServerBlocksNoLongerThanTheOptionsSay();

    void everyLoggedFailureDropsTheConnection();
    void afterAFailureTheNextOperationReconnectsWithTheStoredCredentials();
    void transactionsNeedAConnection();
    void transactionsAreKeptOrTakenBack();
    void aTransactionThatFailsIsLoggedAndDropsTheConnection();

    void cancellingTheOptionsStillEmitsReconnected();
    void offlineWithoutALocationDoesNothingUntilThereIsOne();
    void offlineWithoutALocationCanBeCancelled();
    void offlineIsNotOfferedToWhoIsNotInside();
    void aStoredOfflineModeDoesNotCountForWhoIsNotInside();
    void theOptionsConnectOnline();
    void theOptionsConnectOffline();
    void aFailedConnectionIsShown();
    void anOfflineLocationThatIsAFileFails();
    void afterADropTheOfflineFileIsFollowedByTheOnlineDatabase();
    void goingBackAndForthBetweenOnlineAndOffline();
    void theDialogHasItsButtonsAndTheFocusInTheEditor();
    void theDialogIsEmptyAgainAfterwards();

    void rowsFollowTheConnection();
    void rowsFollowTheLanguage();
    void aRowMayGoWithItsView();
    void theStateFitsItsLabelInLongLanguages();

private:
    QString localCache() const
    {
        return m_workstation.dataDirectory() + text("local_cache");
    }
    QString database(const QString &name) const
    {
        return m_workstation.path(QStringLiteral("%1_%2.db").arg(name).arg(m_count));
    }
    QString makeDatabase(const QString &name, const QStringList &missing = {},
                         const QStringList &statements = {}) const;
    static QVariantMap sqlite(const QString &file)
    {
        return {{text("Driver"), text("SQLite3")}, {text("Database"), file}};
    }
    static QString sqliteName(const QString &file)
    {
        return QStringLiteral("Database=%1;Driver=SQLite3").arg(file);
    }
    void writeLocalCache(const QVariantMap &params, const QStringList &options = kDefaultOptions) const;
    void makeHandler();
    QStringList shownRows(const char *prefix);
    QList<Event> events() const;
    QStringList errors() const;
    static QStringList lines(QDialog &dialog, const QString &prefix);

    Workstation m_workstation;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<QSignalSpy> m_actions;
    std::unique_ptr<QSignalSpy> m_errors;
    std::unique_ptr<QSignalSpy> m_reconnected;
    int m_count = 0;
};

void TestSupportConnectionHandler::initTestCase()
{
    qRegisterMetaType<ZephanError>("ZephanError");
}

void TestSupportConnectionHandler::init()
{
    ++m_count;
    QFile::remove(localCache());
    QFile::remove(m_workstation.localApplicationSettings());
    store()->changeSettingsFile(m_workstation.dataDirectory() +
                                QStringLiteral("working_%1.ini").arg(m_count));
    m_warnings = std::make_unique<QtWarnings>();
}

void TestSupportConnectionHandler::cleanup()
{
    m_handler.reset();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QVERIFY(!QSqlDatabase::contains(kOfflineName));
    for (const QString &warning : m_warnings->seen())
        QVERIFY2(!warning.startsWith(text("QSqlDatabase")), qPrintable(warning));
    QVERIFY(!QApplication::overrideCursor());
}

/// An access database without encryption, as it stands behind the ODBC driver.
QString TestSupportConnectionHandler::makeDatabase(const QString &name, const QStringList &missing,
                                                   const QStringList &statements) const
{
    const QString file = database(name);
    {
        QSqlDatabase maker = QSqlDatabase::addDatabase(text("QODBC3"), text("maker"));
        maker.setDatabaseName(text("Driver=SQLite3;Database=") + file);
        if (!maker.open())
            qFatal("SQLite's ODBC driver is not there");
        QSqlQuery query(maker);
        const QMap<QString, QString> tables = AccessControlOffline::offlineTableStatements();
        for (auto table = tables.begin(); table != tables.end(); ++table) {
            if (!missing.contains(table.key()) && !query.exec(table.value()))
                qFatal("The database is not made");
        }
        for (const QString &statement : statements)
            query.exec(statement);
    }
    QSqlDatabase::removeDatabase(text("maker"));
    return file;
}

void TestSupportConnectionHandler::writeLocalCache(const QVariantMap &params,
                                                   const QStringList &options) const
{
    QSettings cache(localCache(), QSettings::IniFormat);
    cache.setIniCodec("UTF-8");
    cache.beginGroup(text("supportdb_online"));
    cache.beginWriteArray(text("params"), params.size());
    int index = 0;
    for (auto it = params.begin(); it != params.end(); ++it) {
        cache.setArrayIndex(index++);
        cache.setValue(text("key"), it.key());
        cache.setValue(text("value"), it.value());
    }
    cache.endArray();
    cache.setValue(text("connectoptions"), options);
    cache.setValue(text("driverparams"), QString());
    cache.setValue(text("sqltype"), 2);
}

void TestSupportConnectionHandler::makeHandler()
{
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation.dataDirectory(), nullptr);
    m_actions = std::make_unique<QSignalSpy>(
        m_handler.get(),
        SIGNAL(logAction(Actions::Action, Actions::ActionType, UuidString, QString, QString, QVariant)));
    m_errors = std::make_unique<QSignalSpy>(m_handler.get(),
                                            SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    m_reconnected = std::make_unique<QSignalSpy>(m_handler.get(), SIGNAL(reconnected()));
    QVERIFY(m_actions->isValid() && m_errors->isValid() && m_reconnected->isValid());
}

QList<Event> TestSupportConnectionHandler::events() const
{
    QList<Event> list;
    for (const QList<QVariant> &arguments : *m_actions) {
        if (!arguments.at(2).value<UuidString>().isNull())
            qFatal("These events belong to no operator");
        list.append({arguments.at(0).value<Actions::Action>(), arguments.at(1).value<Actions::ActionType>(),
                     arguments.at(3).toString(), arguments.at(4).toString(), arguments.at(5).toString()});
    }
    return list;
}

/// The logged failures, as "action number: text" in hexadecimal.
QStringList TestSupportConnectionHandler::errors() const
{
    QStringList list;
    for (const QList<QVariant> &arguments : *m_errors)
        list.append(QStringLiteral("%1 %2: %3")
                        .arg(arguments.at(0).value<Actions::Action>(), 0, 16)
                        .arg(arguments.at(1).toUInt(), 0, 16)
                        .arg(arguments.at(2).toString()));
    return list;
}

QStringList TestSupportConnectionHandler::lines(QDialog &dialog, const QString &prefix)
{
    QStringList list;
    for (int i = 1; auto *row = dialog.findChild<QLineEdit *>(prefix + QString::number(i)); ++i)
        list.append(row->text());
    return list;
}

/// What the options dialog shows in one of its lists, less the spare line.
QStringList TestSupportConnectionHandler::shownRows(const char *prefix)
{
    QStringList list;
    DialogSteps steps({[&](QDialog &dialog) {
        list = lines(dialog, text(prefix));
        list.removeAll(QString());
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    return list;
}

void TestSupportConnectionHandler::theLastUsedParametersComeFirst()
{
    store()->setDatabaseSettings(text("supportdb"), {{text("params"), QVariantMap{{text("B"), text("2")}}}});
    QSettings(m_workstation.localApplicationSettings(), QSettings::IniFormat)
        .setValue(text("supportdb/params/size"), 0);
    writeLocalCache({{text("A"), text("1")}, {text("Name"), QString::fromUtf8("Käyttöoikeudet 访问")}},
                    {text("SQL_ATTR_LOGIN_TIMEOUT=7")});
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"),
             (QStringList{text("A=1"), QString::fromUtf8("Name=Käyttöoikeudet 访问")}));
    QCOMPARE(shownRows("connection_parameter_"), QStringList{text("SQL_ATTR_LOGIN_TIMEOUT=7")});
    QCOMPARE(m_handler->sqlType().toUInt(), 2u);
    QCOMPARE(m_handler->dataPath(), m_workstation.dataDirectory());
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(m_actions->size(), 0);
}

void TestSupportConnectionHandler::theWorkingSettingsComeSecond()
{
    store()->setDatabaseSettings(text("supportdb"), {{text("params"), QVariantMap{{text("B"), text("2")}}}});
    store()->setValue(text("supportdb/sqltype"), 1);
    store()->setSafeValue(text("supportdb/username"), text("reader"));
    QSettings(m_workstation.localApplicationSettings(), QSettings::IniFormat)
        .setValue(text("supportdb/connectoptions"), QStringList{text("X=1")});
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("B=2")});
    QCOMPARE(shownRows("connection_parameter_"), kDefaultOptions);
    QCOMPARE(m_handler->sqlType().toUInt(), 1u);
    QCOMPARE(shownRows("username_edit"), QStringList());
}

void TestSupportConnectionHandler::theMachineWideSettingsComeThird()
{
    {
        QSettings machine(m_workstation.localApplicationSettings(), QSettings::IniFormat);
        machine.setValue(text("supportdb/params/1/key"), text("C"));
        machine.setValue(text("supportdb/params/1/value"), text("3"));
        machine.setValue(text("supportdb/params/size"), 1);
        machine.setValue(text("supportdb/connectoptions"), QStringList{text("X=1"), text("Y=2")});
        machine.setValue(text("supportdb/sqltype"), 1);
    }
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("C=3")});
    QCOMPARE(shownRows("connection_parameter_"), (QStringList{text("X=1"), text("Y=2")}));
    QCOMPARE(m_handler->sqlType().toUInt(), 1u);
}

void TestSupportConnectionHandler::withoutAnySourceTheTimeoutsAreThere()
{
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"), QStringList());
    QCOMPARE(shownRows("connection_parameter_"), kDefaultOptions);
}

void TestSupportConnectionHandler::theOfflineChoiceIsReadWhicheverSourceWins()
{
    {
        QSettings cache(localCache(), QSettings::IniFormat);
        cache.setValue(text("supportdb_offline/location"), text("/srv/offline.access.db"));
        cache.setValue(text("supportdb_offline/online_mode"), false);
    }
    store()->setDatabaseSettings(text("supportdb"), {{text("params"), QVariantMap{{text("B"), text("2")}}}});
    makeHandler();
    m_handler->setOfflineAllowed(true);
    bool offline = false;
    QString location;
    DialogSteps steps({[&](QDialog &dialog) {
        auto *editor = dialog.findChild<DatabaseGroupSettings *>();
        offline = editor->isOffline();
        location = editor->offlineLocation();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(offline);
    QCOMPARE(location, text("/srv/offline.access.db"));
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("B=2")});
}

void TestSupportConnectionHandler::theParametersLastUsedAreWrittenAtTheEnd()
{
    writeLocalCache({{text("A"), text("1")}, {text("B"), text("2")}, {text("C"), text("3")}});
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString file = makeDatabase(text("written"));
    MessageBoxes boxes;
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "connection_setting_1")->setText(text("Driver=SQLite3"));
        find<QLineEdit>(dialog, "connection_setting_2")->setText(text("Database=") + file);
        find<QLineEdit>(dialog, "connection_setting_3")->clear();
        find<QLineEdit>(dialog, "connection_parameter_2")->setText(text("SQL_ATTR_CONNECTION_TIMEOUT=9"));
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    m_handler.reset();

    QSettings cache(localCache(), QSettings::IniFormat);
    QCOMPARE(cache.value(text("supportdb_online/params/size")).toInt(), 2);
    QCOMPARE(cache.value(text("supportdb_online/params/1/key")).toString(), text("Database"));
    QCOMPARE(cache.value(text("supportdb_online/params/1/value")).toString(), file);
    QCOMPARE(cache.value(text("supportdb_online/params/2/key")).toString(), text("Driver"));
    QVERIFY(!cache.contains(text("supportdb_online/params/3/key")));
    QCOMPARE(cache.value(text("supportdb_online/connectoptions")).toStringList(),
             (QStringList{kDefaultOptions.first(), text("SQL_ATTR_CONNECTION_TIMEOUT=9")}));
    QVERIFY(cache.contains(text("supportdb_online/driverparams")));
    QCOMPARE(cache.value(text("supportdb_online/sqltype")).toInt(), 2);
    QCOMPARE(cache.value(text("supportdb_offline/online_mode")).toBool(), true);
    QVERIFY(cache.contains(text("supportdb_offline/location")));
}

void TestSupportConnectionHandler::aFileWithoutAUsernameLeavesTheCredentialsEmpty()
{
    writeLocalCache(sqlite(makeDatabase(text("plain"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(m_handler->database()->userName(), QString());
}

void TestSupportConnectionHandler::credentialsNeverReachTheDisk()
{
    writeLocalCache(sqlite(makeDatabase(text("secret"))));
    makeHandler();
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "username_edit")->setText(text("marjatta"));
        find<QLineEdit>(dialog, "password_edit")->setText(text("kolme-sanaa"));
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    m_handler->connectOnline();
    QCOMPARE(m_handler->database()->userName(), text("marjatta"));
    m_handler.reset();
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("parking.ini"));

    QVERIFY(readFile(localCache()).contains("supportdb_online"));
    QDirIterator files(m_workstation.path(QString()), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QByteArray bytes = readFile(files.next());
        QVERIFY2(!bytes.contains("marjatta") && !bytes.contains("kolme-sanaa"), qPrintable(files.filePath()));
    }
    for (const Event &event : events())
        QVERIFY(!event.database.contains(text("kolme-sanaa")));
}

void TestSupportConnectionHandler::aDamagedLocalCacheIsReadAsFarAsItGoes()
{
    QVERIFY(writeFile(localCache(), "[supportdb_online]\nparams\\size=999999999\nparams\\2\\key=A\n"
                                    "params\\2\\value=1\nparams\\x\\key=B\nconnectoptions=@Variant(\\0\\0)\n"
                                    "\xff\xfe garbage\nsqltype=many\n"));
    QElapsedTimer time;
    time.start();
    makeHandler();
    QVERIFY(time.elapsed() < 5000);
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("A=1")});
    QCOMPARE(m_handler->sqlType().toUInt(), 0u);
    QVERIFY(!m_handler->connectOnline());
}

void TestSupportConnectionHandler::anEmptyMapOfParametersFailsWithNothingInTheText()
{
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(errors().size(), 1);
    QVERIFY2(errors().first().startsWith(text("5102 16300001: Database:  ErrorInfo: ")),
             qPrintable(errors().first()));
    QCOMPARE(events(), QList<Event>{stopping(kOnlineName, QString())});
    QCOMPARE(m_reconnected->size(), 1);
}

void TestSupportConnectionHandler::aCompleteDatabaseConnects()
{
    const QString file = makeDatabase(text("complete"));
    writeLocalCache(sqlite(file));
    makeHandler();
    QSqlDatabase *address = m_handler->database();
    QVERIFY(m_handler->connectOnline());
    QVERIFY(m_handler->isConnected());
    QCOMPARE(m_handler->database(), address);
    QCOMPARE(address->connectionName(), kOnlineName);
    QCOMPARE(address->driverName(), text("QODBC3"));
    QCOMPARE(address->databaseName(), sqliteName(file));
    QCOMPARE(address->connectOptions(), kDefaultOptions.join(QLatin1Char(';')));
    QCOMPARE(events(), QList<Event>{started(sqliteName(file))});
    QVERIFY(errors().isEmpty());
    QCOMPARE(m_reconnected->size(), 0);
}

void TestSupportConnectionHandler::aDatabaseWithoutATableFailsWithAnEmptyErrorText_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::addColumn<QStringList>("statements");
    const QStringList tables = AccessControlOffline::offlineTableStatements().keys();
    for (const QString &table : tables)
        QTest::newRow(qPrintable(text("without ") + table)) << QStringList{table} << QStringList();
    QTest::newRow("with all tables missing") << tables << QStringList();
    QTest::newRow("with a table of another case")
        << QStringList{text("roles")} << QStringList{text("CREATE TABLE Roles (role_id INTEGER)")};
    QTest::newRow("with a view in place of a table")
        << QStringList{text("roles")} << QStringList{text("CREATE VIEW roles AS SELECT 1")};
}

void TestSupportConnectionHandler::aDatabaseWithoutATableFailsWithAnEmptyErrorText()
{
    QFETCH(QStringList, missing);
    QFETCH(QStringList, statements);
    const QString file = makeDatabase(text("missing"), missing, statements);
    writeLocalCache(sqlite(file));
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QCOMPARE(errors().size(), 1);
    QCOMPARE(errors().first().trimmed(),
             QStringLiteral("5102 16300001: Database: %1 ErrorInfo:").arg(sqliteName(file)));
}

void TestSupportConnectionHandler::badConnectionLinesFail_data()
{
    QTest::addColumn<QVariantMap>("params");
    QTest::addColumn<QString>("shown");

    QTest::newRow("an unknown driver")
        << QVariantMap{{text("Driver"), text("No such driver")}} << text("Driver=No such driver");
    QTest::newRow("no driver") << QVariantMap{{text("Database"), text("x")}} << text("Database=x");
    QTest::newRow("an empty name") << QVariantMap{{QString(), text("1")}} << text("=1");
    QTest::newRow("a value of separators")
        << QVariantMap{{text("Driver"), text("a;b=c;;")}} << text("Driver=a;b=c;;");
    QTest::newRow("only blanks") << QVariantMap{{text("  "), text("  ")}} << text("  =  ");
    QTest::newRow("quotes and braces")
        << QVariantMap{{text("Driver"), text("{'\"}}")}} << text("Driver={'\"}}");
    QTest::newRow("percent signs do not shift the text")
        << QVariantMap{{text("A"), text("%1%2")}} << text("A=%1%2");
    QTest::newRow("many scripts") << QVariantMap{{text("Driver"), QString::fromUtf8("Ähtäri Ελλάς ไทย 中文")}}
                                  << QString::fromUtf8("Driver=Ähtäri Ελλάς ไทย 中文");
    QTest::newRow("a very long value") << QVariantMap{{text("Driver"), QString(5000, QLatin1Char('x'))}}
                                       << text("Driver=") + QString(5000, QLatin1Char('x'));
    QTest::newRow("a folder that is not there")
        << sqlite(text("/nowhere/at/all.db")) << sqliteName(text("/nowhere/at/all.db"));
}

void TestSupportConnectionHandler::badConnectionLinesFail()
{
    QFETCH(QVariantMap, params);
    QFETCH(QString, shown);
    writeLocalCache(params);
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(errors().size(), 1);
    QVERIFY2(
        errors().first().startsWith(QStringLiteral("5102 16300001: Database: %1 ErrorInfo: ").arg(shown)),
        qPrintable(errors().first()));
}

void TestSupportConnectionHandler::unknownKeywordsAndOptionsDoNoHarm()
{
    QVariantMap params = sqlite(makeDatabase(text("unknown")));
    params.insert(text("Colour"), text("blue"));
    params.insert(text("Wrong keyword"), text("  "));
    writeLocalCache(params,
                    {text("SQL_ATTR_COLOUR=2"), text("SQL_ATTR_LOGIN_TIMEOUT"), text("=;"), text(" ")});
    makeHandler();
    QVERIFY(m_handler->connectOnline());
}

void TestSupportConnectionHandler::aPasswordAmongTheParametersStaysOutOfTheAuditTrail()
{
    const QString file = makeDatabase(text("inline"));
    QVariantMap params = sqlite(file);
    params.insert(text("Pwd"), text("kolme-sanaa"));
    params.insert(text("password"), text("toinen"));
    writeLocalCache(params);
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    const QString shown = sqliteName(file) + text(";Pwd=*****;password=*****");
    m_handler->closeConnection();
    QCOMPARE(events(), (QList<Event>{started(shown), stopping(kOnlineName, shown)}));
    QVERIFY(QFile::remove(file));
    QVERIFY(!m_handler->connectOnline());
    QVERIFY2(errors().first().contains(shown), qPrintable(errors().first()));
    QVERIFY(!errors().first().contains(text("kolme-sanaa")));
}

void TestSupportConnectionHandler::connectingAgainReplacesTheConnection()
{
    const QString name = sqliteName(makeDatabase(text("again")));
    writeLocalCache(sqlite(database(text("again"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(events(), (QList<Event>{started(name), stopping(kOnlineName, name), started(name)}));
}

void TestSupportConnectionHandler::closingForgetsTheConnection()
{
    const QString name = sqliteName(makeDatabase(text("closed")));
    writeLocalCache(sqlite(database(text("closed"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    m_handler->closeConnection();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!m_handler->database()->isValid());
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QCOMPARE(events().last(), stopping(kOnlineName, name));
    QCOMPARE(m_reconnected->size(), 0);
}

void TestSupportConnectionHandler::aSilentServerBlocksNoLongerThanTheOptionsSay_data()
{
    QTest::addColumn<QString>("driver");
    QTest::newRow("MariaDB") << text("MariaDB Unicode");
    QTest::newRow("PostgreSQL") << text("PostgreSQL Unicode");
}

void TestSupportConnectionHandler::aSilentServerBlocksNoLongerThanTheOptionsSay()
{
    QFETCH(QString, driver);
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    writeLocalCache({{text("Driver"), driver},
                     {text("Server"), text("127.0.0.1")},
                     {text("Port"), QString::number(silent.serverPort())},
                     {text("Database"), text("access")}});
    makeHandler();
    QElapsedTimer time;
    time.start();
    QVERIFY(!m_handler->connectOnline());
    if (errors().first().contains(text("file not found")))
        QSKIP(qPrintable(text("The ODBC driver is not installed: ") + driver));
    QVERIFY2(time.elapsed() < 4000, qPrintable(QString::number(time.elapsed())));
    QVERIFY(!errors().first().contains(text("CONN_TIMEOUT")));
}

void TestSupportConnectionHandler::everyLoggedFailureDropsTheConnection()
{
    const QString name = sqliteName(makeDatabase(text("failure")));
    writeLocalCache(sqlite(database(text("failure"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    emit m_handler->logError(Actions::AddOperator, ZephanErrors::kStatementFailed,
                             text("User from access.supportdb"));
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(m_reconnected->size(), 1);
    QCOMPARE(events().last(), stopping(kOnlineName, name));
}

void TestSupportConnectionHandler::afterAFailureTheNextOperationReconnectsWithTheStoredCredentials()
{
    writeLocalCache(sqlite(makeDatabase(text("reconnect"))));
    makeHandler();
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "username_edit")->setText(text("marjatta"));
        find<QLineEdit>(dialog, "password_edit")->setText(text("kolme-sanaa"));
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QVERIFY(QMetaObject::invokeMethod(m_handler.get(), "error"));
    QVERIFY(!m_handler->isConnected());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(m_handler->database()->userName(), text("marjatta"));
}

void TestSupportConnectionHandler::transactionsNeedAConnection()
{
    makeHandler();
    QVERIFY(!m_handler->beginTransaction());
    QVERIFY(!m_handler->commitTransaction());
    QVERIFY(!m_handler->rollbackTransaction());
    QVERIFY(errors().isEmpty());
}

void TestSupportConnectionHandler::transactionsAreKeptOrTakenBack()
{
    writeLocalCache(sqlite(makeDatabase(text("transaction"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    const auto add = [this](const QString &id) {
        QSqlQuery query(*m_handler->database());
        query.prepare(text("INSERT INTO organization (id, name) VALUES (?, ?)"));
        query.addBindValue(id);
        query.addBindValue(id);
        return query.exec();
    };
    const auto count = [this] {
        QSqlQuery query(text("SELECT count(*) FROM organization"), *m_handler->database());
        return query.next() ? query.value(0).toInt() : -1;
    };
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(add(text("1")));
    QVERIFY(m_handler->commitTransaction());
    QCOMPARE(count(), 1);
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(add(text("2")));
    QVERIFY(m_handler->rollbackTransaction());
    QCOMPARE(count(), 1);
    QVERIFY(errors().isEmpty());
}

void TestSupportConnectionHandler::aTransactionThatFailsIsLoggedAndDropsTheConnection()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(m_workstation.path(text("transactions"))), pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QVERIFY(!m_handler->rollbackTransaction());
    QCOMPARE(errors(), QStringList{text("2224 16300002: Transaction rollback failed in access.supportdb")});
    QVERIFY(!m_handler->isConnected());

    DialogSteps again({pressConnect});
    m_handler->connectionOptions();
    QVERIFY(!m_handler->commitTransaction());
    QCOMPARE(errors().last(), text("2224 16300002: Transaction commit failed in access.supportdb"));

    DialogSteps third({pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(!m_handler->beginTransaction());
    QCOMPARE(errors().last(), text("2224 16300002: Transaction begin failed in access.supportdb"));
}

void TestSupportConnectionHandler::cancellingTheOptionsStillEmitsReconnected()
{
    const QString file = makeDatabase(text("cancelled"));
    writeLocalCache(sqlite(file));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "connection_setting_1")->setText(text("Database=/elsewhere"));
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(steps.areDone());
    QCOMPARE(m_reconnected->size(), 1);
    QVERIFY(m_handler->isConnected());
    QVERIFY(errors().isEmpty());
    QCOMPARE(shownRows("connection_setting_"),
             (QStringList{text("Database=") + file, text("Driver=SQLite3")}));
}

void TestSupportConnectionHandler::offlineWithoutALocationDoesNothingUntilThereIsOne()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString folder = m_workstation.path(text("until"));
    bool stayedOpen = false;
    DialogSteps steps({chooseOffline(QString()), pressConnect,
                       [&](QDialog &dialog) {
                           stayedOpen = dialog.isVisible();
                           find<QLineEdit>(dialog, "offline_location_edit")->setText(folder);
                       },
                       pressConnect});
    m_handler->connectionOptions();
    QVERIFY(stayedOpen);
    QVERIFY(steps.areDone());
    QVERIFY(m_handler->isConnected());
    QVERIFY(errors().isEmpty());
}

void TestSupportConnectionHandler::offlineWithoutALocationCanBeCancelled()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(QString()), pressConnect, pressCancel});
    m_handler->connectionOptions();
    QVERIFY(steps.areDone());
    QVERIFY(!m_handler->isConnected());
    QVERIFY(errors().isEmpty());
    QCOMPARE(m_reconnected->size(), 1);
}

void TestSupportConnectionHandler::offlineIsNotOfferedToWhoIsNotInside()
{
    makeHandler();
    bool offered = true;
    DialogSteps steps({[&](QDialog &dialog) {
        offered = find<QComboBox>(dialog, "online_mode_combo")->isVisible();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(!offered);

    m_handler->setOfflineAllowed(true);
    DialogSteps inside({[&](QDialog &dialog) {
        offered = find<QComboBox>(dialog, "online_mode_combo")->isVisible();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(offered);
}

void TestSupportConnectionHandler::aStoredOfflineModeDoesNotCountForWhoIsNotInside()
{
    writeLocalCache(sqlite(makeDatabase(text("outside"))));
    QSettings(localCache(), QSettings::IniFormat).setValue(text("supportdb_offline/online_mode"), false);
    makeHandler();
    DialogSteps steps({pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
}

void TestSupportConnectionHandler::theOptionsConnectOnline()
{
    const QString file = makeDatabase(text("dialog"));
    makeHandler();
    DialogSteps steps({[&](QDialog &dialog) {
        QTest::keyClicks(find<QLineEdit>(dialog, "connection_setting_1"),
                         text("Driver=SQLite3;Database=") + file);
        find<QComboBox>(dialog, "sql_type_combo")->setCurrentIndex(1);
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QCOMPARE(m_handler->sqlType(), QVariant(2));
    QCOMPARE(events(), QList<Event>{started(sqliteName(file))});
    QCOMPARE(m_reconnected->size(), 1);
}

void TestSupportConnectionHandler::theOptionsConnectOffline()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString folder = m_workstation.path(QString::fromUtf8("Käyttöoikeudet"));
    const QString file = folder + text("/offline.access.db");
    DialogSteps steps({chooseOffline(QDir::toNativeSeparators(file)), pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QVERIFY(QFile::exists(file));
    QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    const QString name = QDir::toNativeSeparators(file);
    QCOMPARE(QDir::cleanPath(m_handler->database()->databaseName()), QDir::cleanPath(name));
    const QString path = m_handler->database()->databaseName();
    QCOMPARE(events(), (QList<Event>{{Actions::Started, Actions::Human, path, path, kInfo}}));
    QCOMPARE(m_reconnected->size(), 1);

    m_handler->closeConnection();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!QSqlDatabase::contains(kOfflineName));
    QCOMPARE(events().last(), stopping(kOfflineName, path));
}

void TestSupportConnectionHandler::aFailedConnectionIsShown()
{
    makeHandler();
    MessageBoxes boxes;
    DialogSteps steps({pressConnect});
    m_handler->connectionOptions();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, text("Error"));
    QCOMPARE(boxes.seen().first().text, text("Connection failed"));
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.seen().first().buttons, QStringList{text("Ok")});
    QCOMPARE(errors().size(), 2);
    QVERIFY(errors().first().startsWith(text("5102 16300001: Database:  ErrorInfo: ")));
    QCOMPARE(errors().last(), text("5100 16300001: Connection failed to access.supportdb"));
    QCOMPARE(m_reconnected->size(), 3);
}

void TestSupportConnectionHandler::anOfflineLocationThatIsAFileFails()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString file = m_workstation.path(text("a_file"));
    QVERIFY(writeFile(file, "kept"));
    MessageBoxes boxes;
    DialogSteps steps({chooseOffline(file), pressConnect});
    m_handler->connectionOptions();
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(errors(), QStringList{text("5100 16300001: Connection failed to access.supportdb")});
    QCOMPARE(readFile(file), QByteArray("kept"));
}

void TestSupportConnectionHandler::afterADropTheOfflineFileIsFollowedByTheOnlineDatabase()
{
    writeLocalCache(sqlite(makeDatabase(text("follows"))));
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(m_workstation.path(text("follows"))), pressConnect});
    m_handler->connectionOptions();
    QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    m_handler->error();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
}

void TestSupportConnectionHandler::goingBackAndForthBetweenOnlineAndOffline()
{
    writeLocalCache(sqlite(makeDatabase(text("forth"))));
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString folder = m_workstation.path(text("forth"));
    const auto chooseOnline = [](QDialog &dialog) {
        find<QComboBox>(dialog, "online_mode_combo")->setCurrentIndex(0);
    };
    for (int round = 0; round < 2; ++round) {
        DialogSteps online({chooseOnline, pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
        DialogSteps offline({chooseOffline(folder), pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
        QVERIFY(!QSqlDatabase::contains(kOnlineName));
        DialogSteps offlineAgain({pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    }
    QVERIFY(errors().isEmpty());
}

void TestSupportConnectionHandler::theDialogHasItsButtonsAndTheFocusInTheEditor()
{
    writeLocalCache(sqlite(makeDatabase(text("buttons"))));
    makeHandler();
    QVERIFY(m_handler->minimumWidth() == 400);
    QStringList seen;
    for (int i = 0; i < 2; ++i) {
        DialogSteps steps({[&](QDialog &dialog) {
            for (const char *name : {"connect_button", "cancel_button"}) {
                const auto *button = find<QPushButton>(dialog, name);
                seen.append(QStringLiteral("%1 %2 %3")
                                .arg(button->text())
                                .arg(button->height())
                                .arg(button->isDefault() ? text("default") : QString()));
            }
            seen.append(dialog.findChild<DatabaseGroupSettings *>()->focusProxy() == dialog.focusWidget()
                            ? text("in the editor")
                            : text("elsewhere"));
            QTest::keyClick(&dialog, Qt::Key_Return);
        }});
        m_handler->connectionOptions();
    }
    QCOMPARE(seen, (QStringList{text("Connect 30 default"), text("Cancel 30 "), text("in the editor"),
                                text("Reconnect 30 default"), text("Cancel 30 "), text("in the editor")}));
}

void TestSupportConnectionHandler::theDialogIsEmptyAgainAfterwards()
{
    makeHandler();
    for (int i = 0; i < 3; ++i) {
        int parts = 0;
        DialogSteps steps({[&](QDialog &dialog) {
            parts = dialog.findChildren<DatabaseGroupSettings *>().size() +
                    dialog.findChildren<QPushButton *>(text("connect_button")).size();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }});
        m_handler->connectionOptions();
        QCOMPARE(parts, 2);
        QVERIFY(!m_handler->findChild<DatabaseGroupSettings *>());
        QVERIFY(m_handler->findChildren<QPushButton *>().isEmpty());
        QCOMPARE(m_handler->layout()->count(), 0);
    }
}

void TestSupportConnectionHandler::rowsFollowTheConnection()
{
    writeLocalCache(sqlite(makeDatabase(text("rows"))));
    makeHandler();
    QWidget first;
    QWidget second;
    first.setLayout(m_handler->createConnectionRow());
    second.setLayout(m_handler->createConnectionRow());
    const auto states = [&] {
        return QStringList{first.findChild<QLabel *>()->text(), second.findChild<QLabel *>()->text()};
    };
    QCOMPARE(states(), (QStringList{kNoConnectionText, kNoConnectionText}));
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(states(), (QStringList{kConnectedText, kConnectedText}));
    m_handler->error();
    QCOMPARE(states(), (QStringList{kNoConnectionText, kNoConnectionText}));

    auto *button = first.findChild<QPushButton *>();
    QCOMPARE(button->text(), text("Connection options"));
    QCOMPARE(button->size(), QSize(250, 30));
    QCOMPARE(first.findChild<QLabel *>()->size(), QSize(250, 30));
    DialogSteps steps({pressConnect});
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(steps.areDone());
    QCOMPARE(states(), (QStringList{kConnectedText, kConnectedText}));
}

void TestSupportConnectionHandler::rowsFollowTheLanguage()
{
    makeHandler();
    QWidget view;
    view.setLayout(m_handler->createConnectionRow());
    view.findChild<QLabel *>()->clear();
    view.findChild<QPushButton *>()->setText(QString());
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_handler.get(), &change);
    QCOMPARE(view.findChild<QLabel *>()->text(), kNoConnectionText);
    QCOMPARE(view.findChild<QPushButton *>()->text(), text("Connection options"));
}

void TestSupportConnectionHandler::aRowMayGoWithItsView()
{
    writeLocalCache(sqlite(makeDatabase(text("gone"))));
    makeHandler();
    auto view = std::make_unique<QWidget>();
    view->setLayout(m_handler->createConnectionRow());
    view.reset();
    QVERIFY(m_handler->connectOnline());
    m_handler->error();
}

void TestSupportConnectionHandler::theStateFitsItsLabelInLongLanguages()
{
    makeHandler();
    QWidget view;
    QFont large = QApplication::font();
    large.setPixelSize(20);
    QApplication::setFont(large);
    view.setLayout(m_handler->createConnectionRow());
    QApplication::setFont(QFont());
    const auto *label = view.findChild<QLabel *>();
    const QRect room = label->rect();
    QVERIFY(room.contains(label->fontMetrics().boundingRect(room, Qt::TextWordWrap, label->text())));
}

QTEST_MAIN(TestSupportConnectionHandler)
#include "test_supportconnectionhandler.moc"
