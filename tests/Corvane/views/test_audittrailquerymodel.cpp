#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailquerystring.h"
#include "capitaltranslator.h"
#include "support/workstation.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

#include <ctime>

class TestAuditTrailQueryModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void words_data();
    void words();
    void timesFollowTheDateFormatWithoutANewQuery();
    void timesAreShownInEachDateFormat_data();
    void timesAreShownInEachDateFormat();
    void timesStandAsTheyAreStored_data();
    void timesStandAsTheyAreStored();
    void aTimeOfTheDriverIsNotShiftedEither();
    void otherRolesAndColumnsAreLeftAlone();
    void languageChangesWordsButNeverActionNames();

private:
    QString shown(const QString &column, const QString &literal) const;

    Workstation m_workstation;
};

void TestAuditTrailQueryModel::initTestCase()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QLatin1String(kSettingsFileName));
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(QStringLiteral(":memory:"));
    QVERIFY(database.open());
}

void TestAuditTrailQueryModel::cleanupTestCase()
{
    QSqlDatabase::removeDatabase(QLatin1String(QSqlDatabase::defaultConnection));
}

QString TestAuditTrailQueryModel::shown(const QString &column, const QString &literal) const
{
    AuditTrailQueryModel model;
    model.setQuery(QStringLiteral("SELECT %1 AS %2").arg(literal, column));
    return model.data(model.index(0, 0)).toString();
}

void TestAuditTrailQueryModel::words_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *column, const char *literal, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(column) << QString::fromLatin1(literal)
                            << QString::fromLatin1(expected);
    };
    row("an action shows its identifier", "action", "8720", "SearchAuditTrail");
    row("the last action of the last family", "action", "20996", "ConnectionChange");
    row("action 0 is unknown", "action", "0", "Unknown");
    row("an action between two families is unknown", "action", "8450", "Unknown");
    row("an action that is a text of digits shows its identifier", "action", "'4864'", "Login");
    row("an action that is no number stands as it is", "action", "'by hand'", "by hand");
    row("access", "category", "4096", "Access");
    row("database", "category", "8192", "Database");
    row("user", "category", "12288", "User");
    row("transfer", "category", "16384", "Transfer");
    row("system", "category", "20480", "System");
    row("error", "category", "24576", "Error");
    row("another category is unknown", "category", "1", "Unknown");
    row("low", "action_level", "256", "Low");
    row("normal", "action_level", "512", "Normal");
    row("high", "action_level", "768", "High");
    row("another level is unknown", "action_level", "3", "Unknown");
    row("automatic", "action_type", "0", "Automatic");
    row("human", "action_type", "1", "Human");
    row("action type 2 is unknown", "action_type", "2", "Unknown");
    row("a number of more than 32 bits is not cut to a known one", "category", "4294971392", "Unknown");
    row("a negative number is unknown", "action_type", "-1", "Unknown");
    row("a category that is no number stands as it is", "category", "'4096 or so'", "4096 or so");
    row("a level that is no number stands as it is", "action_level", "'low'", "low");
    row("a type that is no number stands as it is", "action_type", "''", "");
}

void TestAuditTrailQueryModel::words()
{
    QFETCH(QString, column);
    QFETCH(QString, literal);
    QFETCH(QString, expected);
    QCOMPARE(shown(column, literal), expected);
}

void TestAuditTrailQueryModel::timesFollowTheDateFormatWithoutANewQuery()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    AuditTrailQueryModel model;
    model.setQuery(QStringLiteral("SELECT '2016-03-01 22:15:30' AS timestamp_action"));
    store->setValue(QLatin1String(SettingsKeys::kTimeAmPm), true);
    store->setValue(QLatin1String(SettingsKeys::kDateFormat), 0);
    store->setValue(QLatin1String(SettingsKeys::kDateSeparator), 0);
    QCOMPARE(model.data(model.index(0, 0)).toString(), QStringLiteral("01.03.2016 22:15:30"));
    store->setValue(QLatin1String(SettingsKeys::kDateFormat), 5);
    store->setValue(QLatin1String(SettingsKeys::kDateSeparator), 2);
    QCOMPARE(model.data(model.index(0, 0)).toString(), QStringLiteral("3/1/2016 22:15:30"));
}

void TestAuditTrailQueryModel::timesAreShownInEachDateFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("expected");

    QTest::newRow("DD.MM.YYYY") << 0 << "01.03.2016 00:05:09";
    QTest::newRow("D.M.YYYY") << 1 << "1.3.2016 00:05:09";
    QTest::newRow("YYYY.MM.DD") << 2 << "2016.03.01 00:05:09";
    QTest::newRow("YYYY.M.D") << 3 << "2016.3.1 00:05:09";
    QTest::newRow("MM.DD.YYYY") << 4 << "03.01.2016 00:05:09";
    QTest::newRow("M.D.YYYY") << 5 << "3.1.2016 00:05:09";
}

void TestAuditTrailQueryModel::timesAreShownInEachDateFormat()
{
    QFETCH(int, format);
    QFETCH(QString, expected);
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setValue(QLatin1String(SettingsKeys::kDateFormat), format);
    for (const bool twelveHours : {false, true}) {
        store->setValue(QLatin1String(SettingsKeys::kTimeAmPm), twelveHours);
        for (int separator = 0; separator < 3; ++separator) {
            store->setValue(QLatin1String(SettingsKeys::kDateSeparator), separator);
            const QChar sign = QLatin1Char(".-/"[separator]);
            QCOMPARE(shown(QStringLiteral("timestamp_action"), QStringLiteral("'2016-03-01 00:05:09'")),
                     QString(expected).replace(QLatin1Char('.'), sign));
        }
    }
}

void TestAuditTrailQueryModel::timesStandAsTheyAreStored_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *stored, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(stored) << QString::fromLatin1(expected);
    };
    row("of the hour that summer time leaves out here", "2016-03-27 03:30:00", "27.03.2016 03:30:00");
    row("of the hour that comes twice here", "2016-10-30 03:30:00", "30.10.2016 03:30:00");
    row("with a letter between day and time", "2016-03-01T22:15:30", "01.03.2016 22:15:30");
    row("without seconds", "2016-03-01 22:15", "01.03.2016 22:15:00");
    row("minute 60 is none", "2016-03-01 22:60:00", "");
    row("second 60 is none", "2016-03-01 22:15:60", "");
    row("letters are no time", "2016-03-01 aa:bb:cc", "");
    row("month 13 is none", "2016-13-01 22:15:30", "");
    row("29 February of a year without one", "2015-02-29 22:15:30", "");
    row("something behind the seconds is left out", "2016-03-01 22:15:30 and more", "01.03.2016 22:15:30");
}

/// Each after another time of the same day, and on a workstation of another time zone.
void TestAuditTrailQueryModel::timesStandAsTheyAreStored()
{
    QFETCH(QString, stored);
    qputenv("TZ", "Europe/Helsinki");
    tzset();
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setValue(QLatin1String(SettingsKeys::kDateFormat), 0);
    store->setValue(QLatin1String(SettingsKeys::kDateSeparator), 0);
    shown(QStringLiteral("timestamp_action"),
          QLatin1Char('\'') + stored.left(10) + QStringLiteral(" 10:00:00'"));
    const QString text =
        shown(QStringLiteral("timestamp_action"), QLatin1Char('\'') + stored + QLatin1Char('\''));
    qunsetenv("TZ");
    tzset();
    QTEST(text, "expected");
}

/// A database with a type for times gives no text; it means the same hour, which this workstation leaves out.
void TestAuditTrailQueryModel::aTimeOfTheDriverIsNotShiftedEither()
{
    qputenv("TZ", "Europe/Helsinki");
    tzset();
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setValue(QLatin1String(SettingsKeys::kDateFormat), 0);
    store->setValue(QLatin1String(SettingsKeys::kDateSeparator), 0);
    const AuditTrailQueryModel::Words words =
        AuditTrailQueryModel::wordsOf(QStringLiteral("timestamp_action"));
    const QString leftOut =
        AuditTrailQueryModel::shownValue(words, QDateTime(QDate(2016, 3, 27), QTime(3, 30))).toString();
    const QString usual =
        AuditTrailQueryModel::shownValue(words, QDateTime(QDate(2016, 3, 27), QTime(4, 0))).toString();
    qunsetenv("TZ");
    tzset();
    QCOMPARE(leftOut, QStringLiteral("27.03.2016 03:30:00"));
    QCOMPARE(usual, QStringLiteral("27.03.2016 04:00:00"));
}

void TestAuditTrailQueryModel::otherRolesAndColumnsAreLeftAlone()
{
    AuditTrailQueryModel model;
    model.setQuery(QStringLiteral("SELECT 8720 AS action, 8720 AS info"));
    QCOMPARE(model.data(model.index(0, 0), Qt::EditRole).toInt(), 8720);
    QCOMPARE(model.data(model.index(0, 1)).toInt(), 8720);
    QVERIFY(!model.data(model.index(0, 0), Qt::DecorationRole).isValid());
    QVERIFY(!model.data(QModelIndex()).isValid());
}

void TestAuditTrailQueryModel::languageChangesWordsButNeverActionNames()
{
    CapitalTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const QString level = AuditTrailQueryModel::levelName(256);
    const QString action = AuditTrailQueryModel::actionName(4864);
    const QString unknownAction = AuditTrailQueryModel::actionName(1);
    const QString unknownType = AuditTrailQueryModel::typeName(2);
    const QString header = AuditTrailQueryString::headerText(0);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(level, QStringLiteral("LOW"));
    QCOMPARE(action, QStringLiteral("Login"));
    QCOMPARE(unknownAction, QStringLiteral("Unknown"));
    QCOMPARE(unknownType, QStringLiteral("UNKNOWN"));
    QCOMPARE(header, QStringLiteral("TIME (UTC)"));
}

QTEST_MAIN(TestAuditTrailQueryModel)
#include "test_audittrailquerymodel.moc"
