#include "Corvane/views/centralelement.h"

#include "CommunicationAndData/actionlog/communicationanddataengine.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/producttexts.h"
#include "Corvane/views/viewstacker.h"
#include "Corvane/views/zephansplash.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/widgets/returnkey.h"
#include "ZephanShared/widgets/styleprinter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHostInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <cstdlib>

namespace {

constexpr int kFailure = 1;  // exit code
constexpr QSize kIconSize(48, 48);
constexpr int kTitleStretch = 10;
constexpr int kTitleMaximumHeight = 50;
constexpr Qt::WindowFlags kBoxFlags = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint;

// Untranslated: what stands in the audit trail.
constexpr char kStartErrorText[] = "Could not start program. Error code %1";

bool isGoodStart(ZephanError errorCode)
{
    return errorCode == ZephanErrors::kNone || errorCode == ZephanErrors::kActionLogReplaced;
}

/// A box would otherwise come up over the place where its hidden parent is going to be.
void centreOnScreen(QMessageBox &box)
{
    box.move(QGuiApplication::primaryScreen()->availableGeometry().center() -
             QRect(QPoint(), box.sizeHint()).center());
}

void setName(QAbstractButton *button, const QString &name)
{
    button->setAccessibleName(name);
    button->setToolTip(name);
}

}  // namespace

CentralElement::CentralElement(QString dataDirectory, ZephanSplash *splash, QTranslator *translator,
                               QWidget *parent)
    : QWidget(parent)
    , m_splash(splash)
{
    setObjectName(QStringLiteral("central_element"));
    CORVANE_LOG(Logger::Information, Logger::Unnamed, "CentralElement::CentralElement",
                QStringLiteral("Started."));
    m_splash->drawNotice(ProductTexts::makersNotice());
    m_splash->drawDisclaimer(ProductTexts::legalNote());
    activateLocalActionLog(dataDirectory);
    createParts(dataDirectory, translator);
    if (m_engine->initializeEngine(QCoreApplication::applicationName(), true) != ZephanErrors::kNone)
        refuseStart();
}

CentralElement::~CentralElement()
{
    CORVANE_LOG(Logger::Information, Logger::Unnamed, "CentralElement::~CentralElement",
                QStringLiteral("Stopping."));
    delete m_handler;
    m_viewStacker->logExit();
    delete m_viewStacker;
    logShellAction(Actions::Logout);
    logShellAction(Actions::Stopping);
    shutDownEngine();
}

void CentralElement::start(ZephanError errorCode)
{
    restoreSettings();
    m_splash->close();
    if (!isGoodStart(errorCode)) {
        abandonStart(errorCode);
        return;
    }
    connect(m_viewStacker, &ViewStacker::logAction, m_engine.data(), &CommunicationAndDataEngine::logAction);
    connect(m_viewStacker, &ViewStacker::logError, m_engine.data(), &CommunicationAndDataEngine::logError);
    buildHeader();
    connectHeader();
    logShellAction(Actions::Started);
    window()->show();
    m_viewStacker->showLogin();
    CORVANE_LOG(Logger::Information, Logger::Unnamed, "CentralElement::start",
                QStringLiteral("Initialized."));
}

void CentralElement::stop(Actions::Action action, ZephanError error, QVariant errorData)
{
    Q_UNUSED(action)
    disconnect(m_engine, &CommunicationAndDataEngine::engineCriticalError, this, &CentralElement::stop);
    restoreSettings();
    const QString cause = tr("Critical error") + QStringLiteral(": \n") + errorData.toString() +
                          QLatin1Char('\n') + tr("The program will be closed.");
    showWarning(tr("Critical error"),
                QStringLiteral("%1\n%2: %3").arg(cause, tr("Error code"), QString::number(error)), nullptr,
                kBoxFlags);
    std::exit(kFailure);
}

void CentralElement::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}

/// The engine is brought up against a local, active action log. What the store held before comes back in
/// `restoreSettings`.
void CentralElement::activateLocalActionLog(const QString &dataDirectory)
{
    SettingsHandler *settings = SettingsHandler::getInstance();
    settings->store();
    settings->holdChanges();
    m_settingsParked = true;
    settings->setValue(SettingsKeys::kActionLogLocation,
                       nativePath(dataDirectory + QStringLiteral("CorvaneActions/")));
    settings->setValue(SettingsKeys::kActionLogActivated, true);
}

/// Once, whichever way the start ends: later the store holds what has been edited since.
void CentralElement::restoreSettings()
{
    if (!m_settingsParked)
        return;
    m_settingsParked = false;
    SettingsHandler::getInstance()->restore();
}

void CentralElement::createParts(const QString &dataDirectory, QTranslator *translator)
{
    m_handler = new SupportConnectionHandler(dataDirectory, this);
    m_viewStacker = new ViewStacker(dataDirectory, m_handler, translator, nullptr);
    m_engine = new CommunicationAndDataEngine(nullptr);
    connect(m_engine.data(), &CommunicationAndDataEngine::engineCriticalError, this, &CentralElement::stop);
    connect(m_engine.data(), &CommunicationAndDataEngine::engineInitialized, this, &CentralElement::start);
    connect(m_handler, &SupportConnectionHandler::logAction, m_engine.data(),
            &CommunicationAndDataEngine::logAction);
    connect(m_handler, &SupportConnectionHandler::logError, m_engine.data(),
            &CommunicationAndDataEngine::logError);
}

void CentralElement::refuseStart()
{
    restoreSettings();
    showWarning(tr("Error"), tr("Application ran into a problem and cannot start."), this, kBoxFlags);
    CORVANE_LOG(Logger::Error, Logger::Unnamed, "CentralElement::refuseStart",
                QStringLiteral("Start failed."));
    std::exit(kFailure);
}

void CentralElement::abandonStart(ZephanError errorCode)
{
    const QString number = QString::number(errorCode);
    showWarning(tr("Initialisation failed"), tr("Could not start program. Error code %1").arg(number), this,
                kBoxFlags);
    m_engine->logError(Actions::Started, ZephanErrors::kStartFailed,
                       QString::fromLatin1(kStartErrorText).arg(number));
    close();
    deleteLater();
}

void CentralElement::buildHeader()
{
    m_layout = new QVBoxLayout(this);
    m_header = new QHBoxLayout;
    m_layout->addLayout(m_header);
    m_layout->setAlignment(m_header, Qt::AlignLeft);

    m_homeButton = new QPushButton(this);
    m_settingsButton = new QToolButton(this);
    m_accessControlButton = new QToolButton(this);
    m_auditTrailButton = new QToolButton(this);
    m_menuButton = new QToolButton(this);
    addHeaderButton(m_homeButton, QStringLiteral("header_home_button"),
                    QStringLiteral(":/icons/corvane/home_small.png"), SLOT(showIntroduction()));
    addHeaderButton(m_settingsButton, QStringLiteral("header_settings_button"),
                    QStringLiteral(":/icons/corvane/manage_settings_small.png"), SLOT(showSettings()));
    addHeaderButton(m_accessControlButton, QStringLiteral("header_access_control_button"),
                    QStringLiteral(":/icons/corvane/manage_access_control_small.png"),
                    SLOT(showAccesscontrol()));
    addHeaderButton(m_auditTrailButton, QStringLiteral("header_audit_trail_button"),
                    QStringLiteral(":/icons/corvane/audit_trail_small.png"), SLOT(showAuditTrail()));
    addHeaderButton(m_menuButton, QStringLiteral("header_menu_button"), QStringLiteral(":/icons/menu.png"),
                    SLOT(showAbout()));

    // Its own size is that of a button with a text.
    m_homeButton->setFixedSize(m_settingsButton->sizeHint());

    m_title = new QLabel(tr("Title"), this);
    m_title->setObjectName(QStringLiteral("header_title"));
    m_title->setMaximumHeight(kTitleMaximumHeight);
    m_title->setStyleSheet(StylePrinter::titleLabelStyle());
    m_header->addWidget(m_title, kTitleStretch, Qt::AlignRight);
    m_layout->addWidget(m_viewStacker);
    updateTexts();
}

void CentralElement::addHeaderButton(QAbstractButton *button, const QString &name, const QString &icon,
                                     const char *slot)
{
    button->setObjectName(name);
    button->setIcon(QIcon(icon));
    button->setIconSize(kIconSize);
    clickByReturn(button);
    connect(button, SIGNAL(clicked()), m_viewStacker, slot);
    m_header->addWidget(button);
}

void CentralElement::connectHeader()
{
    connect(m_viewStacker, &ViewStacker::disableAccessControlManagement, m_accessControlButton,
            &QWidget::setDisabled);
    connect(m_viewStacker, &ViewStacker::disableAuditTrailViewer, m_auditTrailButton, &QWidget::setDisabled);
    connect(m_viewStacker, &ViewStacker::setOperatorInfo, m_engine.data(),
            &CommunicationAndDataEngine::setOperatorInfo);
    connect(m_viewStacker, &ViewStacker::setSubtitle, m_title, &QLabel::setText);
    const QWidgetList header = {
        m_title, m_homeButton, m_settingsButton, m_accessControlButton, m_auditTrailButton, m_menuButton};
    for (QWidget *widget : header)
        connect(m_viewStacker, &ViewStacker::showPlainHeader, widget, &QWidget::setHidden);
}

void CentralElement::updateTexts()
{
    if (!m_layout)
        return;
    setName(m_homeButton, tr("Home"));
    setName(m_settingsButton, tr("Settings Management"));
    setName(m_accessControlButton, tr("Access Control Management"));
    setName(m_auditTrailButton, tr("Audit Trail Viewer"));
    setName(m_menuButton, tr("About"));
}

void CentralElement::shutDownEngine()
{
    QEventLoop loop;
    connect(m_engine.data(), &CommunicationAndDataEngine::engineShutdown, &loop, &QEventLoop::quit);
    connect(m_engine.data(), &CommunicationAndDataEngine::engineShutdown, m_engine.data(),
            &QObject::deleteLater);
    if (m_engine->shutdownEngine() == ZephanErrors::kNone)
        loop.exec();
    // No event loop may come after this one to carry its deletion out.
    delete m_engine.data();
}

/// An event of the program itself in the audit trail.
void CentralElement::logShellAction(Actions::Action action)
{
    m_engine->logAction(action, Actions::Human, UuidString(), QString(), QHostInfo::localHostName(),
                        QStringLiteral("Corvane"));
}

void CentralElement::showWarning(const QString &title, const QString &text, QWidget *parent,
                                 Qt::WindowFlags flags)
{
    m_splash->hide();  // it would cover the box
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent, flags);
    box.setObjectName(QStringLiteral("start_message"));
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    if (parent && !parent->isVisible())
        centreOnScreen(box);
    box.exec();
}
