#ifndef TESTS_VIEWFIXTURE_H
#define TESTS_VIEWFIXTURE_H

#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/accessrole.h"
#include "Corvane/accesscontrol/accessuser.h"
#include "Corvane/accesscontrol/editorsteps.h"
#include "Corvane/accesscontrol/storefixture.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/columnlineedit.h"
#include "support/messageboxes.h"
#include "support/userinput.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>

extern const QString kSaveQuestion;

/// The indices of the lists of views and of types of users.
enum ViewIndex { Users, Roles, Organisations, Departments };
enum MethodIndex { InternalUsers, WindowsGroups, WindowsUsers };
Q_DECLARE_METATYPE(ViewIndex)
Q_DECLARE_METATYPE(MethodIndex)

/// A box as "title|text|buttons", an error box with a "!" in front and one that only tells with an "i".
QStringList boxTexts(const MessageBoxes &boxes);

/// The management view in a window, beside an empty page to go away to, on a database with a few users.
///
/// Each test function has a column "place".
class ViewFixture : public StoreFixture
{
    Q_OBJECT

protected slots:
    void init();
    void cleanup();

protected:
    /// One row without a name of its own: the encrypted file.
    static void addOfflineFile();
    /// The databases behind ODBC.
    static void addOnlinePlaces();
    /// The one of them that is a file.
    static void addSqlite();

    /// anna (Admin), bert (Nurse), the group CLINIC\NURSES (Nurse), the Windows user CLINIC\CARLA (Doctor).
    bool addUsers();
    /// The organisations "East Clinic" and "West Clinic", the departments "Surgery" and "Oncology".
    bool addPlacesOfWork();
    bool addUser(const UuidString &id, const QString &name, uint type, const QList<uint> &roles = {});
    bool addOrganization(int number, const QString &name);
    bool addDepartment(int number, const QString &name, const QString &address);

    /// Builds the view, fills it from the connection, and shows it.
    void showView();
    void leaveView();
    void comeBack();
    /// Lets the database refuse a statement ("INSERT" or "UPDATE") on the rows of a table where a condition
    /// on the new row holds, until the end of the test.
    bool refuse(const QString &statement, const QString &table, const QString &condition);
    /// Ends all refusals.
    void allowAll();
    /// What one operator has in a column.
    QString storedValue(const QString &user, const char *column);

    template<typename Widget>
    Widget *part(const char *name) const
    {
        return m_view->findChild<Widget *>(QLatin1String(name));
    }
    QPushButton *addButton() const
    {
        return part<QPushButton>("add_button");
    }
    QPushButton *saveButton() const
    {
        return part<QPushButton>("save_button");
    }
    CellTable *table(const char *name) const
    {
        return part<CellTable>(name);
    }
    bool canSave() const
    {
        return saveButton()->isEnabled();
    }

    void chooseView(ViewIndex view);
    void chooseMethod(MethodIndex method);
    static void click(QWidget *widget);
    /// Presses a cell's widget after scrolling to it.
    void clickCell(CellTable *table, int row, int column);
    void save()
    {
        click(saveButton());
    }

    // Users and roles
    int userRow(const QString &name) const;
    int roleColumn(const QString &name) const;
    AccessUser *user(const QString &name) const;
    AccessRole *role(const QString &name) const;
    QPushButton *userCheck(const QString &user, const QString &role) const;
    QPushButton *rightCheck(const QString &role, const QString &right) const;
    void clickUserCheck(const QString &user, const QString &role);
    void clickRightCheck(const QString &role, const QString &right);
    void clickUser(const QString &name);
    void clickRole(const QString &name);
    QStringList shownUsers() const;
    QStringList shownRoles() const;
    /// The headings of the roles in the table of users.
    QStringList roleHeadings() const;
    /// The roles that the table shows for a user.
    QStringList checkedRoles(const QString &user) const;
    /// The titles of the roles that are stored for a user.
    QStringList storedRoles(const QString &user);

    // Organisations and departments
    ColumnLineEdit *edit(int row, int column) const;
    QPushButton *deleteButton(int row) const;
    /// Types a text and leaves the field by Tab.
    void type(int row, int column, const QString &content);
    void clickDelete(int row);
    /// What the rows that are shown say, columns joined by "|".
    QStringList shownRows() const;
    QStringList storedNames(const char *table);

    std::unique_ptr<QStackedWidget> m_stack;
    QStringList m_triggers;
    AccesscontrolView *m_view = nullptr;
};

#endif
