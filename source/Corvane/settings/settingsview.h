#ifndef SETTINGSVIEW_H
#define SETTINGSVIEW_H

#include "CommunicationAndData/access/accesstype.h"
#include "ZephanShared/widgets/baseview.h"

#include <QStringList>

class AccessControl;
class AccessSettingsView;
class DatabaseSettingsView;
class FieldSettingsView;
class PersonBrowserSettingsView;
class QAction;
class QLabel;
class QMenu;
class QMenuBar;
class QSettings;
class QTabWidget;
class QVBoxLayout;
class SearchSettingsView;
class StudySettingsView;

/// The administrator's workbench for settings: a prompt until a source of settings is chosen from the menu
/// bar at its foot, then the settings pages as tabs.
///
/// Whatever the source, its content replaces the working settings; the pages edit those; the same menus send
/// them on. The view owns the order of the operations, the gating by rights, the removal of what must not
/// leave the workstation, the snapshots for comparison, and the messages and audit events. It never reads or
/// writes a page's keys itself.
class SettingsView : public BaseView
{
    Q_OBJECT

public:
    /// \param dataPath  the data directory with its trailing separator
    explicit SettingsView(QString dataPath, QWidget *parent = nullptr);
    /// With the tabs shown and the autosave on, saves to the local application without a message.
    ~SettingsView() override;

    void updateTexts() override;

public slots:
    /// Builds everything; the pages need the operator's rights. A null pointer leaves the view empty.
    void setAccessControl(AccessControl *access);

    /// Opens the dialog that loads and deletes online configurations.
    void manageSettings();
    /// Takes over an online configuration that the store has fetched. Only `success` is read.
    void settingsReceived(bool success, bool distributed, QString message);
    /// Opens the dialog that puts the working settings into the settings database.
    void distributeSettings();
    /// Shows what differs between the settings as they are and the sources that were loaded.
    void diffSettings();
    /// Replaces the working settings' file by one that the administrator chooses.
    void importSettings();
    /// Copies the working settings' file to where the administrator chooses.
    void exportSettings();
    /// Copies the working settings to the local application settings.
    ///
    /// \param silent  no message is shown, and the audit trail records it as automatic
    void saveSettingsLocally(bool silent = false);
    /// Replaces the working settings by the local application settings.
    void loadLocalSettings();
    /// The display name of the source that is being loaded.
    void loadTag(QString tag);
    /// Switches the autosave to the local application at exit, in `local_cache`.
    void localSaveToggled(bool enabled);
    /// Shows the tabs in place of the prompt, once.
    void showSettings();

private:
    void createPages();
    void createTabs();
    void createMenus();
    void buildLocalMenu();
    void buildOnlineMenu();
    void buildTransferMenu();
    QMenu *addMenu(const QString &name);
    QAction *addAction(QMenu *menu, const QString &name, bool enabled);
    void updateTabTexts();
    void fitTabTexts();
    void savePages();
    void reloadPages();

    bool isAllowed(AccessType type) const;
    bool isLocalSaveEnabled() const;
    void autosave();
    void copyToLocalSettings(QSettings &local, QString &message);
    void replaceByLocalSettings(bool silent);
    bool copyFromLocalSettings();
    void tellIncompleteLoad(bool silent);
    bool exportTo(const QString &target, QString &message);
    bool copyWorkingFile(const QString &workingFile, const QString &target, QString &message);
    static void tellFailedCopy(QString &message);
    bool importFrom(const QString &source, QString &message);
    bool replaceWorkingFile(const QString &source);
    void acceptOnlineSettings();

    void removeRedundantSettings();
    void removeDatabaseGroups();
    QStringList settingsSnapshot(Actions::Action action);
    void takeLoadedSnapshots(Actions::Action action);
    bool appendPrivilegeNotes(QString &text) const;
    void logSettingsAction(Actions::Action action, Actions::ActionType type, const QString &info);
    void showMessage(const QString &text);

    QVBoxLayout *m_layout;
    QTabWidget *m_tabs = nullptr;
    QLabel *m_prompt = nullptr;

    AccessSettingsView *m_accessPage = nullptr;
    DatabaseSettingsView *m_databasePage = nullptr;
    FieldSettingsView *m_fieldPage = nullptr;
    PersonBrowserSettingsView *m_generalPage = nullptr;
    SearchSettingsView *m_searchPage = nullptr;
    StudySettingsView *m_studyPage = nullptr;

    QMenuBar *m_menuBar = nullptr;
    QMenu *m_localMenu = nullptr;
    QMenu *m_onlineMenu = nullptr;
    QMenu *m_transferMenu = nullptr;
    QAction *m_autosaveAction = nullptr;
    QAction *m_saveAction = nullptr;
    QAction *m_loadAction = nullptr;
    QAction *m_diffAction = nullptr;
    QAction *m_manageAction = nullptr;
    QAction *m_distributeAction = nullptr;
    QAction *m_importAction = nullptr;
    QAction *m_exportAction = nullptr;

    AccessControl *m_access = nullptr;  ///< not owned
    QStringList m_initialSettings;      ///< snapshot of the first source loaded
    QStringList m_previousSettings;     ///< snapshot of the last source loaded
    QStringList m_currentSettings;      ///< snapshot before a comparison
    QString m_settingsTag;              ///< display name of the last source
    QString m_dataPath;
    // What was typed in the dialogs; in memory only.
    QString m_manageUsername;
    QString m_managePassword;
    QString m_distributeUsername;
    QString m_distributePassword;
    bool m_firstLoad = true;
};

#endif
