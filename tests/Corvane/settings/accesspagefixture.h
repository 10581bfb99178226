#ifndef TESTS_CORVANE_ACCESSPAGEFIXTURE_H
#define TESTS_CORVANE_ACCESSPAGEFIXTURE_H

#include "Corvane/settings/accesssettingsview.h"
#include "settingstest.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QCheckBox>
#include <QDialog>
#include <QTest>

#include <functional>
#include <memory>

constexpr int kBothRights = AccessControlManagement | AuditTrailManagement;

/// Shows each connection dialog that comes up to the next visit, and cancels it when none is left.
class ConnectionDialogs : public QObject
{
    Q_OBJECT

public:
    using Visit = std::function<void(QDialog &)>;

    explicit ConnectionDialogs(QList<Visit> visits);

    int count() const
    {
        return m_count;
    }

private:
    void answer();

    QList<Visit> m_visits;
    int m_count = 0;
};

/// The visit of somebody who types this and connects.
ConnectionDialogs::Visit connectAs(const QString &user, const QString &password = QString());

/// The access and audit trail page in a window of its own. Each test ends without a warning of Qt's and
/// without an open connection.
class AccessPageFixture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

protected slots:
    void init();
    void cleanup();

protected:
    void show(int rights = kBothRights);
    void close();
    QCheckBox *box(const char *name) const
    {
        return SettingsTest::child<QCheckBox>(*m_page, name);
    }
    QCheckBox *online() const
    {
        return box("online_audit_trail");
    }
    void pressOnline() const
    {
        QTest::mouseClick(online(), Qt::LeftButton, {}, QPoint(8, online()->height() / 2));
    }
    /// The warnings of Qt's so far, which are all right then.
    QStringList takeWarnings();
    QString cacheFile() const
    {
        return m_workstation.dataDirectory() + QStringLiteral("local_cache");
    }

    /// A safe value, "absent" where there is none.
    static QVariant safe(const char *key)
    {
        return SettingsTest::store()->safeValue(QLatin1String(key), QStringLiteral("absent"));
    }
    static void setSafe(const char *key, const QVariant &value)
    {
        SettingsTest::store()->setSafeValue(QLatin1String(key), value);
    }

    Workstation m_workstation;
    std::unique_ptr<AccessSettingsView> m_page;

private:
    std::unique_ptr<QtWarnings> m_warnings;
};

#endif
