#ifndef LOGINDIALOG_H
#define LOGINDIALOG_H

#include <QDialog>

class QLineEdit;

/// Asks for a user name and a password. It has no close button: a person answers it with Ok or Cancel.
class LoginDialog : public QDialog
{
    Q_OBJECT

public:
    /// \param username  first content of the user name field
    /// \param password  first content of the password field
    /// \param caption   what the name and password are for, shown above the fields
    LoginDialog(const QString &username, const QString &password, const QString &caption, QWidget *parent);

    QString username() const;
    QString password() const;

private:
    QLineEdit *m_username;
    QLineEdit *m_password;
};

#endif
