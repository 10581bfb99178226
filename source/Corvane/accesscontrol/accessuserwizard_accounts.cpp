#include "Corvane/accesscontrol/accessuserwizard.h"

#include "CommunicationAndData/access/accessmethodsystem.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/widgets/onelinevalidator.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int kManualIndex = 0;
constexpr int kColumnLength = 20;  // accounts, about
constexpr double kMostOfScreenWidth = 0.85;
constexpr double kMostOfScreenHeight = 0.7;

const char *const kAccountProperty = "account";

/// A text on a button without a shortcut in it.
QString withoutShortcut(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

void AccessUserWizard::setupDomainPicker(const QStringList &domains, bool isGroup)
{
    m_isGroup = isGroup;
    setWindowTitle(isGroup ? tr("Windows group") : tr("Windows user"));
    addDomains(domains);
    connect(m_domainCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(domainChanged(int)));
    m_domainCombo->show();
    domainChanged(m_domainCombo->currentIndex());
}

void AccessUserWizard::addDomains(const QStringList &domains)
{
    const WaitCursor wait;
    m_domainCombo->addItem(tr("Enter name manually"), QString());
    m_domainCombo->addItem(tr("Local computer"), QString());
    for (const QString &server : domains) {
        const QString domain = getDomainName(server);
        if (domain.isEmpty())
            m_domainCombo->addItem(server);
        else
            m_domainCombo->addItem(domain, server);
    }
}

void AccessUserWizard::domainChanged(int index)
{
    if (index == kManualIndex) {
        setManualEntry();
        return;
    }
    if (m_manualEdit)
        m_manualEdit->clear();
    m_manualWidget->hide();
    const QString server = m_domainCombo->itemData(index).toString();
    if (m_isGroup)
        listWindowsGroups(server);
    else
        listWindowsUsers(server);
}

void AccessUserWizard::setManualEntry()
{
    m_accountBox->hide();
    if (!m_manualEdit)
        buildManualEntry();
    m_saveButton->setEnabled(false);
    m_manualWidget->show();
    m_saveButton->show();
    fitToContents();
}

void AccessUserWizard::buildManualEntry()
{
    m_manualEdit = new QLineEdit(m_manualWidget);
    new OneLineValidator(m_manualEdit);
    m_manualEdit->setObjectName(QStringLiteral("manual_edit"));
    m_manualEdit->setFixedHeight(FormParts::kFieldHeight);
    connect(m_manualEdit, SIGNAL(textChanged(QString)), this, SLOT(customEdited(QString)));
    auto *label = new QLabel(m_manualWidget);
    label->setFixedHeight(FormParts::kLabelHeight);
    FormParts::setLabelText(
        label, m_manualEdit,
        QStringLiteral("%1\\%4 %3 %2\\%4")
            .arg(tr("COMPUTER"), tr("DOMAIN"), tr("OR"), m_isGroup ? tr("GROUP") : tr("USER")));
    auto *layout = new QVBoxLayout(m_manualWidget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_manualEdit);
    putButtonsBehind(m_manualEdit);
}

void AccessUserWizard::listWindowsGroups(const QString &server)
{
    m_accountBox->setTitle(tr("Select a Windows group"));
    listAccounts(getSystemGroups, server);
}

void AccessUserWizard::listWindowsUsers(const QString &server)
{
    m_accountBox->setTitle(tr("Select a Windows user"));
    listAccounts(getSystemUsers, server);
}

void AccessUserWizard::listAccounts(QStringList (*accounts)(const QString &), const QString &server)
{
    const WaitCursor wait;
    m_accountBox->hide();
    m_radioButtons.clear();
    m_saveButton->setEnabled(false);
    repaint();  // without the list of domains, which has closed, while the system is asked
    m_accountArea->setWidget(makeAccountGrid(accounts(server)));  // the old buttons go with the old grid
    m_accountArea->widget()->setAutoFillBackground(false);
    m_accountBox->show();
    fitAccountBox();
    fitToContents();
    m_saveButton->show();
}

/// Radio buttons from top to bottom, in as many columns as keep each at about `kColumnLength`.
QWidget *AccessUserWizard::makeAccountGrid(const QStringList &accounts)
{
    auto *content = new QWidget;
    auto *grid = new QGridLayout(content);
    const int rows = accounts.size() / (accounts.size() / kColumnLength + 1);
    for (const QString &account : accounts) {
        const int place = m_radioButtons.size();
        QRadioButton *button = makeAccountButton(account, content);
        button->setObjectName(QStringLiteral("account_%1").arg(place));
        grid->addWidget(button, place % rows, place / rows);
        m_radioButtons.append(button);
    }
    grid->setRowStretch(rows, 1);
    return content;
}

QRadioButton *AccessUserWizard::makeAccountButton(const QString &account, QWidget *content)
{
    auto *button = new QRadioButton(withoutShortcut(account), content);
    button->setProperty(kAccountProperty, account);
    connect(button, SIGNAL(pressed()), this, SLOT(userSelected()));
    // A press that ends beside the button has chosen nothing.
    connect(button, &QRadioButton::released, this,
            [this] { m_saveButton->setEnabled(!chosenAccountName().isEmpty()); });
    // The keyboard and a screen reader choose without pressing.
    connect(button, &QRadioButton::toggled, this, [this, button](bool checked) {
        m_accountArea->ensureWidgetVisible(button);
        if (checked)
            userSelected();
    });
    return button;
}

/// Shows all accounts where the screen has room for them, and otherwise as many as fit.
void AccessUserWizard::fitAccountBox()
{
    const QSize wanted = m_accountArea->widget()->sizeHint();
    const QSize room = screen()->availableSize();
    const QSize most(int(room.width() * kMostOfScreenWidth), int(room.height() * kMostOfScreenHeight));
    QSize size = wanted.boundedTo(most);
    const int bar = m_accountArea->verticalScrollBar()->sizeHint().width();
    if (wanted.height() > most.height())
        size.rwidth() += bar;
    if (wanted.width() > most.width())
        size.rheight() += bar;
    m_accountArea->setMinimumSize(size);
    m_accountBox->adjustSize();
    putButtonsBehind(m_radioButtons.isEmpty() ? static_cast<QWidget *>(m_domainCombo)
                                              : m_radioButtons.last());
}

void AccessUserWizard::userSelected()
{
    m_saveButton->setEnabled(true);
}

void AccessUserWizard::customEdited(QString text)
{
    m_changed = !text.isEmpty();
    m_saveButton->setEnabled(m_changed);
}

QString AccessUserWizard::chosenAccountName() const
{
    if (m_manualEdit && !m_manualEdit->text().isEmpty())
        return m_manualEdit->text().toUpper();
    for (const QRadioButton *button : m_radioButtons) {
        if (button->isChecked())
            return button->property(kAccountProperty).toString().toUpper();
    }
    return QStringLiteral("");
}
