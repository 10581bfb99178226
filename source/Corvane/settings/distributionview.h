#ifndef DISTRIBUTIONVIEW_H
#define DISTRIBUTIONVIEW_H

#include "CommunicationAndData/settings/onlinesettings.h"
#include "Corvane/settings/settingsdatabasedialog.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;

/// Puts the working settings into the settings database as a new online configuration, only stored or as the
/// active one for users.
class DistributionView : public SettingsDatabaseDialog
{
    Q_OBJECT

public:
    /// \param dataPath      directory of `local_cache`, with its trailing separator
    /// \param username      remembered user name of the database; not owned
    /// \param password      its password, remembered for this run only; not owned
    /// \param operatorName  creator of the configuration; empty for "Admin"
    DistributionView(const QString &dataPath, QString *username, QString *password, QString operatorName,
                     QWidget *parent = nullptr);

public slots:
    /// Connects, to store the settings.
    void save();
    /// Connects, to store the settings and make them active.
    void distribute();
    /// Sends the settings once there is a connection.
    void store(bool connected);
    /// Remembers the connection and closes.
    void proceed();
    void storeReady(OnlineSettings::QueryError error);

protected:
    void updateTexts() override;

private:
    void buildUi();
    void buildNotes();
    void buildButtons();
    void send();
    void logFailure(const QString &errorData);
    void setButtonsEnabled(bool enabled);

    QGridLayout *m_layout;
    QLabel *m_title = nullptr;
    QLabel *m_informationLabel = nullptr;
    QCheckBox *m_inform = nullptr;
    QLabel *m_notesLabel = nullptr;
    QPlainTextEdit *m_notes = nullptr;
    QLabel *m_status = nullptr;
    QPushButton *m_saveButton = nullptr;
    QPushButton *m_distributeButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
    QString m_operatorName;
    bool m_distribute = false;  ///< the distribute button was the one pressed
};

#endif
