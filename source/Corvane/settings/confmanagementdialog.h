#ifndef CONFMANAGEMENTDIALOG_H
#define CONFMANAGEMENTDIALOG_H

#include "CommunicationAndData/settings/onlinesettings.h"
#include "Corvane/settings/settingsdatabasedialog.h"

#include <QElapsedTimer>

class QComboBox;
class QGridLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QToolButton;

/// Lists the online configurations of the settings database, and loads one as the working settings or
/// deletes one.
class ConfManagementDialog : public SettingsDatabaseDialog
{
    Q_OBJECT

public:
    /// Connects at once when user name and password are remembered.
    ///
    /// \param dataPath  directory of `local_cache`, with its trailing separator
    /// \param username  remembered user name of the database, as the password for this run only; not owned
    ConfManagementDialog(const QString &dataPath, QString *username, QString *password,
                         QWidget *parent = nullptr);

public slots:
    void handleLoadClicked();
    void handleDeleteClicked();
    /// Remembers the connection and closes.
    void handleCancelClicked();
    /// Connects anew.
    void handleToolClicked();
    /// Fills the list with what the store has fetched, unless it is filled already.
    void showList(bool listReadable);
    /// Shows the notes of the configuration in this row.
    void showNotes(int index);
    /// Marks and selects the configuration that the users' applications take.
    void markActive(int id);
    void deleteDone(int id, OnlineSettings::QueryError error);
    void sendIdRequest();
    /// Folds the connection's editor in or out.
    void toggleDbGroup();
    void reconnected(bool ok);

signals:
    void requestIdList(int first, bool withNotes);
    void requestDelete(int id);
    void requestActive();
    /// \param tag  display name of the configuration that is being loaded
    void loadTag(QString tag);
    void loaded();

protected:
    void updateTexts() override;
    bool restoresSettings() const override;

private:
    void buildUi();
    void buildList();
    void buildConnection();
    void buildButtons();
    QToolButton *addToolButton(const char *name, const char *slot);
    QPushButton *addButton(const char *name, const char *slot);
    void connectStore();
    void updateOptionsText();
    void requestList();
    void fillList();
    void showWholeTexts();
    void setListEnabled(bool enabled);
    void setChoiceEnabled(bool enabled);
    void showConnecting(const QString &text);
    int currentId() const;
    void removeCurrent();
    void showDeleteFailure(const QString &reason);

    QGridLayout *m_layout;
    QLabel *m_listLabel = nullptr;
    QComboBox *m_list = nullptr;
    QLabel *m_notesLabel = nullptr;
    QPlainTextEdit *m_notes = nullptr;
    QToolButton *m_connectButton = nullptr;
    QToolButton *m_optionsButton = nullptr;
    ConnectionArea *m_area = nullptr;
    QPushButton *m_loadButton = nullptr;
    QPushButton *m_deleteButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
    bool m_connected = false;
    bool m_loadedFlag = false;  ///< the working settings were replaced, or were to be
    QMap<int, SettingsAdditionalData> m_notesById;
    QElapsedTimer m_sinceRequest;
};

#endif
