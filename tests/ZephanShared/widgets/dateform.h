#ifndef DATEFORM_H
#define DATEFORM_H

#include <QString>
#include <QWidget>

class DateEdit;
class QCalendarWidget;
class QLineEdit;

/// A window with a date field and another field to leave it for.
class DateForm : public QWidget
{
public:
    explicit DateForm(bool withTime = false);

    /// Chooses the date format of the fields that are made afterwards.
    static void chooseFormat(int format, int separator = 0, bool ampm = false);
    /// A text that is written with full stops, in another separator of the settings.
    static QString withSeparator(const QString &text, int separator);

    void type(const QString &keys) const;
    void leave() const;
    QString text() const;
    QCalendarWidget *calendar() const;

    DateEdit *date;
    QLineEdit *other;
};

#endif
