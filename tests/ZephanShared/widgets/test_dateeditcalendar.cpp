#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/widgets/dateedit.h"
#include "dateform.h"
#include "singleclickstyle.h"
#include "support/workstation.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QStyle>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QWindow>

namespace {

/// Clicks a day that is shown once: one of the middle of the month.
void clickDay(const QCalendarWidget *calendar, int day)
{
    const auto *days = calendar->findChild<QTableView *>();
    const QAbstractItemModel *model = days->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            if (index.data().toInt() == day) {
                QTest::mouseClick(days->viewport(), Qt::LeftButton, Qt::NoModifier,
                                  days->visualRect(index).center());
                return;
            }
        }
    }
}

}  // namespace

class TestDateEditCalendar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void calendarFillsTheField();
    void aChosenDayIsWrittenInTheDateFormat_data();
    void aChosenDayIsWrittenInTheDateFormat();
    void calendarShowsTheMonthOfTheTextEachTime();
    void calendarShowsTheDayOfADateThatIsNotPadded();
    void noNameOfADayIsCut_data();
    void noNameOfADayIsCut();
    void calendarStaysOnTheScreen();
    void aClickThatAlsoActivatesChoosesTheDayOnce();
    void theCalendarOpensByReturn();
    void aDayIsChosenInTheCalendarWithTheKeyboard();
    void escapeClosesTheCalendarAndKeepsTheText();
    void aSecondPressOfTheButtonClosesTheCalendar();

private:
    Workstation m_workstation;
};

void TestDateEditCalendar::initTestCase()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QLatin1String(kSettingsFileName));
}

void TestDateEditCalendar::init()
{
    DateForm::chooseFormat(0);
}

void TestDateEditCalendar::calendarFillsTheField()
{
    DateForm form;
    form.move(400, 100);
    form.date->lineEdit()->setText(QStringLiteral("15.06.2016"));
    auto *calendar = form.calendar();
    QTest::mouseClick(form.date->calendarButton(), Qt::LeftButton);
    QTRY_VERIFY(calendar->isVisible());
    QCOMPARE(calendar->selectedDate(), QDate(2016, 6, 15));
    const QPoint button = form.date->calendarButton()->mapToGlobal(QPoint(0, 0));
    // The platform of the tests adds a frame of two pixels to every window.
    const QPoint place(button.x() - calendar->width(), button.y());
    QVERIFY2((calendar->pos() - place).manhattanLength() <= 4,
             "its right edge lies at the button's left edge");

    QSignalSpy changed(form.date, &DateEdit::contentChanged);
    emit calendar->clicked(QDate(2016, 6, 20));
    QCOMPARE(form.text(), QStringLiteral("20.06.2016"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(calendar->isHidden());
}

void TestDateEditCalendar::aChosenDayIsWrittenInTheDateFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("expected");
    QTest::newRow("DD.MM.YYYY") << 0 << "09.08.2016";
    QTest::newRow("D.M.YYYY") << 1 << "9.8.2016";
    QTest::newRow("YYYY.MM.DD") << 2 << "2016.08.09";
    QTest::newRow("YYYY.M.D") << 3 << "2016.8.9";
    QTest::newRow("MM.DD.YYYY") << 4 << "08.09.2016";
    QTest::newRow("M.D.YYYY") << 5 << "8.9.2016";
}

void TestDateEditCalendar::aChosenDayIsWrittenInTheDateFormat()
{
    QFETCH(int, format);
    QFETCH(QString, expected);
    for (int separator = 0; separator < 3; ++separator) {
        DateForm::chooseFormat(format, separator);
        const DateForm form;
        form.date->setDate(QDate(2016, 8, 17));
        form.date->toggleCalendar();
        QTRY_VERIFY(form.calendar()->isVisible());
        QCOMPARE(form.calendar()->selectedDate(), QDate(2016, 8, 17));
        clickDay(form.calendar(), 9);
        QCOMPARE(form.text(), DateForm::withSeparator(expected, separator));
        QVERIFY(form.date->isValid());
        QCOMPARE(form.date->dateTime(false), QDateTime(QDate(2016, 8, 9), QTime(0, 0)));
        QVERIFY(form.calendar()->isHidden());
    }
}

void TestDateEditCalendar::calendarShowsTheMonthOfTheTextEachTime()
{
    const DateForm form;
    form.date->setDate(QDate(2016, 8, 17));
    form.date->toggleCalendar();
    QTRY_VERIFY(form.calendar()->isVisible());
    form.calendar()->showNextYear();
    form.date->toggleCalendar();
    form.date->toggleCalendar();
    QTRY_VERIFY(form.calendar()->isVisible());
    QCOMPARE(form.calendar()->yearShown(), 2016);
    QCOMPARE(form.calendar()->monthShown(), 8);
    form.date->toggleCalendar();
}

void TestDateEditCalendar::calendarShowsTheDayOfADateThatIsNotPadded()
{
    const DateForm form;
    QApplication::clipboard()->setText(QStringLiteral("1.6.2016"));
    form.date->lineEdit()->paste();
    QCOMPARE(form.text(), QStringLiteral("1.6.2016"));
    QVERIFY(form.date->isValid());
    auto *calendar = form.calendar();
    form.date->toggleCalendar();
    QTRY_VERIFY(calendar->isVisible());
    QCOMPARE(calendar->selectedDate(), QDate(2016, 6, 1));
    QCOMPARE(form.text(), QStringLiteral("1.6.2016"));
    form.date->toggleCalendar();
    QVERIFY2(form.date->lineEdit()->hasFocus(), "typing goes on where it was");
}

void TestDateEditCalendar::noNameOfADayIsCut_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<int>("letters");
    for (const int letters : {9, 12, 16}) {
        for (const QLocale::Language language :
             {QLocale::English, QLocale::German, QLocale::Finnish, QLocale::Japanese, QLocale::Hungarian}) {
            QTest::addRow("%s in letters of %d points", qPrintable(QLocale::languageToString(language)),
                          letters)
                << QLocale(language) << letters;
        }
    }
}

void TestDateEditCalendar::noNameOfADayIsCut()
{
    QFETCH(QLocale, locale);
    QFETCH(int, letters);
    const DateForm form;
    QCalendarWidget *calendar = form.calendar();
    calendar->setLocale(locale);
    QFont font = calendar->font();
    font.setPointSize(letters);
    calendar->setFont(font);
    form.date->toggleCalendar();
    QTRY_VERIFY(calendar->isVisible());
    const auto *days = calendar->findChild<QTableView *>();
    const int margin = days->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, days) + 1;
    for (int column = 0; column < days->model()->columnCount(); ++column) {
        const QString name = days->model()->index(0, column).data().toString();
        const int needed = days->fontMetrics().horizontalAdvance(name) + 2 * margin;
        QVERIFY2(
            days->columnWidth(column) >= needed,
            qPrintable(
                QStringLiteral("%1: %2 of %3 pixels").arg(name).arg(days->columnWidth(column)).arg(needed)));
    }
    form.date->toggleCalendar();
}

void TestDateEditCalendar::calendarStaysOnTheScreen()
{
    DateForm form;
    form.move(0, 0);
    auto *calendar = form.calendar();
    form.date->toggleCalendar();
    QTRY_VERIFY(calendar->isVisible());
    QVERIFY(calendar->x() >= 0);
    form.date->toggleCalendar();
    QVERIFY(calendar->isHidden());
}

void TestDateEditCalendar::aClickThatAlsoActivatesChoosesTheDayOnce()
{
    QApplication::setStyle(new SingleClickStyle);
    const DateForm form;
    form.date->setDate(QDate(2016, 6, 15));
    auto *calendar = form.calendar();
    QSignalSpy activated(calendar, &QCalendarWidget::activated);
    QSignalSpy changed(form.date, &DateEdit::contentChanged);
    form.date->toggleCalendar();
    QTRY_VERIFY(calendar->isVisible());
    clickDay(calendar, 20);
    QApplication::setStyle(QStringLiteral("fusion"));
    QCOMPARE(activated.count(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(form.text(), QStringLiteral("20.06.2016"));
    QVERIFY(calendar->isHidden());
}

void TestDateEditCalendar::theCalendarOpensByReturn()
{
    const DateForm form;
    QTest::keyClick(form.date->calendarButton(), Qt::Key_Return);
    QTRY_VERIFY(form.calendar()->isVisible());
}

void TestDateEditCalendar::aDayIsChosenInTheCalendarWithTheKeyboard()
{
    const DateForm form;
    form.date->setDate(QDate(2016, 6, 15));
    auto *calendar = form.calendar();
    QSignalSpy changed(form.date, &DateEdit::contentChanged);
    form.date->calendarButton()->setFocus();
    QTest::keyClick(form.date->calendarButton(), Qt::Key_Space);
    QTRY_VERIFY(calendar->isVisible());
    QTest::keyClick(calendar->windowHandle(), Qt::Key_Right);
    QTest::keyClick(calendar->windowHandle(), Qt::Key_Down);
    QCOMPARE(calendar->selectedDate(), QDate(2016, 6, 23));
    QTest::keyClick(calendar->windowHandle(), Qt::Key_Return);
    QCOMPARE(form.text(), QStringLiteral("23.06.2016"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(calendar->isHidden());
}

void TestDateEditCalendar::escapeClosesTheCalendarAndKeepsTheText()
{
    const DateForm form;
    form.date->setDate(QDate(2016, 6, 15));
    auto *calendar = form.calendar();
    form.date->toggleCalendar();
    QTRY_VERIFY(calendar->isVisible());
    QTest::keyClick(calendar->windowHandle(), Qt::Key_Right);
    QTest::keyClick(calendar->windowHandle(), Qt::Key_Escape);
    QVERIFY(calendar->isHidden());
    QCOMPARE(form.text(), QStringLiteral("15.06.2016"));
}

void TestDateEditCalendar::aSecondPressOfTheButtonClosesTheCalendar()
{
    DateForm form;
    form.move(400, 100);
    QToolButton *button = form.date->calendarButton();
    auto *calendar = form.calendar();
    for (int round = 0; round < 2; ++round) {
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(calendar->isVisible());
        const QPoint place = button->mapToGlobal(button->rect().center());
        QMouseEvent press(QEvent::MouseButtonPress, calendar->mapFromGlobal(place), place, Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(calendar->windowHandle(), &press);
        QTest::qWait(0);
        QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                            button->mapTo(&form, button->rect().center()));
        QVERIFY(calendar->isHidden());
        QVERIFY(!button->isDown());
    }
}

QTEST_MAIN(TestDateEditCalendar)
#include "test_dateeditcalendar.moc"
