#include "Corvane/views/loginview.h"

#include "CommunicationAndData/access/accessmethodsystem.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/productlabel.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/widgets/clickablelineedit.h"
#include "ZephanShared/widgets/fittedtext.h"
#include "ZephanShared/widgets/onelinevalidator.h"
#include "ZephanShared/widgets/returnkey.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

constexpr QSize kFieldSize(250, 30);
constexpr int kProductWidth = 300;
constexpr int kSelectionSpacing = 3;
constexpr int kStretch = 5;
constexpr int kPageStretch = 10;

// How labels and boxes share the spare height.
constexpr int kLabelStretch = 64;
constexpr int kComboStretch = 32;

/// A box in which a choice signs in at once: a turn of the wheel is none.
class LoginCombo : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        event->ignore();
    }
};

/// The account without its domain.
QString accountName(const QString &user)
{
    return user.section(QLatin1Char('\\'), -1);
}

}  // namespace

LoginView::LoginView(SupportConnectionHandler *handler, QTranslator *translator, QWidget *parent)
    : BaseView(parent)
    , m_layout(new QVBoxLayout(this))
    , m_pages(new QStackedLayout)
    , m_handler(handler)
    , m_translator(translator)
{
    setObjectName(QStringLiteral("login_view"));
    readCurrentUser();

    m_selectionPage = createSelectionPage();
    m_pages->addWidget(m_selectionPage);
    m_statusLabel = createLabel(QStringLiteral("status_label"), Qt::AlignLeft | Qt::AlignVCenter);
    m_statusLabel->setWordWrap(true);
    setSelectionTexts();

    m_layout->addStretch(kStretch);
    m_layout->addWidget(
        new ProductLabel(QStringLiteral(":/resources/halvorn_logo.png"), tr("Corvane"), kProductWidth, this),
        kStretch, Qt::AlignHCenter | Qt::AlignTop);
    m_layout->addStretch(kStretch);
    // A stacked layout has no alignment of its own.
    auto *pages = new QWidget(this);
    pages->setObjectName(QStringLiteral("login_pages"));
    pages->setLayout(m_pages);
    m_layout->addWidget(pages, kPageStretch, Qt::AlignHCenter);
    m_layout->addStretch(kStretch);
    m_layout->addWidget(m_statusLabel, kLabelStretch, Qt::AlignHCenter);

    if (m_handler)
        m_handler->setOfflineAllowed(false);
    buildLanguageSelector();
}

void LoginView::updateTexts()
{
    if (m_signInPage) {
        m_signInButton->setText(tr("Sign in"));
        m_usernameEdit->setPlaceholderText(tr("Enter username"));
        m_passwordEdit->setPlaceholderText(tr("Enter password"));
        m_usernameEdit->setAccessibleName(tr("Username"));
        m_passwordEdit->setAccessibleName(tr("Password"));
        m_statusLabel->clear();
        m_goBackButton->setText(tr("Go back"));
    }
    setSelectionTexts();
    buildLanguageSelector();
}

void LoginView::toIntroduction()
{
    if (m_passwordEdit)
        m_passwordEdit->clear();
    m_pages->setCurrentWidget(m_selectionPage);
    m_windowsAdministratorCombo->setFocus();
}

void LoginView::readCurrentUser()
{
    QString sid;
    QString error;
    m_currentUser = currentUsername(sid, error);
    if (m_currentUser.isEmpty() || !error.isEmpty()) {
        CORVANE_LOG(Logger::Warning, Logger::Console, "LoginView::readCurrentUser",
                    QStringLiteral("Could not get current user: ") + error);
    }
}

QWidget *LoginView::createSelectionPage()
{
    auto *page = new QWidget(this);
    page->setObjectName(QStringLiteral("selection_page"));
    m_headingLabel = createLabel(QStringLiteral("heading_label"), Qt::AlignLeft | Qt::AlignVCenter);
    m_windowsAdministratorLabel =
        createLabel(QStringLiteral("windows_administrator_label"), Qt::AlignLeft | Qt::AlignBottom);
    m_windowsAdministratorCombo = createLoginCombo(QStringLiteral("windows_administrator_combo"));
    m_windowsAdministratorLabel->setBuddy(m_windowsAdministratorCombo);
    m_authenticatedUserLabel =
        createLabel(QStringLiteral("authenticated_user_label"), Qt::AlignLeft | Qt::AlignBottom);
    m_authenticatedUserCombo = createLoginCombo(QStringLiteral("authenticated_user_combo"));
    m_authenticatedUserLabel->setBuddy(m_authenticatedUserCombo);

    auto *layout = new QVBoxLayout(page);
    layout->setSpacing(kSelectionSpacing);
    layout->addWidget(m_headingLabel, kLabelStretch);
    layout->addStretch(kPageStretch);
    layout->addWidget(m_windowsAdministratorLabel, kLabelStretch);
    layout->addWidget(m_windowsAdministratorCombo, kComboStretch);
    layout->addStretch(kPageStretch);
    layout->addWidget(m_authenticatedUserLabel, kLabelStretch);
    layout->addWidget(m_authenticatedUserCombo, kComboStretch);
    return page;
}

QWidget *LoginView::createSignInPage()
{
    auto *page = new QWidget(this);
    page->setObjectName(QStringLiteral("sign_in_page"));
    m_usernameEdit = createField(QStringLiteral("username_edit"));
    m_usernameEdit->setPlaceholderText(tr("Username"));
    m_usernameEdit->setAccessibleName(tr("Username"));
    m_passwordEdit = createField(QStringLiteral("password_edit"));
    m_passwordEdit->setEchoMode(QLineEdit::Password);
    m_passwordEdit->setPlaceholderText(tr("Password"));
    m_passwordEdit->setAccessibleName(tr("Password"));
    m_signInButton = new QPushButton(tr("Sign in"), this);
    m_signInButton->setObjectName(QStringLiteral("sign_in_button"));
    m_signInButton->setFixedSize(kFieldSize);
    m_goBackButton = new QPushButton(tr("Go back"), this);
    m_goBackButton->setObjectName(QStringLiteral("go_back_button"));
    connect(m_goBackButton, SIGNAL(clicked()), this, SLOT(toIntroduction()));
    for (QPushButton *button : {m_signInButton, m_goBackButton})
        clickByReturn(button);

    auto *layout = new QVBoxLayout(page);
    layout->addWidget(m_usernameEdit);
    layout->addWidget(m_passwordEdit);
    layout->addWidget(m_signInButton);
    layout->addStretch(kPageStretch);
    layout->addWidget(m_goBackButton, 0, Qt::AlignLeft);
    return page;
}

QLabel *LoginView::createLabel(const QString &name, Qt::Alignment alignment)
{
    auto *label = new QLabel(this);
    label->setObjectName(name);
    label->setFixedSize(kFieldSize);
    label->setAlignment(alignment);
    return label;
}

QComboBox *LoginView::createLoginCombo(const QString &name)
{
    auto *combo = new LoginCombo(this);
    combo->setObjectName(name);
    combo->setFixedSize(kFieldSize);
    combo->addItems({QString(), QString()});
    combo->setCurrentIndex(-1);
    connect(combo, SIGNAL(activated(int)), this, SLOT(switchLogin()));
    return combo;
}

ClickableLineEdit *LoginView::createField(const QString &name)
{
    auto *field = new ClickableLineEdit(this);
    new OneLineValidator(field);
    takeReturnOnce(field);  // after a few tries with a wrong password an account is locked
    field->setObjectName(name);
    field->setFixedSize(kFieldSize);
    return field;
}

void LoginView::setSelectionTexts()
{
    m_headingLabel->setText(QStringLiteral("<b>%1:</b>").arg(tr("Select to login as")));
    m_windowsAdministratorLabel->setText(tr("Windows administrator") + QLatin1Char(':'));
    m_windowsAdministratorCombo->setAccessibleName(tr("Windows administrator"));
    m_windowsAdministratorCombo->setItemText(0, tr("Current user") + QLatin1Char(' ') +
                                                    accountName(m_currentUser));
    m_windowsAdministratorCombo->setItemText(1, tr("Other user"));
    m_authenticatedUserLabel->setText(tr("Authenticated user") + QLatin1Char(':'));
    m_authenticatedUserCombo->setAccessibleName(tr("Authenticated user"));
    m_authenticatedUserCombo->setItemText(0, tr("Windows user"));
    m_authenticatedUserCombo->setItemText(1, tr("Application internal user"));
}

/// Sets the status and paints it at once, since what follows may block.
void LoginView::showStatus(const QString &text)
{
    showFitted(*m_statusLabel, text);
    m_statusLabel->repaint();
}
