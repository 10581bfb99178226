#ifndef TESTS_CORVANE_SETTINGSBENCH_H
#define TESTS_CORVANE_SETTINGSBENCH_H

#include "CommunicationAndData/access/accesscontrol.h"
#include "Corvane/settings/diffview.h"
#include "Corvane/settings/settingsview.h"
#include "support/workstation.h"

#include <QList>
#include <QObject>
#include <QSqlDatabase>
#include <QTimer>

#include <functional>
#include <memory>

/// All rights that the settings view asks for.
constexpr int kAllRights = AccessControlManagement | WriteLocalDbSettings | AuditTrailManagement |
                           DistributeSettings | DownloadSettings;

/// One audit event of the view. An error has no type, key, name or server, and its data as info.
struct AuditEvent
{
    int action = 0;
    int type = -1;
    QString key;
    QString name;
    QString server;
    QString info;
    ZephanError error = 0;
};

bool operator==(const AuditEvent &a, const AuditEvent &b);
/// For the messages of failed comparisons.
char *toString(const AuditEvent &event);
char *toString(const QList<AuditEvent> &events);

/// An event as the settings view writes it, by a person unless told otherwise.
AuditEvent settingsEvent(Actions::Action action, const QString &info,
                         Actions::ActionType type = Actions::Human);
AuditEvent settingsError(Actions::Action action, ZephanError error, const QString &data);

/// A workstation's files: the working settings, the local application settings and the small cache.
class SettingsFiles
{
public:
    explicit SettingsFiles(const Workstation &workstation);

    /// Empties the data directory and the local application settings, and points the store at the working
    /// file, which does not exist then.
    void reset();

    QString working() const;
    QString local() const;
    QString cache() const;
    QString temporaryDirectory() const;

    QVariant workingValue(const char *key) const;
    QVariant localValue(const char *key) const;
    QVariant cacheValue(const char *key) const;
    void setLocal(const QMap<QString, QVariant> &values);
    QStringList localKeys() const;
    QStringList workingKeys() const;

private:
    const Workstation &m_workstation;
};

/// A settings view in use: who signed in, and the audit events that it has written.
class SettingsBench : public QObject
{
    Q_OBJECT

public:
    /// \param rights  of the operator; the working settings are the store's present ones
    SettingsBench(const Workstation &workstation, int rights);
    ~SettingsBench() override;

    SettingsView &view()
    {
        return *m_view;
    }

    /// Picks a menu's entry with the mouse; a disabled one does nothing.
    void choose(const char *menu, const char *action);
    /// Opens the comparison from the menu and lets `visit` look at it.
    void seeChanges(const std::function<void(DiffView &)> &visit);
    /// Destroys the view as the program's end does.
    void close();

    /// The events since the last call.
    QList<AuditEvent> takeEvents();

private:
    std::unique_ptr<AccessControl> signIn(int rights);

    QSqlDatabase m_database;
    std::unique_ptr<AccessControl> m_access;
    std::unique_ptr<SettingsView> m_view;
    QList<AuditEvent> m_events;
};

/// Answers the comparisons that come up: shows each to `visit` and closes it, by OK if told so.
class DiffAnswers : public QObject
{
    Q_OBJECT

public:
    explicit DiffAnswers(std::function<void(DiffView &)> visit, bool accept = false);

    int count() const
    {
        return m_count;
    }

private:
    void answer();

    std::function<void(DiffView &)> m_visit;
    bool m_accept;
    int m_count = 0;
};

#endif
