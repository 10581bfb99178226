#ifndef DATABASESETTINGSVIEW_H
#define DATABASESETTINGSVIEW_H

#include "CommunicationAndData/access/accesstype.h"
#include "ZephanShared/widgets/baseview.h"

class DatabaseGroupSettings;
class IdentificationBoxes;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// The Database page: where the local offline databases lie, by which fields two persons are the same one
/// during synchronisation, and the connections of the suite's databases.
class DatabaseSettingsView : public BaseView
{
    Q_OBJECT

public:
    /// \param allowed  the operator's rights: "Write local DB settings" allows editing the connections,
    /// "Audit trail management" choosing the action log's
    explicit DatabaseSettingsView(AccessType allowed, QWidget *parent = nullptr);

    /// Fills the widgets from the working settings.
    void reloadSettings();
    /// Writes the widgets to the working settings.
    void saveSettings();

    void updateTexts() override;

public slots:
    /// Shows the connection of the selected database, after saving the one shown before if asked.
    void getCurrentDBSettings(bool saveFirst = true);
    /// Writes the connection that is shown.
    void saveDBSettings();
    /// The last checked criterion can't be unchecked.
    void syncIdentificationStateChanged(int state);
    void handleBrowseOfflineLocation();

private:
    QWidget *buildStorage(QWidget *parent);
    QWidget *buildConnections(AccessType allowed, QWidget *parent);

    QLabel *m_storageTitle;
    QLabel *m_offlineTitle;
    QLabel *m_locationLabel;
    QLineEdit *m_location;
    QPushButton *m_browseLocation;
    QCheckBox *m_useOffline;
    QLabel *m_synchronisationTitle;
    QLabel *m_identificationLabel;
    IdentificationBoxes *m_identification;
    QLabel *m_connectionsTitle;
    DatabaseGroupSettings *m_connections;
};

#endif
