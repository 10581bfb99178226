#include "ZephanShared/widgets/dateedit.h"

#include "ZephanShared/toolkit/plaintime.h"
#include "ZephanShared/widgets/dateformathelper.h"
#include "ZephanShared/widgets/datetyping.h"
#include "ZephanShared/widgets/returnkey.h"
#include "ZephanShared/widgets/styleprinter.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QLocale>
#include <QRegExpValidator>
#include <QScreen>
#include <QTimeEdit>
#include <QToolButton>

namespace {

constexpr int kButtonSize = 24;
constexpr int kEditStretch = 2;
constexpr int kButtonStretch = 1;
constexpr int kTimeSpacing = 4;
// The calendar measures the names of its days without the room around their letters, and cuts the widest.
constexpr int kCalendarColumns = 8;  // the week's number and seven days
constexpr int kSpareOfColumn = 2;    // pixels

/// A calendar keeps its own look in a form whose style sheet frames the widgets within it: its letters are
/// white, and without their background nobody could read the month.
QString calendarStyle()
{
    return QStringLiteral("QWidget#qt_calendar_navigationbar { border: none; background-color: ") +
           Palette::roleText + QStringLiteral("; }");
}

/// The format in which a typed text is read: the padded ones accept unpadded text too.
int readingFormat(int format)
{
    switch (format) {
    case DateFormatHelper::DayMonthYearPadded:
        return DateFormatHelper::DayMonthYear;
    case DateFormatHelper::YearMonthDayPadded:
        return DateFormatHelper::YearMonthDay;
    case DateFormatHelper::MonthDayYearPadded:
        return DateFormatHelper::MonthDayYear;
    default:
        return format;
    }
}

}  // namespace

DateEdit::DateEdit(bool withTime, QWidget *parent)
    : FieldEdit(parent)
    , m_lineEdit(new QLineEdit)
    , m_calendarButton(new QToolButton)
    , m_format(new DateFormatHelper)
    , m_withTime(withTime)
{
    m_lineEdit->setStyleSheet(StylePrinter::lineEditStyle(true, false, false));
    m_calendarButton->setObjectName(QStringLiteral("calendar_button"));
    m_calendarButton->setFixedSize(kButtonSize, kButtonSize);
    m_calendarButton->setStyleSheet(StylePrinter::toolButtonStyle());
    m_calendarButton->setCursor(Qt::PointingHandCursor);
    m_calendarButton->setIcon(QIcon(QStringLiteral(":/icons/calendar.png")));
    m_calendarButton->setIconSize(QSize(kButtonSize, kButtonSize));
    m_calendarButton->setFixedHeight(m_lineEdit->sizeHint().height());
    clickByReturn(m_calendarButton);

    auto *row = new QHBoxLayout;
    row->addWidget(m_lineEdit, kEditStretch);
    row->addWidget(m_calendarButton, kButtonStretch);
    addLayout(row);
    if (m_withTime)
        buildTimeEdit();
    applyFormat();

    m_calendar = new QCalendarWidget(m_calendarButton);
    m_calendar->setObjectName(QStringLiteral("calendar"));
    m_calendar->setWindowFlags(Qt::Popup);
    m_calendar->setStyleSheet(calendarStyle());
    m_calendar->hide();
    connectEdits();
    updateTexts();
}

DateEdit::~DateEdit() = default;

void DateEdit::buildTimeEdit()
{
    setSpacing(kTimeSpacing);
    m_timeEdit = new QTimeEdit(QTime(0, 0));
    m_timeEdit->setObjectName(QStringLiteral("time"));
    m_timeEdit->setStyleSheet(StylePrinter::timeEditStyle());
    m_timeEdit->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    m_lineEdit->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    addWidget(m_timeEdit, kEditStretch);
    connect(m_timeEdit, &QTimeEdit::editingFinished, this, &DateEdit::validate);
    connect(m_timeEdit, &QTimeEdit::editingFinished, this, &DateEdit::contentChanged);
    connect(m_timeEdit, &QTimeEdit::timeChanged, this, &DateEdit::validate);
    connect(m_timeEdit, &QTimeEdit::timeChanged, this, &DateEdit::contentChanged);
}

void DateEdit::applyFormat()
{
    const QValidator *former = m_lineEdit->validator();
    m_lineEdit->setValidator(new QRegExpValidator(QRegExp(m_format->pattern()), m_lineEdit));
    delete former;
    if (!m_timeEdit)
        return;
    m_timeEdit->setDisplayFormat(m_format->timeFormat());
    m_timeEdit->setToolTip(m_format->timeFormat());
    // Some languages have no words for AM and PM.
    if (m_format->ampm() && m_timeEdit->sectionText(QDateTimeEdit::AmPmSection).isEmpty())
        m_timeEdit->setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
}

void DateEdit::reloadFormat()
{
    auto format = std::make_unique<DateFormatHelper>();
    if (format->dateFormat() == m_format->dateFormat() && format->timeFormat() == m_format->timeFormat())
        return;
    const QDate shown = date();
    m_format = std::move(format);
    applyFormat();
    setDate(shown);
    updateTexts();
}

void DateEdit::connectEdits()
{
    connect(m_calendarButton, &QToolButton::clicked, this, &DateEdit::toggleCalendar);
    connect(m_calendar, &QCalendarWidget::clicked, this, &DateEdit::setDate);
    connect(m_calendar, &QCalendarWidget::clicked, this, &DateEdit::contentChanged);
    connect(m_calendar, &QCalendarWidget::clicked, this, &DateEdit::toggleCalendar);
    connect(m_calendar, &QCalendarWidget::activated, this, &DateEdit::takeActivatedDate);
    connect(m_lineEdit, &QLineEdit::textEdited, this, &DateEdit::validate);
    connect(m_lineEdit, &QLineEdit::textEdited, this, &DateEdit::contentChanged);
    connect(m_lineEdit, &QLineEdit::editingFinished, this, &DateEdit::validate);
}

void DateEdit::updateTexts()
{
    m_calendarButton->setToolTip(tr("Open calendar"));
    m_calendarButton->setAccessibleName(tr("Open calendar"));
    m_calendar->setAccessibleName(tr("Calendar"));
    if (m_timeEdit)
        m_timeEdit->setAccessibleName(tr("Time"));
    m_lineEdit->setToolTip(m_format->hintText());
    if (m_invalid)
        setInvalid(true);
}

QDateTime DateEdit::dateTime(bool currentIfEmpty) const
{
    if (m_dateTime.isValid())
        return m_dateTime;
    return currentIfEmpty ? QDateTime::currentDateTime() : QDateTime();
}

QDate DateEdit::date() const
{
    return isValid() ? m_dateTime.date() : QDate();
}

bool DateEdit::isValid() const
{
    return !m_lineEdit->text().isEmpty() && m_valid;
}

void DateEdit::setMinimum(const QDateTime &minimum)
{
    m_minimum = minimum;
}

void DateEdit::setMaximum(const QDateTime &maximum)
{
    m_maximum = maximum;
}

QString DateEdit::value() const
{
    return m_lineEdit->text();
}

void DateEdit::setInvalid(bool invalid)
{
    m_invalid = invalid;
    m_lineEdit->setStyleSheet(StylePrinter::lineEditStyle(!invalid, m_autofilled, m_disabled));
    if (!m_lineEdit->isEnabled())
        return;
    if (!invalid)
        m_lineEdit->setToolTip(m_format->hintText());
    else if (m_lineEdit->text().isEmpty())
        m_lineEdit->setToolTip(tr("This field is mandatory"));
    else
        m_lineEdit->setToolTip(tr("Enter valid date"));
}

void DateEdit::setFieldEnabled(bool enabled)
{
    m_lineEdit->setEnabled(enabled);
    m_calendarButton->setEnabled(enabled);
    m_calendar->setEnabled(enabled);
    if (m_timeEdit)
        m_timeEdit->setEnabled(enabled);
}

QLineEdit *DateEdit::lineEdit() const
{
    return m_lineEdit;
}

QToolButton *DateEdit::calendarButton() const
{
    return m_calendarButton;
}

void DateEdit::setDateTime(QDateTime dateTime)
{
    const QDateTime local = dateTime.toLocalTime();
    if (dateTime.isValid()) {
        m_dateTime = dateTime;
        m_lineEdit->setText(plainText(local.date(), m_format->dateFormat()));
    } else {
        m_lineEdit->clear();
    }
    if (m_timeEdit)
        m_timeEdit->setTime(dateTime.isValid() ? local.time() : QTime(0, 0));
    validate();
}

void DateEdit::setDate(QDate date)
{
    if (date.isValid()) {
        m_dateTime = QDateTime(date, timePart());
        m_lineEdit->setText(plainText(date, m_format->dateFormat()));
    } else {
        m_lineEdit->clear();
    }
    validate();
}

void DateEdit::toggleCalendar()
{
    if (!m_calendar->isHidden() || !m_calendar->isEnabled()) {
        m_calendar->hide();
        return;
    }
    m_calendar->setSelectedDate(dateOfText());
    m_calendar->setMinimumWidth(m_calendar->sizeHint().width() + kCalendarColumns * kSpareOfColumn);
    m_calendar->adjustSize();
    QPoint place = m_calendarButton->mapToGlobal(QPoint(0, 0)) - QPoint(m_calendar->width(), 0);
    place.setX(qMax(place.x(), m_calendarButton->screen()->availableGeometry().left()));
    m_calendar->move(place);
    m_calendar->show();
    // The arrow keys are for the days. The text isn't left by this: it may go on being typed.
    m_calendar->setFocus(Qt::PopupFocusReason);
}

/// The Return key chooses a day. Where a single click activates what it is made on, it has chosen the day
/// already.
void DateEdit::takeActivatedDate(const QDate &date)
{
    if (m_calendar->isHidden())
        return;
    setDate(date);
    emit contentChanged();
    toggleCalendar();
}

void DateEdit::validate()
{
    completeDateText();
    const QDate date = dateOfText();
    m_valid = m_lineEdit->text().isEmpty() || (date.isValid() && isWithinLimits(date));
    m_dateTime = QDateTime(date, timePart());
    setInvalid(!m_valid);
}

void DateEdit::setAutofilled(bool filled)
{
    m_autofilled = filled && m_lineEdit->isEnabled();
    setInvalid(!m_valid);
    if (m_autofilled) {
        connect(m_lineEdit, SIGNAL(editingFinished()), this, SLOT(setAutofilled()), Qt::UniqueConnection);
        connect(m_lineEdit, SIGNAL(textEdited(QString)), this, SLOT(setAutofilled()), Qt::UniqueConnection);
    } else {
        disconnect(m_lineEdit, SIGNAL(editingFinished()), this, SLOT(setAutofilled()));
        disconnect(m_lineEdit, SIGNAL(textEdited(QString)), this, SLOT(setAutofilled()));
    }
}

void DateEdit::completeDateText()
{
    const QString text = m_lineEdit->text();
    const bool typedInside = m_lineEdit->cursorPosition() != text.size() && m_lineEdit->hasFocus();
    const bool deleting = !text.isEmpty() && text.size() < m_previousText.size();
    if (typedInside || deleting) {
        m_previousText = text;
        return;
    }
    const QString completed = completedDateText(text, *m_format, m_lineEdit->hasFocus());
    if (completed.size() != text.size())
        m_lineEdit->setText(completed);
    m_previousText = completed;
}

QDate DateEdit::dateOfText() const
{
    const QString text = m_lineEdit->text();
    if (text.isEmpty())
        return QDate();
    return QDate::fromString(text, m_format->dateFormat(readingFormat(m_format->format())));
}

QTime DateEdit::timePart() const
{
    return m_timeEdit ? m_timeEdit->time() : QTime(0, 0);
}

bool DateEdit::isWithinLimits(const QDate &date) const
{
    const QDateTime moment(date, timePart());
    if (m_minimum.isValid() && (m_withTime ? moment < m_minimum : date < m_minimum.date()))
        return false;
    return !m_maximum.isValid() || !(m_withTime ? moment > m_maximum : date > m_maximum.date());
}
