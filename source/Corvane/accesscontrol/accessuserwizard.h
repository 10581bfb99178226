#ifndef ACCESSUSERWIZARD_H
#define ACCESSUSERWIZARD_H

#include "CommunicationAndData/access/operatormodeldata.h"

#include <QDialog>
#include <QList>
#include <QMap>

class AccessUser;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QVBoxLayout;

/// The dialog in which an operator is created or changed: an internal user with a password, a Windows user
/// that is picked from a domain, or a Windows group. It is made for one flow.
///
/// The operator keeps its values until the dialog is accepted. A password is known here as long as the dialog
/// lives; the operator gets its salted hash.
class AccessUserWizard : public QDialog
{
    Q_OBJECT

public:
    using Organizations = QMap<UuidString, QString>;     ///< name by id
    using Departments = QMultiMap<UuidString, QString>;  ///< address and name by id, the name last

    explicit AccessUserWizard(QWidget *parent = nullptr);

    /// Lets a person enter a new internal user.
    ///
    /// \return  an operator with a new id and without type and roles; null when abandoned
    static OperatorModel newInternalUser(const Organizations &organizations, const Departments &departments,
                                         QWidget *parent = nullptr);
    /// Lets a person choose a Windows account and then enter its personal data.
    ///
    /// \param domains  servers that can list accounts
    /// \return         as `newInternalUser`, with the account's name in capitals; null when abandoned
    static OperatorModel newWindowsUser(const QStringList &domains, const Organizations &organizations,
                                        const Departments &departments, QWidget *parent = nullptr);
    /// Lets a person choose a Windows group; otherwise as `newWindowsUser`.
    static OperatorModel newWindowsGroup(const QStringList &domains, QWidget *parent = nullptr);

    /// Shows the button that removes the operator.
    ///
    /// \param target  asks for the confirmation and notes it
    void offerRemoval(AccessUser *target);
    /// Shows the operator's fields; a Windows group has none.
    ///
    /// \param managed  an internal user, whose username and password are kept here
    void setupOperatorForm(const OperatorModel &oper, bool managed, const Organizations &organizations,
                           const Departments &departments);
    /// Shows the choice of a Windows account: typed, or one of those that this computer or a server lists.
    void setupDomainPicker(const QStringList &domains, bool isGroup);
    /// Runs the dialog until it is accepted, and then sets the operator's values, or until it is given up, a
    /// changed one after a question.
    ///
    /// \return  whether it was accepted
    bool runFlow(const OperatorModel &oper);
    /// The name that was typed or else chosen, in capitals; empty when there is none.
    QString chosenAccountName() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void setPasswordHash(QString passwordHash);
    void setSalt(QString salt);

public slots:
    void passwordEdited(QString password);
    void passwordConfirmEdited(QString password);
    /// Shows the accounts of an entry of the list of domains, or the field for typing a name.
    void domainChanged(int index);
    /// Takes a password that was entered twice the same, each time with a fresh salt.
    void confirmPassword();
    /// Lets the operator be saved once it has a username and a confirmed password, or says what is missing.
    void CheckPasswordAndUsername();
    void userSelected();
    void customEdited(QString text);
    void setValuesToOperator(OperatorModel oper);
    void setOrganization(MappedStrings organization);
    void setDepartment(MappedStrings department);
    void userEdited();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum Field {
        LastName,
        MiddleName,
        FirstName,
        Organization,
        Department,
        Username,
        Password,
        ConfirmPassword
    };

    void buildPicker();
    void buildButtons();
    QPushButton *makeButton(const char *name, const QString &text);
    bool askWhetherToDiscard();
    void setSavable(bool savable, const QString &reason = QString());
    void putButtonsBehind(QWidget *last);
    void fitToContents();

    void showGroup();
    void addNames(const OperatorModel &oper);
    void addPlaces(const OperatorModel &oper, const Organizations &organizations,
                   const Departments &departments);
    void addCredentials(const OperatorModel &oper, bool managed);
    QLineEdit *addEdit(int field, const char *name, const QString &text);
    QLineEdit *addPasswordEdit(int field, const char *name, const QString &shown, bool managed);
    void addPlace(int field, const char *name, const Organizations &places, const MappedStrings &present,
                  const char *slot);
    void addRow(int field, QWidget *widget);
    QString missingText() const;

    void addDomains(const QStringList &domains);
    void setManualEntry();
    void buildManualEntry();
    void listWindowsGroups(const QString &server);
    void listWindowsUsers(const QString &server);
    void listAccounts(QStringList (*accounts)(const QString &), const QString &server);
    QWidget *makeAccountGrid(const QStringList &accounts);
    QRadioButton *makeAccountButton(const QString &account, QWidget *content);
    void fitAccountBox();

    QMap<int, QString> m_fieldLabels;
    QList<QRadioButton *> m_radioButtons;         ///< the Windows accounts on offer
    QString m_passwordHash = QStringLiteral("");  ///< empty texts are stored as such, and not as null
    QString m_confirmHash = QStringLiteral("");
    QString m_salt = QStringLiteral("");
    QString m_plainPassword;
    QString m_filler;  ///< stands in the fields of a password that is kept
    MappedStrings m_department;
    MappedStrings m_organization;
    bool m_isGroup = false;
    bool m_changed = false;

    QLineEdit *m_lastName = nullptr;
    QLineEdit *m_middleName = nullptr;
    QLineEdit *m_firstName = nullptr;
    QLineEdit *m_username = nullptr;
    QLineEdit *m_password = nullptr;

    QVBoxLayout *m_layout;
    QGridLayout *m_form;
    QComboBox *m_domainCombo;
    QGroupBox *m_accountBox;
    QScrollArea *m_accountArea;
    QWidget *m_manualWidget;
    QLineEdit *m_manualEdit = nullptr;
    QPushButton *m_saveButton;
    QPushButton *m_removeButton;
};

#endif
