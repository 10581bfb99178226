#include "Corvane/accesscontrol/accessuserwizard.h"

#include "Corvane/accesscontrol/accessuser.h"
#include "Corvane/settings/formparts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QUuid>
#include <QVBoxLayout>

namespace {

/// An operator that is not stored yet. Its texts are empty and not null, as they are to be stored.
OperatorModel makeOperator()
{
    const QString empty = QStringLiteral("");
    const MappedStrings nowhere;
    return OperatorModel::create(UuidString(QUuid::createUuid().toString()), empty, empty, QList<uint>(),
                                 QStringList(), empty, empty, empty, nowhere, nowhere, empty, empty, 0u);
}

}  // namespace

OperatorModel AccessUserWizard::newInternalUser(const Organizations &organizations,
                                                const Departments &departments, QWidget *parent)
{
    const OperatorModel oper = makeOperator();
    AccessUserWizard wizard(parent);
    wizard.setupOperatorForm(oper, true, organizations, departments);
    return wizard.runFlow(oper) ? oper : OperatorModel();
}

OperatorModel AccessUserWizard::newWindowsUser(const QStringList &domains, const Organizations &organizations,
                                               const Departments &departments, QWidget *parent)
{
    const OperatorModel oper = makeOperator();
    AccessUserWizard wizard(parent);
    wizard.setupDomainPicker(domains, false);
    if (!wizard.runFlow(oper))
        return OperatorModel();
    oper->setUsername(wizard.chosenAccountName());
    wizard.setupOperatorForm(oper, false, organizations, departments);
    return wizard.runFlow(oper) ? oper : OperatorModel();
}

OperatorModel AccessUserWizard::newWindowsGroup(const QStringList &domains, QWidget *parent)
{
    const OperatorModel oper = makeOperator();
    AccessUserWizard wizard(parent);
    wizard.setupDomainPicker(domains, true);
    if (!wizard.runFlow(oper))
        return OperatorModel();
    oper->setUsername(wizard.chosenAccountName());
    return oper;
}

AccessUserWizard::AccessUserWizard(QWidget *parent)
    : QDialog(parent)
    , m_fieldLabels{{LastName, tr("Last Name")},    {MiddleName, tr("Middle Name")},
                    {FirstName, tr("First Name")},  {Organization, tr("Organisation")},
                    {Department, tr("Department")}, {Username, tr("Username")},
                    {Password, tr("Password")},     {ConfirmPassword, tr("Confirm Password")}}
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("user_editor"));
    buildPicker();
    m_form = new QGridLayout;
    m_layout->addLayout(m_form);
    buildButtons();
}

void AccessUserWizard::buildPicker()
{
    m_domainCombo = new QComboBox(this);
    m_domainCombo->setObjectName(QStringLiteral("domain_combo"));
    m_domainCombo->setAccessibleName(tr("Computer or domain"));
    m_domainCombo->setFixedHeight(FormParts::kFieldHeight);
    m_domainCombo->hide();
    m_layout->addWidget(m_domainCombo);

    m_manualWidget = new QWidget(this);
    m_manualWidget->setObjectName(QStringLiteral("manual_widget"));
    m_manualWidget->hide();
    m_layout->addWidget(m_manualWidget);

    m_accountBox = new QGroupBox(this);
    m_accountBox->setObjectName(QStringLiteral("account_box"));
    m_accountBox->hide();
    m_accountArea = new QScrollArea(m_accountBox);
    m_accountArea->setFrameShape(QFrame::NoFrame);
    m_accountArea->setFocusPolicy(Qt::NoFocus);
    m_accountArea->setWidgetResizable(true);
    m_accountArea->viewport()->setAutoFillBackground(false);
    auto *boxLayout = new QVBoxLayout(m_accountBox);
    boxLayout->addWidget(m_accountArea);
    m_layout->addWidget(m_accountBox, 1);
}

void AccessUserWizard::buildButtons()
{
    m_saveButton = makeButton("save_button", tr("Save"));
    m_saveButton->setDefault(true);
    m_removeButton = makeButton("remove_button", tr("Remove user"));
    m_removeButton->setAutoDefault(false);
    auto *row = new QHBoxLayout;
    row->addWidget(m_saveButton);
    row->addWidget(m_removeButton);
    m_layout->addLayout(row);
}

QPushButton *AccessUserWizard::makeButton(const char *name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setFixedHeight(FormParts::kButtonHeight);
    button->hide();
    connect(button, SIGNAL(clicked()), this, SLOT(accept()));
    return button;
}

void AccessUserWizard::offerRemoval(AccessUser *target)
{
    m_removeButton->show();
    connect(m_removeButton, SIGNAL(clicked()), target, SLOT(setDeleted()));
}

// Save stays the default button wherever the focus is. Return on the button that removes presses that one all
// the same, unless the key is only still held down.
void AccessUserWizard::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !m_removeButton->hasFocus())
        QDialog::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        m_removeButton->click();
}

bool AccessUserWizard::runFlow(const OperatorModel &oper)
{
    for (;;) {
        if (exec() == QDialog::Accepted) {
            setValuesToOperator(oper);
            return true;
        }
        if (!m_changed || askWhetherToDiscard())
            return false;
    }
}

bool AccessUserWizard::askWhetherToDiscard()
{
    QMessageBox box(QMessageBox::Information, tr("Discard"), tr("Discard changes?"),
                    QMessageBox::Ok | QMessageBox::Cancel, parentWidget());
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    box.button(QMessageBox::Cancel)->setText(tr("Cancel"));
    return box.exec() == QMessageBox::Ok;
}

void AccessUserWizard::setValuesToOperator(OperatorModel oper)
{
    oper->setPasswordHash(m_passwordHash);
    oper->setSalt(m_salt);
    oper->setOrganization(m_organization);
    oper->setDepartment(m_department);
    if (m_lastName)
        oper->setLastName(m_lastName->text());
    if (m_middleName)
        oper->setMiddleName(m_middleName->text());
    if (m_firstName)
        oper->setFirstName(m_firstName->text());
    if (m_username)
        oper->setUsername(m_username->text());
}

void AccessUserWizard::setSavable(bool savable, const QString &reason)
{
    m_saveButton->setEnabled(savable);
    m_saveButton->setToolTip(reason);
}

/// The buttons come after everything else, also with the tabulator key.
void AccessUserWizard::putButtonsBehind(QWidget *last)
{
    setTabOrder(last, m_saveButton);
    setTabOrder(m_saveButton, m_removeButton);
}

/// Takes the size that what is shown needs. An open dialog that grows stays on the screen.
void AccessUserWizard::fitToContents()
{
    m_layout->activate();
    adjustSize();
    if (!isVisible())
        return;
    const QRect room = screen()->availableGeometry();
    QRect frame = frameGeometry();
    frame.moveLeft(qMax(room.left(), qMin(frame.left(), room.right() - frame.width())));
    frame.moveTop(qMax(room.top(), qMin(frame.top(), room.bottom() - frame.height())));
    if (frame.topLeft() != frameGeometry().topLeft())
        move(frame.topLeft());
}
