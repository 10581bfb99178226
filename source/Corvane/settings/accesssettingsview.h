#ifndef ACCESSSETTINGSVIEW_H
#define ACCESSSETTINGSVIEW_H

#include "CommunicationAndData/access/accesstype.h"
#include "Corvane/settings/connectioncache.h"
#include "ZephanShared/widgets/baseview.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

/// The access and audit trail page: how the measurement applications authenticate, how long an offline login
/// stays valid, and which audit trails they keep.
///
/// Whether the online audit trail is on belongs to one particular database. The page never shows a state that
/// it hasn't just read there, and changes it only with a working login to that database.
class AccessSettingsView : public BaseView
{
    Q_OBJECT

public:
    /// \param dataPath  directory of `local_cache`, with its trailing separator
    /// \param allowed   the operator's rights: "Access control management" allows editing the left column,
    /// "Audit trail management" the right one
    AccessSettingsView(const QString &dataPath, AccessType allowed, QWidget *parent = nullptr);
    /// Saves as `saveSettings` does.
    ~AccessSettingsView() override;

    /// Fills the widgets from the working settings; the state of the online audit trail is unknown then.
    void reloadSettings();
    /// Writes the widgets to the working settings. The keys of a column that the operator may not edit are
    /// removed, so that they are not passed on either.
    void saveSettings();

    void updateTexts() override;

signals:
    void uncheckDefRights();
    void checkDefRights();

public slots:
    void actionLogEnabled(int checked);
    /// Lets the operator connect to the audit trail's database, reads the state of the online audit trail
    /// there and, if the box showed a state, changes it.
    void checkAuditTrailPrivileges();
    void expirationValueChanged(int value);
    void offlineAuthenticationCheckChanged(int state);
    void warnExpirationCheckChanged(int state);
    void singleWorkstationCheckChanged(int state);
    void handleBrowseOfflineLocation();

private:
    QWidget *buildAccess(QWidget *parent);
    QWidget *buildAudit(QWidget *parent);
    void reloadAudit();
    void reloadAccess();
    void saveAudit();
    void saveAccess();
    void updateAccessStates();
    void updateOnlineText();

    /// What came of a visit to the audit trail's database.
    enum Visit { Refused, Read, Bound };

    QMap<QString, QVariant> auditConnection() const;
    bool editConnection(QMap<QString, QVariant> &connection);
    Visit visitAuditDatabase(const QMap<QString, QVariant> &connection, Qt::CheckState entry,
                             Qt::CheckState &state);
    QString readHash(const QMap<QString, QVariant> &connection);
    void showVisit(Visit visit);
    void showMessage(int icon, const QString &title, const QString &text);

    const bool m_canEditAccess;
    const bool m_canEditAudit;
    const ConnectionCache m_cache;
    bool m_warn = true;  ///< what the warn box shows whenever logins expire
    QString m_username;  ///< last used for the audit trail's database, in memory only
    QString m_password;

    QLabel *m_accessTitle;
    QLabel *m_methodLabel;
    QComboBox *m_method;
    QLabel *m_cacheTitle;
    QCheckBox *m_offline;
    QLabel *m_expirationLabel;
    QSpinBox *m_expiration;
    QCheckBox *m_warnBox;
    QCheckBox *m_local;
    QLabel *m_locationLabel;
    QLineEdit *m_location;
    QPushButton *m_browseLocation;

    QLabel *m_auditTitle;
    QCheckBox *m_offlineAudit;
    QLabel *m_auditLocationLabel;
    QLineEdit *m_auditLocation;
    QLabel *m_onlineTitle;
    QCheckBox *m_onlineAudit;
};

#endif
