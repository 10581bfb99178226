#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/widgets/dateedit.h"
#include "ZephanShared/widgets/styleprinter.h"
#include "dateform.h"
#include "support/workstation.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>

class TestDateEdit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void typing_data();
    void typing();
    void leaving_data();
    void leaving();
    void deletingAtTheEndNeverAddsAnythingBack_data();
    void deletingAtTheEndNeverAddsAnythingBack();
    void typingInsideTheTextIsLeftAlone();
    void aDayThatIsNoneTurnsTheFieldPink();
    void anEmptyFieldIsShownAsValid();
    void limits_data();
    void limits();
    void limitsWithATimePartCountTheTime();
    void setDateShowsAndStores();
    void toolTipTellsTheFormat_data();
    void toolTipTellsTheFormat();
    void withoutALabelTheFieldBeginsAtTheEdge();
    void autofilledEndsWithTheFirstEdit();
    void disabledFieldIsNeverAutofilled();
    void timePartIsStored();
    void twelveHoursAreShownWithTheirWords();
    void contentChangedComesWithEachKey();
    void currentTimeStandsInForAnEmptyField();
    void whatAPersonCanUseHasNames();

private:
    Workstation m_workstation;
};

void TestDateEdit::initTestCase()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QLatin1String(kSettingsFileName));
}

void TestDateEdit::init()
{
    DateForm::chooseFormat(0);
}

void TestDateEdit::typing_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, int format, const char *keys, const char *shown) {
        QTest::newRow(name) << format << QString::fromLatin1(keys) << QString::fromLatin1(shown);
    };
    row("0: 4 is padded and separated", 0, "4", "04.");
    row("0: 3 waits for a second digit", 0, "3", "3");
    row("0: 12 is separated", 0, "12", "12.");
    row("0: a 5 behind 12 is padded", 0, "125", "12.05.");
    row("0: 12.1 stays, the later months are still possible", 0, "121", "12.1");
    row("0: a whole date without a separator typed", 0, "31122016", "31.12.2016");
    row("0: a separator typed by hand pads the day", 0, "1.", "01.");
    row("0: a second separator in a row is dropped", 0, "1..", "01.");
    row("0: a lone separator is dropped", 0, ".", "");
    row("1: 4 is separated but not padded", 1, "4", "4.");
    row("1: a whole date", 1, "452016", "4.5.2016");
    row("2: 2016 is separated", 2, "2016", "2016.");
    row("2: the month is padded", 2, "20165", "2016.05.");
    row("2: 1 waits for a second digit", 2, "20161", "2016.1");
    row("2: a whole date", 2, "20161231", "2016.12.31");
    row("3: the month is not padded", 3, "20165", "2016.5.");
    row("3: two digits end the month", 3, "201612", "2016.12.");
    row("4: 2 is padded and separated", 4, "2", "02.");
    row("4: 12 is separated", 4, "12", "12.");
    row("4: a day of 4 is padded and separated", 4, "124", "12.04.");
    row("4: a day of 3 waits for a second digit", 4, "123", "12.3");
    row("4: a whole date", 4, "12312016", "12.31.2016");
    row("5: 2 is separated but not padded", 5, "2", "2.");
    row("5: a whole date", 5, "242016", "2.4.2016");
    row("letters can't be typed", 0, "1x2", "12.");
}

void TestDateEdit::typing()
{
    QFETCH(int, format);
    QFETCH(QString, keys);
    QFETCH(QString, shown);
    for (int separator = 0; separator < 3; ++separator) {
        DateForm::chooseFormat(format, separator);
        const DateForm form;
        form.type(DateForm::withSeparator(keys, separator));
        QCOMPARE(form.text(), DateForm::withSeparator(shown, separator));
    }
}

void TestDateEdit::leaving_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("valid");

    const auto row = [](const char *name, int format, const char *text, const char *shown, bool valid) {
        QTest::newRow(name) << format << QString::fromLatin1(text) << QString::fromLatin1(shown) << valid;
    };
    row("0: day and month are padded", 0, "1.2.2016", "01.02.2016", true);
    row("0: only the month is padded", 0, "11.2.2016", "11.02.2016", true);
    row("1: nothing is padded", 1, "1.2.2016", "1.2.2016", true);
    row("2: the day is padded", 2, "2016.05.7", "2016.05.07", true);
    row("2: what is no date is not padded", 2, "2016.02.0", "2016.02.0", false);
    row("3: nothing is padded", 3, "2016.5.7", "2016.5.7", true);
    row("4: month and day are padded", 4, "2.1.2016", "02.01.2016", true);
    row("5: nothing is padded", 5, "2.1.2016", "2.1.2016", true);
}

void TestDateEdit::leaving()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QFETCH(bool, valid);
    for (int separator = 0; separator < 3; ++separator) {
        DateForm::chooseFormat(format, separator);
        const DateForm form;
        form.date->lineEdit()->setText(DateForm::withSeparator(text, separator));
        form.leave();
        QTRY_COMPARE(form.text(), DateForm::withSeparator(shown, separator));
        QCOMPARE(form.date->isValid(), valid);
    }
}

void TestDateEdit::deletingAtTheEndNeverAddsAnythingBack_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("typed");
    QTest::newRow("from a padded day alone") << 0 << "4"
                                             << "04.";
    QTest::newRow("DD.MM.YYYY") << 0 << "572016"
                                << "05.07.2016";
    QTest::newRow("D.M.YYYY") << 1 << "572016"
                              << "5.7.2016";
    QTest::newRow("YYYY.MM.DD") << 2 << "2016507"
                                << "2016.05.07";
    QTest::newRow("YYYY.M.D") << 3 << "201657"
                              << "2016.5.7";
    QTest::newRow("MM.DD.YYYY") << 4 << "752016"
                                << "07.05.2016";
    QTest::newRow("M.D.YYYY") << 5 << "752016"
                              << "7.5.2016";
}

void TestDateEdit::deletingAtTheEndNeverAddsAnythingBack()
{
    QFETCH(int, format);
    QFETCH(QString, keys);
    QFETCH(QString, typed);
    for (int separator = 0; separator < 3; ++separator) {
        DateForm::chooseFormat(format, separator);
        const DateForm form;
        form.type(keys);
        QString left = DateForm::withSeparator(typed, separator);
        QCOMPARE(form.text(), left);
        while (!left.isEmpty()) {
            QTest::keyClick(form.date->lineEdit(), Qt::Key_Backspace);
            left.chop(1);
            QCOMPARE(form.text(), left);
        }
    }
}

void TestDateEdit::typingInsideTheTextIsLeftAlone()
{
    const DateForm form;
    form.date->lineEdit()->setText(QStringLiteral("1.05.2016"));
    form.date->lineEdit()->setCursorPosition(0);
    form.type(QStringLiteral("2"));
    QCOMPARE(form.text(), QStringLiteral("21.05.2016"));
}

void TestDateEdit::aDayThatIsNoneTurnsTheFieldPink()
{
    const DateForm form;
    form.type(QStringLiteral("31022016"));
    QCOMPARE(form.text(), QStringLiteral("31.02.2016"));
    QVERIFY(!form.date->isValid());
    QVERIFY(!form.date->dateTime(false).isValid());
    QCOMPARE(form.date->lineEdit()->toolTip(), QStringLiteral("Enter valid date"));
    QCOMPARE(form.date->lineEdit()->styleSheet(), StylePrinter::lineEditStyle(false, false, false));
}

void TestDateEdit::anEmptyFieldIsShownAsValid()
{
    const DateForm form;
    form.date->validate();
    QCOMPARE(form.date->lineEdit()->styleSheet(), StylePrinter::lineEditStyle(true, false, false));
    QCOMPARE(form.date->lineEdit()->toolTip(), QStringLiteral("DD.MM.YYYY"));
    QVERIFY(!form.date->isValid());
    form.date->setInvalid(true);
    QCOMPARE(form.date->lineEdit()->toolTip(), QStringLiteral("This field is mandatory"));
}

void TestDateEdit::limits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("the minimum's day is inside, whatever its time") << QStringLiteral("10.03.2016") << true;
    QTest::newRow("the day before the minimum is outside") << QStringLiteral("09.03.2016") << false;
    QTest::newRow("the maximum's day is inside") << QStringLiteral("20.03.2016") << true;
    QTest::newRow("the day after the maximum is outside") << QStringLiteral("21.03.2016") << false;
}

void TestDateEdit::limits()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    const DateForm form;
    form.date->setMinimum(QDateTime(QDate(2016, 3, 10), QTime(12, 0)));
    form.date->setMaximum(QDateTime(QDate(2016, 3, 20), QTime(12, 0)));
    form.date->lineEdit()->setText(text);
    form.date->validate();
    QCOMPARE(form.date->isValid(), valid);
}

void TestDateEdit::limitsWithATimePartCountTheTime()
{
    const DateForm form(true);
    form.date->setMinimum(QDateTime(QDate(2016, 3, 10), QTime(12, 0)));
    form.date->setDate(QDate(2016, 3, 10));
    QVERIFY(!form.date->isValid());
    form.findChild<QTimeEdit *>()->setTime(QTime(12, 0));
    QVERIFY(form.date->isValid());
}

void TestDateEdit::setDateShowsAndStores()
{
    const DateForm form;
    form.date->setDate(QDate(2016, 2, 1));
    QCOMPARE(form.text(), QStringLiteral("01.02.2016"));
    QCOMPARE(form.date->dateTime(false), QDateTime(QDate(2016, 2, 1), QTime(0, 0)));
    form.date->setDate(QDate());
    QCOMPARE(form.text(), QString());
    QVERIFY(!form.date->dateTime(false).isValid());
    form.date->setDateTime(QDateTime(QDate(2016, 2, 3), QTime(14, 30)));
    QCOMPARE(form.text(), QStringLiteral("03.02.2016"));
    form.date->setDateTime(QDateTime());
    QCOMPARE(form.text(), QString());
}

void TestDateEdit::toolTipTellsTheFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("hint");
    const char *const hints[] = {"DD.MM.YYYY", "D.M.YYYY",   "YYYY.MM.DD",
                                 "YYYY.M.D",   "MM.DD.YYYY", "M.D.YYYY"};
    for (int format = 0; format < 6; ++format)
        QTest::newRow(hints[format]) << format << QString::fromLatin1(hints[format]);
}

void TestDateEdit::toolTipTellsTheFormat()
{
    QFETCH(int, format);
    QFETCH(QString, hint);
    for (int separator = 0; separator < 3; ++separator) {
        DateForm::chooseFormat(format, separator);
        const DateForm form;
        const QLineEdit *edit = form.date->lineEdit();
        const QString expected = DateForm::withSeparator(hint, separator);
        QCOMPARE(edit->toolTip(), expected);
        form.date->lineEdit()->setText(QStringLiteral("1"));
        form.date->validate();
        QCOMPARE(edit->toolTip(), QStringLiteral("Enter valid date"));
        form.date->setDate(QDate(2016, 2, 1));
        QCOMPARE(edit->toolTip(), expected);
    }
}

void TestDateEdit::withoutALabelTheFieldBeginsAtTheEdge()
{
    const DateForm form;
    const QLineEdit *edit = form.date->lineEdit();
    QCOMPARE(edit->x(), form.other->x());
    form.date->setLabelText(QStringLiteral("Born"));
    QTRY_VERIFY(edit->x() > form.other->x());
    form.date->setLabelText(QString());
    QTRY_COMPARE(edit->x(), form.other->x());
}

void TestDateEdit::autofilledEndsWithTheFirstEdit()
{
    const DateForm form;
    form.date->setDate(QDate(2016, 2, 1));
    form.date->setAutofilled(true);
    QCOMPARE(form.date->lineEdit()->styleSheet(), StylePrinter::lineEditStyle(true, true, false));
    QTest::keyClick(form.date->lineEdit(), Qt::Key_Backspace);
    QCOMPARE(form.date->lineEdit()->styleSheet(),
             StylePrinter::lineEditStyle(form.date->isValid(), false, false));
}

void TestDateEdit::disabledFieldIsNeverAutofilled()
{
    const DateForm form;
    form.date->setFieldEnabled(false);
    form.date->setAutofilled(true);
    QCOMPARE(form.date->lineEdit()->styleSheet(), StylePrinter::lineEditStyle(true, false, false));
}

void TestDateEdit::timePartIsStored()
{
    const DateForm form(true);
    auto *time = form.findChild<QTimeEdit *>();
    QCOMPARE(time->time(), QTime(0, 0));
    QCOMPARE(time->displayFormat(), QStringLiteral("hh:mm"));
    form.date->setDateTime(QDateTime(QDate(2016, 2, 1), QTime(13, 45)));
    QCOMPARE(time->time(), QTime(13, 45));
    QCOMPARE(form.date->dateTime(false), QDateTime(QDate(2016, 2, 1), QTime(13, 45)));
    QSignalSpy changed(form.date, &DateEdit::contentChanged);
    time->setTime(QTime(14, 0));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(form.date->dateTime(false), QDateTime(QDate(2016, 2, 1), QTime(14, 0)));

    form.date->setDateTime(QDateTime(QDate(2016, 2, 2), QTime(15, 30)));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(form.date->dateTime(false), QDateTime(QDate(2016, 2, 2), QTime(15, 30)));
    form.date->setDateTime(QDateTime());
    QCOMPARE(time->time(), QTime(0, 0));
    QCOMPARE(form.text(), QString());
    QVERIFY(!form.date->dateTime(false).isValid());
}

void TestDateEdit::twelveHoursAreShownWithTheirWords()
{
    DateForm::chooseFormat(0, 0, true);
    const DateForm form(true);
    auto *time = form.findChild<QTimeEdit *>();
    QCOMPARE(time->displayFormat(), QStringLiteral("hh:mm AP"));
    QCOMPARE(time->toolTip(), QStringLiteral("hh:mm AP"));
    form.date->setDateTime(QDateTime(QDate(2016, 2, 1), QTime(13, 45)));
    QCOMPARE(time->text(), QStringLiteral("01:45 PM"));
    QCOMPARE(time->sectionText(QDateTimeEdit::AmPmSection), QStringLiteral("PM"));
}

void TestDateEdit::contentChangedComesWithEachKey()
{
    const DateForm form;
    QSignalSpy changed(form.date, &DateEdit::contentChanged);
    form.type(QStringLiteral("12"));
    QCOMPARE(changed.count(), 2);
}

void TestDateEdit::currentTimeStandsInForAnEmptyField()
{
    const DateForm form;
    QVERIFY(qAbs(form.date->dateTime(true).secsTo(QDateTime::currentDateTime())) < 60);
    QVERIFY(!form.date->dateTime(false).isValid());
}

void TestDateEdit::whatAPersonCanUseHasNames()
{
    const DateForm form(true);
    for (const char *name : {"calendar_button", "calendar", "time"}) {
        const auto *widget = form.findChild<QWidget *>(QLatin1String(name));
        QVERIFY2(widget, name);
        QVERIFY2(!widget->accessibleName().isEmpty(), name);
    }
}

QTEST_MAIN(TestDateEdit)
#include "test_dateedit.moc"
