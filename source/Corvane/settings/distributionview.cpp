#include "Corvane/settings/distributionview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/settings/connectionarea.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/toolkit/plaintime.h"

#include <QCheckBox>
#include <QDateTime>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextOption>

namespace {

constexpr int kWidth = 480;
constexpr int kHeight = 600;
constexpr int kSideMargin = 6;
constexpr int kEdgeMargin = 2;
constexpr int kSpacing = 10;
constexpr int kAreaHeight = 250;
constexpr int kNotesHeight = 100;
constexpr int kStatusHeight = 40;
constexpr int kStretch = 20;
constexpr int kColumns = 3;
constexpr int kTitleColumns = 2;

// Rows of the grid.
enum Row { Title, Area, Gap, Information, Inform, NotesLabel, Notes, Status, Buttons = 9 };

constexpr int kNewConfiguration = 0;
constexpr int kLongestName = 32;
const char *const kNobody = "Admin";
const char *const kTimeFormat = "yyyy-MM-dd hh:mm:ss";

QString advice(OnlineSettings::QueryError error)
{
    switch (error) {
    case OnlineSettings::NoRights:
        return DistributionView::tr("Check user rights and try again.");
    case OnlineSettings::UnusableId:
        return DistributionView::tr("Check configuration ID and try again.");
    default:
        return DistributionView::tr("Check connection options and try again.");
    }
}

}  // namespace

DistributionView::DistributionView(const QString &dataPath, QString *username, QString *password,
                                   QString operatorName, QWidget *parent)
    : SettingsDatabaseDialog(dataPath, username, password, parent)
    , m_layout(new QGridLayout(this))
    , m_operatorName(std::move(operatorName))
{
    setObjectName(QStringLiteral("distribution_view"));
    setFixedSize(kWidth, kHeight);
    readConnection(false);
    buildUi();
    updateTexts();

    SettingsHandler *handler = SettingsHandler::getInstance();
    connect(handler, SIGNAL(onlineReconnected(bool)), this, SLOT(store(bool)), Qt::QueuedConnection);
    connect(handler, SIGNAL(settingsOnlineStoredReady(OnlineSettings::QueryError)), this,
            SLOT(storeReady(OnlineSettings::QueryError)), Qt::QueuedConnection);
    handler->callOnlineInit();
}

void DistributionView::buildUi()
{
    m_layout->setContentsMargins(kSideMargin, kEdgeMargin, kSideMargin, kEdgeMargin);
    m_layout->setSpacing(kSpacing);
    m_title = new QLabel(this);
    m_title->setFixedHeight(FormParts::kLabelHeight);
    FormParts::setBold(m_title);
    m_layout->addWidget(m_title, Title, 0, 1, kTitleColumns);
    ConnectionArea *area = makeConnectionArea(kWidth - 2 * kSideMargin);
    area->setFixedHeight(kAreaHeight);
    m_layout->addWidget(area, Area, 0, 1, kColumns);
    m_layout->setRowStretch(Gap, kStretch);
    buildNotes();
    buildButtons();
}

void DistributionView::buildNotes()
{
    m_informationLabel = new QLabel(this);
    m_informationLabel->setFixedHeight(FormParts::kLabelHeight);
    FormParts::setBold(m_informationLabel);
    m_layout->addWidget(m_informationLabel, Information, 0, 1, kColumns);
    m_inform = new QCheckBox(this);
    m_inform->setObjectName(QStringLiteral("inform_users"));
    m_inform->setFixedHeight(FormParts::kLabelHeight);
    m_layout->addWidget(m_inform, Inform, 0, 1, kColumns);
    m_notesLabel = new QLabel(this);
    m_notesLabel->setFixedHeight(FormParts::kLabelHeight);
    m_layout->addWidget(m_notesLabel, NotesLabel, 0, 1, kColumns);
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("release_notes"));
    m_notes->setFixedHeight(kNotesHeight);
    m_notes->setWordWrapMode(QTextOption::WordWrap);
    m_notes->setTabChangesFocus(true);
    m_layout->addWidget(m_notes, Notes, 0, 1, kColumns);
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("distribution_status"));
    m_status->setFixedHeight(kStatusHeight);
    m_status->setWordWrap(true);
    m_layout->addWidget(m_status, Status, 0, 1, kColumns);
}

void DistributionView::buildButtons()
{
    const auto addButton = [this](const char *name, int column, const char *slot) {
        auto *button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setFixedHeight(FormParts::kButtonHeight);
        m_layout->addWidget(button, Buttons, column);
        connect(button, SIGNAL(clicked()), this, slot);
        return button;
    };
    m_distributeButton = addButton("distribute_button", 0, SLOT(distribute()));
    m_saveButton = addButton("save_button", 1, SLOT(save()));
    m_cancelButton = addButton("cancel_button", 2, SLOT(close()));
    m_cancelButton->setFocus();
}

void DistributionView::updateTexts()
{
    setWindowTitle(tr("Distribute settings"));
    m_title->setText(tr("Options to connect settings database"));
    m_informationLabel->setText(tr("Insert additional configuration information"));
    m_inform->setText(tr("Inform user about settings change"));
    FormParts::setLabelText(m_notesLabel, m_notes, tr("Add configuration release notes") + QLatin1Char(':'));
    m_saveButton->setText(tr("Save to database"));
    m_distributeButton->setText(tr("Distribute to users"));
    m_cancelButton->setText(tr("Cancel"));
}

void DistributionView::distribute()
{
    m_distribute = true;
    save();
}

void DistributionView::save()
{
    setButtonsEnabled(false);
    m_status->setText(tr("Connecting..."));
    saveConnection();
    emit requestReconnect(connectionSettings());
}

void DistributionView::store(bool connected)
{
    if (isClosed())
        return;
    if (connected) {
        m_status->setText(tr("Sending settings..."));
        send();
    } else {
        logFailure(QStringLiteral("No connection to settings database"));
        m_status->setText(tr("Could not connect to database.") + QLatin1Char(' ') +
                          tr("Check connection options and try again."));
        setButtonsEnabled(true);
    }
    m_distribute = false;
}

void DistributionView::send()
{
    SettingsHandler *handler = SettingsHandler::getInstance();
    // Connecting may have changed the working settings.
    handler->restore();
    SettingsAdditionalData record;
    record.notes = m_notes->toPlainText();
    record.timestamp = plainText(QDateTime::currentDateTimeUtc(), QLatin1String(kTimeFormat));
    record.user = m_operatorName.isEmpty() ? QLatin1String(kNobody) : m_operatorName.left(kLongestName);
    handler->storeSettingsOnline(record, kNewConfiguration, m_inform->isChecked(), m_distribute);
}

void DistributionView::storeReady(OnlineSettings::QueryError error)
{
    if (isClosed())
        return;
    if (error == OnlineSettings::Success) {
        proceed();
        return;
    }
    SettingsHandler::getInstance()->store();
    CORVANE_LOG(Logger::Warning, Logger::Console, "DistributionView::storeReady",
                QStringLiteral("Distributing failed"));
    m_status->setText(tr("Settings could not be inserted to database.") + QLatin1Char(' ') + advice(error));
    logFailure(QStringLiteral("Distributing failed, OnlineSettings error: ") + QString::number(error));
    setButtonsEnabled(true);
}

void DistributionView::logFailure(const QString &errorData)
{
    emit logError(Actions::SaveSettings, ZephanErrors::kSettingsNotWritten, errorData);
}

void DistributionView::proceed()
{
    rememberConnection();
    close();
}

void DistributionView::setButtonsEnabled(bool enabled)
{
    const QWidgetList buttons{m_distributeButton, m_saveButton, m_cancelButton};
    if (!enabled)
        restFocus(buttons);
    for (QWidget *button : buttons)
        button->setEnabled(enabled);
    if (enabled)
        returnFocus();
}
