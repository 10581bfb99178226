#ifndef TESTS_DATABASEGROUPFIXTURE_H
#define TESTS_DATABASEGROUPFIXTURE_H

#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "support/workstation.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>

enum Database { ActionLog, Persons, Studies, Support, AllDatabases };
constexpr bool kEditable = true;
constexpr bool kActionDbEnabled = true;
constexpr bool kOnlineModeShown = true;

extern const QStringList kDefaultOptions;

SettingsHandler *store();
QString text(const char *utf8);
/// The parameters of a map, "name=value" each.
QStringList parameters(const QVariantMap &map);
/// A map of the support database.
QVariantMap supportMap(const QVariantMap &params, const QVariant &options);

/// The editor in a window of its own, as a dialog holds it.
class DatabaseGroupFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    DatabaseGroupSettings *show(int database, bool editable, bool actionDb, bool onlineMode,
                                QVariantMap *map);
    DatabaseGroupSettings *showMap(QVariantMap &map)
    {
        return show(Support, kEditable, false, false, &map);
    }
    QLineEdit *setting(int number) const
    {
        return m_window->findChild<QLineEdit *>(QStringLiteral("connection_setting_%1").arg(number));
    }
    QLineEdit *option(int number) const
    {
        return m_window->findChild<QLineEdit *>(QStringLiteral("connection_parameter_%1").arg(number));
    }
    template<typename Widget>
    Widget *find(const char *name) const
    {
        return m_window->findChild<Widget *>(QString::fromLatin1(name));
    }
    QStringList rows(const QString &prefix) const;
    QStringList settings() const
    {
        return rows(QStringLiteral("connection_setting_"));
    }
    QStringList options() const
    {
        return rows(QStringLiteral("connection_parameter_"));
    }
    void type(QLineEdit *edit, const QString &line) const;

    Workstation m_workstation;
    std::unique_ptr<QDialog> m_window;
    int m_count = 0;
};

#endif
