#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/widgets/dateformathelper.h"
#include "support/workstation.h"

#include <QDate>
#include <QRegExp>
#include <QTest>

namespace {

struct FormatRow
{
    int format;
    const char *hint;
    const char *date;
};

// With "." as the separator.
constexpr FormatRow kFormatRows[] = {
    {0, "DD.MM.YYYY", "dd'.'MM'.'yyyy"}, {1, "D.M.YYYY", "d'.'M'.'yyyy"},
    {2, "YYYY.MM.DD", "yyyy'.'MM'.'dd"}, {3, "YYYY.M.D", "yyyy'.'M'.'d"},
    {4, "MM.DD.YYYY", "MM'.'dd'.'yyyy"}, {5, "M.D.YYYY", "M'.'d'.'yyyy"},
};

struct SeparatorRow
{
    int separator;
    const char *character;
    const char *escaped;
};

constexpr SeparatorRow kSeparatorRows[] = {
    {0, ".", "\\."}, {1, "-", "\\-"}, {2, "/", "\\/"}, {3, ".", "\\."}, {-1, ".", "\\."},
};

void set(const char *key, const QVariant &value)
{
    SettingsHandler::getInstance()->setValue(QLatin1String(key), value);
}

/// Whether a text matches a pattern as a whole, as the input field's validator asks.
bool accepts(const QString &pattern, const QString &text)
{
    return QRegExp(pattern).exactMatch(text);
}

}  // namespace

class TestDateFormatHelper : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void withoutSettingsTheDefaultsHold();
    void formats_data();
    void formats();
    void aFormatOutsideTheTableGivesEmptyTexts_data();
    void aFormatOutsideTheTableGivesEmptyTexts();
    void anotherFormatKeepsTheSeparator();
    void timeFormat();
    void settingsAreReadAtConstruction();

    void parts_data();
    void parts();
    void patterns_data();
    void patterns();
    void shapes_data();
    void shapes();

private:
    Workstation m_workstation;
};

void TestDateFormatHelper::init()
{
    static int number = 0;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(number++)));
}

void TestDateFormatHelper::withoutSettingsTheDefaultsHold()
{
    const DateFormatHelper helper;
    QCOMPARE(helper.format(), 0);
    QCOMPARE(helper.separator(), QStringLiteral("."));
    QVERIFY(!helper.ampm());
    QCOMPARE(helper.hintText(), QStringLiteral("DD.MM.YYYY"));
    QCOMPARE(helper.timeFormat(), QStringLiteral("hh:mm"));
}

void TestDateFormatHelper::formats_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("separator");
    QTest::addColumn<QString>("character");
    QTest::addColumn<QString>("escaped");
    QTest::addColumn<QString>("hint");
    QTest::addColumn<QString>("date");

    for (const FormatRow &row : kFormatRows) {
        for (const SeparatorRow &separator : kSeparatorRows) {
            const QString character = QLatin1String(separator.character);
            const auto shown = [&](const char *text) {
                return QString(QLatin1String(text)).replace(QLatin1Char('.'), character);
            };
            QTest::addRow("format %d with separator %d is %s", row.format, separator.separator,
                          qPrintable(shown(row.hint)))
                << row.format << separator.separator << character << QString(QLatin1String(separator.escaped))
                << shown(row.hint) << shown(row.date);
        }
    }
}

void TestDateFormatHelper::formats()
{
    QFETCH(int, format);
    QFETCH(int, separator);
    QFETCH(QString, character);
    set(SettingsKeys::kDateFormat, format);
    set(SettingsKeys::kDateSeparator, separator);
    const DateFormatHelper helper;
    QCOMPARE(helper.format(), format);
    QCOMPARE(helper.separator(), character);
    QTEST(helper.escapedSeparator(), "escaped");
    QTEST(helper.hintText(), "hint");
    QTEST(helper.dateFormat(), "date");

    const QDate date(2016, 2, 1);
    const QString text = date.toString(helper.dateFormat());
    QCOMPARE(text.count(character), 2);
    QCOMPARE(QDate::fromString(text, helper.dateFormat()), date);
    QVERIFY(accepts(helper.pattern(), text));
}

void TestDateFormatHelper::aFormatOutsideTheTableGivesEmptyTexts_data()
{
    QTest::addColumn<int>("format");

    QTest::newRow("6 is outside the table") << 6;
    QTest::newRow("-1 is outside the table") << -1;
    QTest::newRow("a very large number is outside the table") << 2147483647;
}

void TestDateFormatHelper::aFormatOutsideTheTableGivesEmptyTexts()
{
    QFETCH(int, format);
    set(SettingsKeys::kDateFormat, format);
    const DateFormatHelper helper;
    QCOMPARE(helper.format(), format);
    QCOMPARE(helper.hintText(), QString());
    QCOMPARE(helper.dateFormat(), QString());
    QCOMPARE(helper.dateFormat(format), QString());
    QCOMPARE(helper.pattern(), QString());
    QCOMPARE(helper.separator(), QStringLiteral("."));
}

void TestDateFormatHelper::anotherFormatKeepsTheSeparator()
{
    set(SettingsKeys::kDateFormat, 0);
    set(SettingsKeys::kDateSeparator, 2);
    const DateFormatHelper helper;
    QCOMPARE(helper.dateFormat(DateFormatHelper::DayMonthYear), QStringLiteral("d'/'M'/'yyyy"));
    QCOMPARE(helper.dateFormat(DateFormatHelper::YearMonthDay), QStringLiteral("yyyy'/'M'/'d"));
    QCOMPARE(helper.dateFormat(DateFormatHelper::MonthDayYear), QStringLiteral("M'/'d'/'yyyy"));
}

void TestDateFormatHelper::timeFormat()
{
    set(SettingsKeys::kTimeAmPm, true);
    QVERIFY(DateFormatHelper().ampm());
    QCOMPARE(DateFormatHelper().timeFormat(), QStringLiteral("hh:mm AP"));
    set(SettingsKeys::kTimeAmPm, false);
    QCOMPARE(DateFormatHelper().timeFormat(), QStringLiteral("hh:mm"));
}

void TestDateFormatHelper::settingsAreReadAtConstruction()
{
    set(SettingsKeys::kDateFormat, 2);
    const DateFormatHelper before;
    set(SettingsKeys::kDateFormat, 4);
    set(SettingsKeys::kDateSeparator, 1);
    QCOMPARE(before.hintText(), QStringLiteral("YYYY.MM.DD"));
    QCOMPARE(DateFormatHelper().hintText(), QStringLiteral("MM-DD-YYYY"));
}

void TestDateFormatHelper::parts_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("expected");

    QTest::newRow("padded day") << DateFormatHelper::kDayPadded << R"((([0-9])|(0[1-9])|([1-2]\d)|(3[0-1])))";
    QTest::newRow("plain day") << DateFormatHelper::kDayPlain << R"((([1-9])|([1-2]\d)|(3[0-1])))";
    QTest::newRow("padded month") << DateFormatHelper::kMonthPadded << R"((([0-9])|(0[1-9])|(1[0-2])))";
    QTest::newRow("plain month") << DateFormatHelper::kMonthPlain << R"((([1-9])|(1[0-2])))";
    QTest::newRow("year") << DateFormatHelper::kYear << R"((([1-2])|([1-2]\d{1,3})))";
}

void TestDateFormatHelper::parts()
{
    QFETCH(QString, part);
    QFETCH(QString, expected);
    QCOMPARE(part, expected);
}

void TestDateFormatHelper::patterns_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("expected");

    const QString template4 = QStringLiteral("(%1%1%4)|(%1%3%1%4)|(%2%1%1%4)|(%2%1%3%1%4)");
    const QString s = QStringLiteral("\\.");
    const auto pattern = [&](const char *first, const char *second, const char *third) {
        return template4.arg(s, QLatin1String(first), QLatin1String(second), QLatin1String(third));
    };
    using Helper = DateFormatHelper;
    QTest::newRow("day, month, year, padded")
        << 0 << pattern(Helper::kDayPadded, Helper::kMonthPadded, Helper::kYear);
    QTest::newRow("day, month, year, plain")
        << 1 << pattern(Helper::kDayPlain, Helper::kMonthPlain, Helper::kYear);
    QTest::newRow("year, month, day, padded")
        << 2 << pattern(Helper::kYear, Helper::kMonthPadded, Helper::kDayPadded);
    QTest::newRow("year, month, day, plain")
        << 3 << pattern(Helper::kYear, Helper::kMonthPlain, Helper::kDayPlain);
    QTest::newRow("month, day, year, padded")
        << 4 << pattern(Helper::kMonthPadded, Helper::kDayPadded, Helper::kYear);
    QTest::newRow("month, day, year, plain")
        << 5 << pattern(Helper::kMonthPlain, Helper::kDayPlain, Helper::kYear);
}

void TestDateFormatHelper::patterns()
{
    QFETCH(int, format);
    QFETCH(QString, expected);
    set(SettingsKeys::kDateFormat, format);
    QCOMPARE(DateFormatHelper().pattern(), expected);
}

void TestDateFormatHelper::shapes_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("a whole date") << 0 << "31.12.2016" << true;
    QTest::newRow("a date without a day") << 0 << ".12.2016" << true;
    QTest::newRow("a date without a month") << 0 << "31..2016" << true;
    QTest::newRow("a year alone behind its separators") << 0 << "..2016" << true;
    QTest::newRow("a date that does not exist has the shape of one") << 0 << "31.02.2016" << true;
    QTest::newRow("padded formats take unpadded parts") << 0 << "1.2.2016" << true;
    QTest::newRow("the year may be short") << 0 << "01.02.2" << true;
    QTest::newRow("a year of the fourth millennium is none") << 0 << "01.02.3016" << false;
    QTest::newRow("a day of 32 is none") << 0 << "32.12.2016" << false;
    QTest::newRow("a month of 13 is none") << 0 << "31.13.2016" << false;
    QTest::newRow("plain formats take no leading zero") << 1 << "01.2.2016" << false;
    QTest::newRow("another separator is none") << 0 << "31-12-2016" << false;
    QTest::newRow("any character is no separator") << 0 << "31x12x2016" << false;
    QTest::newRow("the year comes first") << 2 << "2016.12.31" << true;
    QTest::newRow("the month comes first") << 4 << "12.31.2016" << true;
    QTest::newRow("the month comes first and is not a day") << 4 << "31.12.2016" << false;
}

void TestDateFormatHelper::shapes()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    set(SettingsKeys::kDateFormat, format);
    QCOMPARE(accepts(DateFormatHelper().pattern(), text), accepted);
}

QTEST_MAIN(TestDateFormatHelper)
#include "test_dateformathelper.moc"
