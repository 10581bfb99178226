#ifndef TESTS_CORVANE_SETTINGSTEST_H
#define TESTS_CORVANE_SETTINGSTEST_H

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "support/workstation.h"

#include <QComboBox>
#include <QSettings>
#include <QWidget>

/// What the tests of the settings pages share.
namespace SettingsTest {

inline SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

inline QVariant stored(const char *key)
{
    return store()->value(QLatin1String(key));
}

inline void setStored(const char *key, const QVariant &value)
{
    store()->setValue(QLatin1String(key), value);
}

/// Points the store at a file that did not exist before.
inline void useEmptySettings(const Workstation &workstation)
{
    static int count = 0;
    store()->changeSettingsFile(workstation.path(QStringLiteral("settings_%1.ini").arg(++count)));
}

/// A widget of the page by its name; a name that is not there ends the test program.
template<class Widget>
Widget *child(const QObject &page, const char *name)
{
    auto *found = page.findChild<Widget *>(QLatin1String(name));
    if (!found)
        qFatal("There is no %s", name);
    return found;
}

/// The last line of a log.
inline QByteArray lastLine(const QString &file)
{
    return readFile(file).trimmed().split('\n').last();
}

inline QStringList items(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}

inline QList<int> numbers(const QVariant &list)
{
    QList<int> result;
    for (const QVariant &item : list.toList())
        result.append(item.toInt());
    return result;
}

}  // namespace SettingsTest

#endif
