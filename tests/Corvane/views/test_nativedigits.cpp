#include "CommunicationAndData/actionlog/actionlogtable.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailquerystring.h"
#include "ZephanShared/toolkit/plaintime.h"
#include "ZephanShared/widgets/dateedit.h"
#include "ZephanShared/widgets/lineedit.h"
#include "ZephanShared/widgets/suggestionbox.h"
#include "support/workstation.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <QWidget>

namespace {

const QDateTime kTime(QDate(2016, 3, 1), QTime(22, 15, 30), Qt::UTC);

}  // namespace

/// On a workstation whose region writes numbers with digits of its own, what is stored, compared or typed
/// keeps the digits 0 to 9.
class TestNativeDigits : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void timesHaveTheDigitsThatEveryoneReads();
    void aStatementComparesWithTheStoredTimes();
    void anEventIsStoredWithATimeThatEveryoneReads();
    void anOperatorIsStoredWithATimeThatEveryoneReads();
    void theTimeOfAnEventIsShownLikeItsOthers();
    void aDayOfTheCalendarIsAValidDate();
    void aDateOfBirthIsSuggestedAsItIsTyped();

private:
    Workstation m_workstation;
};

void TestNativeDigits::initTestCase()
{
    QVERIFY2(QLocale::system().zeroDigit() != QLatin1Char('0'), "the region has digits of its own");
    QVERIFY(kTime.toString(QStringLiteral("yyyy")) != QLatin1String("2016"));
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QLatin1String(kSettingsFileName));
}

void TestNativeDigits::timesHaveTheDigitsThatEveryoneReads()
{
    QCOMPARE(plainText(kTime, QStringLiteral("yyyy-MM-dd hh:mm:ss")), QStringLiteral("2016-03-01 22:15:30"));
    QCOMPARE(plainText(kTime.date(), QStringLiteral("d'.'M'.'yyyy")), QStringLiteral("1.3.2016"));
    QCOMPARE(plainText(QDateTime(), QStringLiteral("yyyy")), QString());
    QCOMPARE(plainText(QDate(), QStringLiteral("yyyy")), QString());
}

void TestNativeDigits::aStatementComparesWithTheStoredTimes()
{
    const QDateTime day(QDate(2016, 3, 1), QTime(0, 0), Qt::UTC);
    const QString statement = AuditTrailQueryString::statement(
        {{AuditFilterKey::DateFrom, day}, {AuditFilterKey::DateTo, day}}, {12, Qt::AscendingOrder});
    QVERIFY2(statement.endsWith(QLatin1String("WHERE (timestamp_action >= '2016-03-01 00:00:00') AND "
                                              "(timestamp_action <= '2016-03-02 00:00:00')")),
             qPrintable(statement));
}

void TestNativeDigits::anEventIsStoredWithATimeThatEveryoneReads()
{
    ActionLogEntry entry;
    entry.time = kTime;
    QCOMPARE(entry.values().first().toString(), QStringLiteral("2016-03-01 22:15:30"));
}

void TestNativeDigits::anOperatorIsStoredWithATimeThatEveryoneReads()
{
    SupportConnectionHandler handler(m_workstation.dataDirectory(), nullptr);
    const QVariantMap row = handler.operatorToRow(
        OperatorModel(new OperatorModelData(UuidString(), {}, QStringLiteral("anna"), {}, {}, {}, {}, {}, {},
                                            {}, {}, {}, OperatorModelData::InternalUser)),
        false);
    const QRegularExpression plain(
        QStringLiteral("\\A[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\z"));
    for (const char *column : {"date_created", "date_updated"}) {
        const QString time = row.value(QLatin1String(column)).toString();
        QVERIFY2(plain.match(time).hasMatch(), qPrintable(time));
    }
}

/// Of the same day the second one is put together from the first.
void TestNativeDigits::theTimeOfAnEventIsShownLikeItsOthers()
{
    const AuditTrailQueryModel::Words words =
        AuditTrailQueryModel::wordsOf(QStringLiteral("timestamp_action"));
    for (const char *time : {"22:15:30", "22:15:31"}) {
        const QString stored = QStringLiteral("2016-03-01 ") + QLatin1String(time);
        QCOMPARE(AuditTrailQueryModel::shownValue(words, stored).toString(),
                 QStringLiteral("01.03.2016 ") + QLatin1String(time));
    }
}

void TestNativeDigits::aDayOfTheCalendarIsAValidDate()
{
    QWidget window;
    DateEdit date(false, &window);
    window.show();
    emit window.findChild<QCalendarWidget *>()->clicked(QDate(2016, 3, 1));
    QCOMPARE(date.lineEdit()->text(), QStringLiteral("01.03.2016"));
    QVERIFY(date.isValid());
    date.setDateTime(QDateTime(QDate(2016, 11, 30), QTime(0, 0)));
    QCOMPARE(date.lineEdit()->text(), QStringLiteral("30.11.2016"));
    QVERIFY(date.isValid());
    date.lineEdit()->clear();
    QTest::keyClicks(date.lineEdit(), QStringLiteral("2932016"));
    QCOMPARE(date.lineEdit()->text(), QStringLiteral("29.03.2016"));
    QVERIFY(date.isValid());
}

void TestNativeDigits::aDateOfBirthIsSuggestedAsItIsTyped()
{
    QWidget window;
    LineEdit field(SearchModelData::Birthdate, true, &window);
    window.show();
    QSignalSpy searched(&field, &LineEdit::searchWithModel);
    QTest::keyClicks(field.lineEdit(), QStringLiteral("0"));
    PersonModel person(new PersonModelData);
    person->birthDate = QDate(1980, 2, 3);
    searched.first().first().value<SearchModel>()->setPersonSearchResults(0, {person});
    QCOMPARE(field.suggestionBox()->popup()->topLevelItem(0)->text(0), QStringLiteral("03.02.1980"));
}

int main(int argc, char *argv[])
{
    // Read once, at the first question for the system's region.
    qunsetenv("LC_ALL");
    qputenv("LC_CTYPE", "C.UTF-8");
    qputenv("LC_NUMERIC", "ar_EG.UTF-8");
    qputenv("LC_TIME", "ar_EG.UTF-8");
    QApplication application(argc, argv);
    TestNativeDigits test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_nativedigits.moc"
