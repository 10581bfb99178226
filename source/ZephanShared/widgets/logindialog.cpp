#include "ZephanShared/widgets/logindialog.h"

#include "ZephanShared/widgets/onelinevalidator.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *addRow(QVBoxLayout *layout, const QString &text, QLineEdit *field)
{
    auto *label = new QLabel(text);
    label->setBuddy(field);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(field);
    layout->addLayout(row);
    return label;
}

/// Lets the fields behind two labels begin at the same place.
void align(QLabel *first, QLabel *second)
{
    const int width = qMax(first->sizeHint().width(), second->sizeHint().width());
    first->setMinimumWidth(width);
    second->setMinimumWidth(width);
}

}  // namespace

LoginDialog::LoginDialog(const QString &username, const QString &password, const QString &caption,
                         QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint)
    , m_username(new QLineEdit(username))
    , m_password(new QLineEdit(password))
{
    m_username->setObjectName(QStringLiteral("username_edit"));
    m_password->setObjectName(QStringLiteral("password_edit"));
    m_password->setEchoMode(QLineEdit::Password);
    new OneLineValidator(m_username);
    new OneLineValidator(m_password);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(caption));
    QLabel *nameLabel = addRow(layout, tr("Username"), m_username);
    QLabel *passwordLabel = addRow(layout, tr("Password"), m_password);
    align(nameLabel, passwordLabel);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("button_box"));
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Ok"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(buttons, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));
    layout->addWidget(buttons);
}

QString LoginDialog::username() const
{
    return m_username->text();
}

QString LoginDialog::password() const
{
    return m_password->text();
}
