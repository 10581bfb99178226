#ifndef ACCESSROLEEDITDIALOG_H
#define ACCESSROLEEDITDIALOG_H

#include <QDialog>
#include <QSharedPointer>

class AccessRole;
class AccessRoleModelData;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// The dialog in which a role gets its name or is deleted.
///
/// What is typed goes straight into the role; a cancel does not take it back.
class AccessRoleEditDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AccessRoleEditDialog(QWidget *parent = nullptr);

    /// Edits a role that is there.
    void setRole(const QSharedPointer<AccessRoleModelData> &role);
    /// Edits a new role without id, name and rights.
    void createRole();
    /// Offers to delete the role.
    ///
    /// \param target  asks for the confirmation and notes it
    /// \param inUse   the role can't be deleted, and the button says why
    void setDeleteButton(AccessRole *target, bool inUse);

    QSharedPointer<AccessRoleModelData> role() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildName(QVBoxLayout *layout);
    void buildButtons(QVBoxLayout *layout);
    QPushButton *makeButton(const char *name, const QString &text, const char *slot);
    void takeRole(const QSharedPointer<AccessRoleModelData> &role);

    QLineEdit *m_nameEdit;
    QPushButton *m_saveButton;
    QPushButton *m_cancelButton;
    QPushButton *m_deleteButton;
    QSharedPointer<AccessRoleModelData> m_role;
};

#endif
