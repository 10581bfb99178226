#include "Corvane/accesscontrol/accessuserwizard.h"

#include "CommunicationAndData/access/passwordhelper.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/widgets/combowithuuid.h"
#include "ZephanShared/widgets/onelinevalidator.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int kLabelWidth = 100;
constexpr int kFieldWidth = 200;
constexpr int kFillerLength = 6;

// Stands in the field of a password that is kept elsewhere; nothing reads it.
const QString kSystemPassword = QStringLiteral("systempassword");

}  // namespace

void AccessUserWizard::setupOperatorForm(const OperatorModel &oper, bool managed,
                                         const Organizations &organizations, const Departments &departments)
{
    if (oper->operatorType() == OperatorModelData::WindowsGroup) {
        showGroup();
        return;
    }
    setWindowTitle(managed ? tr("Internal user") : tr("Windows user"));
    m_accountBox->hide();
    m_manualWidget->hide();
    m_domainCombo->hide();
    m_salt = oper->salt();
    m_passwordHash = oper->passwordHash();
    m_confirmHash = m_passwordHash;
    if (m_passwordHash.isEmpty())
        setSavable(false, tr("Username and Password cannot be empty"));
    addNames(oper);
    addPlaces(oper, organizations, departments);
    addCredentials(oper, managed);
    fitToContents();
    m_saveButton->show();
    m_lastName->setFocus();
}

void AccessUserWizard::showGroup()
{
    setWindowTitle(tr("Windows group"));
    setMinimumWidth(kLabelWidth + kFieldWidth);
    m_saveButton->hide();
    m_removeButton->setText(tr("Remove group"));
    m_removeButton->setToolTip(tr("Associations to the roles will be removed."));
}

void AccessUserWizard::addNames(const OperatorModel &oper)
{
    m_lastName = addEdit(LastName, "last_name_edit", oper->lastName());
    m_middleName = addEdit(MiddleName, "middle_name_edit", oper->middleName());
    m_firstName = addEdit(FirstName, "first_name_edit", oper->firstName());
}

void AccessUserWizard::addPlaces(const OperatorModel &oper, const Organizations &organizations,
                                 const Departments &departments)
{
    addPlace(Organization, "organization_combo", organizations, oper->organization(),
             SLOT(setOrganization(MappedStrings)));
    QMap<UuidString, QString> names;
    for (const UuidString &id : departments.uniqueKeys())
        names.insert(id, departments.values(id).constLast());
    addPlace(Department, "department_combo", names, oper->department(), SLOT(setDepartment(MappedStrings)));
    // A list that could not be loaded offers nothing to choose, and takes nothing away either.
    if (organizations.isEmpty())
        m_organization = oper->organization();
    if (names.isEmpty())
        m_department = oper->department();
}

void AccessUserWizard::addCredentials(const OperatorModel &oper, bool managed)
{
    m_username = addEdit(Username, "username_edit", oper->username());
    m_username->setEnabled(managed);
    connect(m_username, SIGNAL(textEdited(QString)), this, SLOT(CheckPasswordAndUsername()));

    QString shown = kSystemPassword;
    if (managed)
        shown = m_filler = m_passwordHash.isEmpty() ? QString() : PasswordHelper::generateSalt(kFillerLength);
    else
        setSavable(true);
    m_password = addPasswordEdit(Password, "password_edit", shown, managed);
    connect(m_password, SIGNAL(textChanged(QString)), this, SLOT(passwordEdited(QString)));
    QLineEdit *confirm = addPasswordEdit(ConfirmPassword, "confirm_edit", shown, managed);
    connect(confirm, SIGNAL(textChanged(QString)), this, SLOT(passwordConfirmEdited(QString)));
    putButtonsBehind(confirm);
}

QLineEdit *AccessUserWizard::addEdit(int field, const char *name, const QString &text)
{
    auto *edit = new QLineEdit(text, this);
    new OneLineValidator(edit);
    edit->setObjectName(QLatin1String(name));
    edit->setCursorPosition(0);
    connect(edit, SIGNAL(textEdited(QString)), this, SLOT(userEdited()));
    addRow(field, edit);
    return edit;
}

QLineEdit *AccessUserWizard::addPasswordEdit(int field, const char *name, const QString &shown, bool managed)
{
    QLineEdit *edit = addEdit(field, name, QString());
    edit->setEchoMode(managed ? QLineEdit::PasswordEchoOnEdit : QLineEdit::Password);
    edit->setText(shown);
    edit->setEnabled(managed);
    edit->installEventFilter(this);
    return edit;
}

// A field with a password would be emptied by Escape, and by no other key that goes on to the dialog. What is
// pasted replaces the filler whole, as what is typed does.
bool AccessUserWizard::eventFilter(QObject *watched, QEvent *event)
{
    auto *edit = qobject_cast<QLineEdit *>(watched);
    if (edit && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->ignore();
        return true;
    }
    const bool entered = event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonRelease;
    if (edit && entered && !m_filler.isEmpty() && edit->text() == m_filler)
        QMetaObject::invokeMethod(edit, &QLineEdit::selectAll, Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

void AccessUserWizard::addPlace(int field, const char *name, const Organizations &places,
                                const MappedStrings &present, const char *slot)
{
    auto *combo = new ComboWithUuid(this);
    combo->setObjectName(QLatin1String(name));
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(combo, SIGNAL(currentItemChanged(MappedStrings)), this, slot);
    combo->addItem(QString(), UuidString().toString());
    for (auto place = places.cbegin(); place != places.cend(); ++place)
        combo->addItem(place.value(), place.key().toString());
    combo->setCurrentIndex(qMax(0, combo->findData(present.key.toString())));
    connect(combo, SIGNAL(currentIndexChanged(int)), this, SLOT(userEdited()));
    addRow(field, combo);
}

void AccessUserWizard::addRow(int field, QWidget *widget)
{
    auto *label = new QLabel(this);
    label->setMinimumWidth(kLabelWidth);
    label->setFixedHeight(FormParts::kLabelHeight);
    widget->setMinimumWidth(kFieldWidth);
    widget->setFixedHeight(FormParts::kFieldHeight);
    FormParts::setLabelText(label, widget, m_fieldLabels.value(field));
    m_form->addWidget(label, field, 0);
    m_form->addWidget(widget, field, 1);
    m_form->setColumnMinimumWidth(0, qMax(m_form->columnMinimumWidth(0), label->sizeHint().width()));
    label->show();  // counts in the size of the dialog, also when that is open
    widget->show();
}

void AccessUserWizard::setOrganization(MappedStrings organization)
{
    m_organization = organization;
}

void AccessUserWizard::setDepartment(MappedStrings department)
{
    m_department = department;
}

void AccessUserWizard::userEdited()
{
    m_changed = true;
}

void AccessUserWizard::passwordEdited(QString password)
{
    m_plainPassword = password;
    m_passwordHash = PasswordHelper::hashPassword(password, m_salt);
    confirmPassword();
}

void AccessUserWizard::passwordConfirmEdited(QString password)
{
    m_confirmHash = PasswordHelper::hashPassword(password, m_salt);
    if (m_confirmHash == m_passwordHash)
        m_plainPassword = password;  // the same text, also where the password itself was not typed again
    confirmPassword();
}

void AccessUserWizard::confirmPassword()
{
    if (m_passwordHash == m_confirmHash) {
        m_salt = PasswordHelper::generateSalt(PasswordHelper::SaltLength);
        m_passwordHash = PasswordHelper::hashPassword(m_plainPassword, m_salt);
        m_confirmHash = m_passwordHash;
        emit setPasswordHash(m_passwordHash);
        emit setSalt(m_salt);
    }
    CheckPasswordAndUsername();
}

void AccessUserWizard::CheckPasswordAndUsername()
{
    if (m_passwordHash != m_confirmHash) {
        setSavable(false, tr("Password does not match with confirmation"));
        return;
    }
    const QString missing = missingText();
    setSavable(missing.isEmpty(), missing);
}

/// Which of the username and the password is missing, as a sentence; empty when none is.
QString AccessUserWizard::missingText() const
{
    QString text;
    int count = 0;
    if (!m_username || m_username->text().isEmpty()) {
        text = tr("Username ");
        count = 1;
    }
    if (!m_password || m_password->text().isEmpty()) {
        if (!text.isEmpty())
            text += tr("and ");
        ++count;
        text += tr("Password ", "If singular, the word starts the sentence, otherwise not.", count);
    }
    if (count == 0)
        return QString();
    return text + tr("cannot be empty.",
                     "Before this can be: \"Username\" , \"Password\" or \"Username and password\"", count);
}
