#include "ZephanShared/toolkit/plaintime.h"

#include <QDateTime>
#include <QLocale>

QString plainText(const QDate &date, const QString &form)
{
    return QLocale::c().toString(date, form);
}

QString plainText(const QDateTime &time, const QString &form)
{
    return QLocale::c().toString(time, form);
}
