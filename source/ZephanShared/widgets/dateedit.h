#ifndef DATEEDIT_H
#define DATEEDIT_H

#include "ZephanShared/widgets/fieldedit.h"

#include <QDateTime>

#include <memory>

class DateFormatHelper;
class QCalendarWidget;
class QLineEdit;
class QTimeEdit;
class QToolButton;

/// A date, typed with help or taken from a calendar, in the date format of the settings.
///
/// The typing aid adds separators where a part can't grow any more and pads days and months. An invalid date
/// is never an error: the field turns pink, its tool tip explains why, and the value is an invalid one.
class DateEdit : public FieldEdit
{
    Q_OBJECT

public:
    /// \param withTime  adds a time of day
    explicit DateEdit(bool withTime, QWidget *parent = nullptr);
    ~DateEdit() override;

    /// The stored value if it is valid; else the current time if asked for, else an invalid value.
    QDateTime dateTime(bool currentIfEmpty) const;
    /// The day in the field, also one that has no midnight in local time; an invalid one unless isValid().
    QDate date() const;
    /// False for an empty text, although an empty field isn't shown as invalid.
    bool isValid() const;
    /// Limits, both included; an invalid one is none. Without a time part only their dates count.
    void setMinimum(const QDateTime &minimum);
    void setMaximum(const QDateTime &maximum);

    QString value() const override;
    void setInvalid(bool invalid) override;
    void setFieldEnabled(bool enabled) override;

    /// The line edit, for its name and its place in the tab order.
    QLineEdit *lineEdit() const;
    QToolButton *calendarButton() const;

    /// Sets the tool tips again after a change of language.
    void updateTexts();

    /// Takes over the user's date format from the settings where it has changed. A valid date stays and is
    /// written in the new format; any other text goes. Nothing is signalled.
    void reloadFormat();

public slots:
    void setDateTime(QDateTime dateTime);
    void setDate(QDate date);
    void toggleCalendar();
    void validate();
    void setAutofilled(bool filled = false) override;

private:
    void buildTimeEdit();
    void connectEdits();
    void applyFormat();
    void takeActivatedDate(const QDate &date);
    void completeDateText();
    QDate dateOfText() const;
    QTime timePart() const;
    bool isWithinLimits(const QDate &date) const;

    QLineEdit *m_lineEdit;
    QCalendarWidget *m_calendar;
    QToolButton *m_calendarButton;
    std::unique_ptr<DateFormatHelper> m_format;
    QTimeEdit *m_timeEdit = nullptr;
    QDateTime m_dateTime;
    QDateTime m_minimum;
    QDateTime m_maximum;
    QString m_previousText;
    bool m_valid = true;
    bool m_withTime;
    bool m_autofilled = false;
    bool m_disabled = false;
    bool m_invalid = false;
};

#endif
