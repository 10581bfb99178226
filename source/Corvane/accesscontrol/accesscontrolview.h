#ifndef ACCESSCONTROLVIEW_H
#define ACCESSCONTROLVIEW_H

#include "CommunicationAndData/access/accessmethodsystemhelper.h"
#include "CommunicationAndData/access/accessrolemodeldata.h"
#include "CommunicationAndData/access/operatormodeldata.h"
#include "ZephanShared/widgets/baseview.h"

#include <QMap>
#include <QPointer>
#include <QStringList>
#include <QVector>

class AccessRole;
class AccessUser;
class CellTable;
class ColumnLineEdit;
class QAbstractButton;
class QBoxLayout;
class QComboBox;
class QLabel;
class QPushButton;
class QTableWidgetItem;
class SupportConnectionHandler;

/// The administrator's view of users, roles, organisations and departments: one table of them at a time.
///
/// A change in a table stays there until it is saved, and whoever goes on to another table or view without
/// saving is asked. What is entered in a dialog is stored when the dialog closes.
///
/// The tables are filled each time the handler reports a connection. A failure of the store drops the
/// connection and leaves the tables as they are.
class AccesscontrolView : public BaseView
{
    Q_OBJECT

public:
    /// \param handler  the connection to the access tables; not owned, may be null
    AccesscontrolView(SupportConnectionHandler *handler, QWidget *parent);

    /// Makes the view ready to be shown: asks for a connection when there is none.
    ///
    /// \return  whether there is a connection now
    bool ensureConnection();

public slots:
    // Each leads a person through a new user of one type, up to its row in the database and in the table.
    void newSystemUser();
    void newManagedUser();
    void newSystemGroup();
    /// Lets a person edit or delete the user whose button sent the signal.
    void editManagedUser();
    void userRoleChanged();
    void updateTexts() override;
    /// Lets the table that is shown be saved when it differs from what is stored. This is the only record of
    /// there being unsaved work.
    void updateButtonStates();
    /// Shows another table, after a question when there is unsaved work.
    ///
    /// \param index  of the entry in the list of views
    void changeView(int index);
    void newRole();
    /// Lets a person rename or delete the role whose button sent the signal.
    void editRole();
    /// Checks and unchecks the rights that follow the one whose button sent the signal.
    void checkIncrementalAccessTypes();
    // Both add a blank row to the list that is shown, one at a time.
    void newDepartment();
    void newOrganization();
    /// Deletes the organisation or department of the row whose button sent the signal, once confirmed.
    void deleteInfo();
    /// Stores all changes of the table that is shown. Each one that fails is told and stays a change.
    void save();
    /// Shows the users of another type, after a question when there is unsaved work.
    ///
    /// \param method  index of the entry in the list of types
    void accessMethodChanged(int method);
    /// \param domainList  the servers from which Windows accounts can be listed
    void domainListUpdated(QStringList domainList);
    /// Fills all tables anew from the database; does nothing without a connection.
    void resetTables();

protected:
    void hideEvent(QHideEvent *event) override;

private slots:
    void saveByKey();

private:
    enum View { UsersView, RolesView, OrganizationsView, DepartmentsView };
    enum InfoColumn { OrganizationColumn, DepartmentColumn, AddressColumn, DeleteColumn, InfoColumnCount };
    using Role = QSharedPointer<AccessRoleModelData>;
    using Organizations = QMap<UuidString, QString>;
    using Departments = QMultiMap<UuidString, QString>;

    void buildControls(QBoxLayout *column);
    void buildTables(QBoxLayout *column);
    void buildSaveButton(QBoxLayout *column);
    void selectConfiguredMethod();
    void connectCombo(QComboBox *combo, bool connected);
    void selectSilently(QComboBox *combo, int index);
    void connectAddButton();
    uint operatorType() const;
    CellTable *tableOf(int view) const;
    void showTable();
    void showInfoColumnsAndRows();
    void applyMethod();
    void filterRows();
    void filterRow(int row);
    bool mayLeaveChanges();
    void commitEditInProgress();
    QVector<int> changedMethods();
    QVector<int> changedViews();
    void saveNoted(const QVector<int> &methods, const QVector<int> &views);

    // Texts
    QString addButtonText() const;
    void updateRightLabels();
    void updateInfoTexts();
    void nameRightChecks(int column);
    void nameUserChecks(int row, int column);
    QTableWidgetItem *makeCorner(const QString &text) const;
    QTableWidgetItem *makeHeading(const QString &text) const;

    // Tables
    void clearTables();
    void fillTables();
    AccessRole *addRoleColumn(const Role &role);
    void addRightChecks(AccessRole *role);
    void removeRoleColumn(int column);
    void fitRoleColumn(int column);
    AccessUser *addUserRow(const OperatorModel &op);
    void addUserCheck(int row, int column, bool checked);
    void removeUserRow(AccessUser *user);
    void fitUserColumn();
    AccessRole *shownRole(int column) const;
    bool isUserRowChanged(int row) const;
    bool isAnyUserChanged() const;
    bool isAnyRoleChanged() const;
    void saveRoles();
    bool saveRights(AccessRole *role);
    void saveUsers();
    bool saveUserRoles(int row);
    void giveFocusBack();

    // Users
    void loadInformation(Organizations &organizations, Departments &departments);
    void addOperator(const OperatorModel &op, OperatorModelData::OperatorType type);
    bool editUser(AccessUser *user, bool isNew);
    void deleteUser(AccessUser *user, const QString &name);
    void storeUser(AccessUser *user);
    bool isUsernameTaken(const AccessUser *user) const;
    bool storeOperator(const OperatorModel &op);

    // Roles
    void editRoleColumn(AccessRole *button);
    void discardRoleEdit(AccessRole *button);
    void deleteRoleColumn(AccessRole *button);
    void storeRoleColumn(AccessRole *button);
    bool isRoleInUse(const AccessRole *button) const;
    bool isRoleNameTaken(const AccessRole *button, const QString &name) const;
    bool storeRole(const Role &role);

    // Organisations and departments
    int nameColumn() const;
    int &infoRows();
    int otherInfoRows() const;
    ColumnLineEdit *infoEdit(int row, int column) const;
    void fillInformation();
    ColumnLineEdit *putInfoEdit(ColumnLineEdit *edit, int row, int column);
    void putDeleteButton(int row);
    void nameInfoEdit(ColumnLineEdit *edit) const;
    void newInfoRow();
    void moveInfoRowsUp(int deletedRow);
    void updateInfoButtons();
    bool isInfoRowChanged(int row) const;
    void saveInformation();
    bool saveInfoRow(int row);
    bool deleteInfoRow(const UuidString &id);

    void showFailure(const QString &title, const QString &text);

    int m_currentView = UsersView;
    int m_previousViewIndex = 0;
    int m_previousMethodIndex = 0;
    QPushButton *m_addButton = nullptr;
    QPushButton *m_saveButton = nullptr;
    QComboBox *m_viewCombo = nullptr;
    QComboBox *m_methodCombo = nullptr;
    QLabel *m_methodPlaceholder = nullptr;  ///< keeps the place of the list of types where there are none
    CellTable *m_userTable = nullptr;
    CellTable *m_roleTable = nullptr;
    CellTable *m_infoTable = nullptr;
    QStringList m_domainList;
    int m_userRows = 1;     ///< next free row
    int m_roleColumns = 1;  ///< next free column, the same in both tables
    int m_organizationRows = 0;
    int m_departmentRows = 0;
    bool m_filled = false;
    // The widgets of the tables by row and column, since asking a table for them takes long. Removed ones are
    // null, and so are the first ones.
    QVector<AccessUser *> m_users{nullptr};
    QVector<AccessRole *> m_roles{nullptr};
    QVector<QVector<QAbstractButton *>> m_userChecks = QVector<QVector<QAbstractButton *>>(1);
    QPointer<SupportConnectionHandler> m_handler;
    AccessMethodSystemHelper m_domainHelper;
};

#endif
