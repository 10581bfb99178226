#include "dateform.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/widgets/dateedit.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

DateForm::DateForm(bool withTime)
    : date(new DateEdit(withTime))
    , other(new QLineEdit)
{
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(date);
    layout->addWidget(other);
    show();
    QApplication::setActiveWindow(this);
    date->lineEdit()->setFocus();
}

void DateForm::chooseFormat(int format, int separator, bool ampm)
{
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setValue(QLatin1String(SettingsKeys::kDateFormat), format);
    store->setValue(QLatin1String(SettingsKeys::kDateSeparator), separator);
    store->setValue(QLatin1String(SettingsKeys::kTimeAmPm), ampm);
}

QString DateForm::withSeparator(const QString &text, int separator)
{
    return QString(text).replace(QLatin1Char('.'), QLatin1Char(".-/"[separator]));
}

void DateForm::type(const QString &keys) const
{
    QTest::keyClicks(date->lineEdit(), keys);
}

void DateForm::leave() const
{
    other->setFocus();
}

QString DateForm::text() const
{
    return date->lineEdit()->text();
}

QCalendarWidget *DateForm::calendar() const
{
    return findChild<QCalendarWidget *>();
}
