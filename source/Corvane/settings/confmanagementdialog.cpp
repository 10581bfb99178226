#include "Corvane/settings/confmanagementdialog.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/settings/connectionarea.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTextCursor>
#include <QTextOption>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int kWidth = 480;
constexpr int kFoldedHeight = 320;
constexpr int kSideMargin = 6;
constexpr int kEdgeMargin = 2;
constexpr int kHorizontalSpacing = 10;
constexpr int kStretch = 10;
constexpr int kAreaHeight = 300;
constexpr int kNotesHeight = 100;
constexpr int kColumns = 6;

// Rows of the grid; stretching ones stand between the parts.
constexpr int kListLabelRow = 0;
constexpr int kListRow = 1;
constexpr int kNotesLabelRow = 3;
constexpr int kNotesRow = 4;
constexpr int kNotesRows = 3;
constexpr int kToolRow = 8;
constexpr int kAreaRow = 10;
constexpr int kAreaRows = 6;
constexpr int kButtonRow = 17;
constexpr int kStretchRows[] = {2, 7, 9, 16};

constexpr int kListFirst = 0;
constexpr int kPause = 500;  // milliseconds between two requests for a list that was empty

}  // namespace

ConfManagementDialog::ConfManagementDialog(const QString &dataPath, QString *username, QString *password,
                                           QWidget *parent)
    : SettingsDatabaseDialog(dataPath, username, password, parent)
    , m_layout(new QGridLayout(this))
{
    setObjectName(QStringLiteral("configuration_management"));
    setFixedSize(kWidth, kFoldedHeight);
    readConnection(true);
    buildUi();
    updateTexts();
    connectStore();
    m_cancelButton->setFocus();
    if (!username->isEmpty() && !password->isEmpty())
        handleToolClicked();
}

void ConfManagementDialog::buildUi()
{
    m_layout->setContentsMargins(kSideMargin, kEdgeMargin, kSideMargin, kEdgeMargin);
    m_layout->setVerticalSpacing(0);
    m_layout->setHorizontalSpacing(kHorizontalSpacing);
    for (int row : kStretchRows)
        m_layout->setRowStretch(row, kStretch);
    buildList();
    buildConnection();
    buildButtons();
}

void ConfManagementDialog::buildList()
{
    m_listLabel = new QLabel(this);
    m_listLabel->setFixedHeight(FormParts::kLabelHeight);
    m_layout->addWidget(m_listLabel, kListLabelRow, 0, 1, kColumns);
    m_list = new QComboBox(this);
    m_list->setObjectName(QStringLiteral("configuration_list"));
    m_list->setFixedHeight(FormParts::kFieldHeight);
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_layout->addWidget(m_list, kListRow, 0, 1, kColumns);
    m_notesLabel = new QLabel(this);
    m_notesLabel->setFixedHeight(FormParts::kLabelHeight);
    m_layout->addWidget(m_notesLabel, kNotesLabelRow, 0, 1, kColumns);
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("configuration_notes"));
    m_notes->setFixedHeight(kNotesHeight);
    m_notes->setReadOnly(true);
    m_notes->setWordWrapMode(QTextOption::WordWrap);
    m_notes->setTabChangesFocus(true);
    m_layout->addWidget(m_notes, kNotesRow, 0, kNotesRows, kColumns);
    setListEnabled(false);
    connect(m_list, SIGNAL(currentIndexChanged(int)), this, SLOT(showNotes(int)));
}

// The rows of buttons share their width as their texts need it in the language at hand.
void ConfManagementDialog::buildConnection()
{
    auto *tools = new QHBoxLayout;
    m_layout->addLayout(tools, kToolRow, 0, 1, kColumns);
    m_connectButton = addToolButton("connect_button", SLOT(handleToolClicked()));
    tools->addWidget(m_connectButton);
    tools->addStretch();
    m_optionsButton = addToolButton("options_button", SLOT(toggleDbGroup()));
    tools->addWidget(m_optionsButton);
    m_area = makeConnectionArea(kWidth - 2 * kSideMargin);
    m_area->setMinimumHeight(kAreaHeight);
    m_area->hide();
    m_layout->addWidget(m_area, kAreaRow, 0, kAreaRows, kColumns);
}

void ConfManagementDialog::buildButtons()
{
    auto *buttons = new QHBoxLayout;
    m_layout->addLayout(buttons, kButtonRow, 0, 1, kColumns);
    m_loadButton = addButton("load_button", SLOT(handleLoadClicked()));
    buttons->addWidget(m_loadButton);
    buttons->addStretch();
    m_deleteButton = addButton("delete_button", SLOT(handleDeleteClicked()));
    buttons->addWidget(m_deleteButton);
    buttons->addStretch();
    m_cancelButton = addButton("cancel_button", SLOT(handleCancelClicked()));
    buttons->addWidget(m_cancelButton);
    setChoiceEnabled(false);
}

QToolButton *ConfManagementDialog::addToolButton(const char *name, const char *slot)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setFixedHeight(FormParts::kButtonHeight);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

QPushButton *ConfManagementDialog::addButton(const char *name, const char *slot)
{
    auto *button = new QPushButton(this);
    button->setObjectName(QLatin1String(name));
    button->setFixedHeight(FormParts::kButtonHeight);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

void ConfManagementDialog::connectStore()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    connect(this, SIGNAL(requestIdList(int, bool)), store, SIGNAL(requestIDs(int, bool)),
            Qt::QueuedConnection);
    connect(this, SIGNAL(requestDelete(int)), store, SIGNAL(requestDelete(int)), Qt::QueuedConnection);
    connect(this, SIGNAL(requestActive()), store, SIGNAL(requestActiveId()), Qt::QueuedConnection);
    connect(store, SIGNAL(onlineNotesReady(bool)), this, SLOT(showList(bool)), Qt::QueuedConnection);
    connect(store, SIGNAL(onlineReconnected(bool)), this, SLOT(reconnected(bool)), Qt::QueuedConnection);
    connect(store, SIGNAL(settingsDeletedOnline(int, OnlineSettings::QueryError)), this,
            SLOT(deleteDone(int, OnlineSettings::QueryError)), Qt::QueuedConnection);
    connect(store, SIGNAL(activeOnlineId(int)), this, SLOT(markActive(int)), Qt::QueuedConnection);
}

void ConfManagementDialog::updateTexts()
{
    setWindowTitle(tr("Settings configuration management"));
    FormParts::setLabelText(m_listLabel, m_list, tr("Select settings configuration"));
    FormParts::setLabelText(m_notesLabel, m_notes, tr("Configuration notes"));
    m_connectButton->setText(m_connected ? tr("Connected - reconnect") : tr("No connection - connect"));
    updateOptionsText();
    m_loadButton->setText(tr("Load configuration"));
    m_deleteButton->setText(tr("Delete configuration"));
    m_cancelButton->setText(tr("Cancel"));
}

void ConfManagementDialog::updateOptionsText()
{
    m_optionsButton->setText(m_area->isHidden() ? tr("Show connection options")
                                                : tr("Hide connection options"));
}

void ConfManagementDialog::handleToolClicked()
{
    SettingsHandler::getInstance()->callOnlineInit();
    m_sinceRequest.invalidate();
    restFocus({m_list, m_notes, m_loadButton, m_deleteButton});
    setListEnabled(false);
    m_notes->clear();
    setChoiceEnabled(false);
    m_list->clear();
    saveConnection();
    showConnecting(tr("Connecting..."));
    emit requestReconnect(connectionSettings());
}

void ConfManagementDialog::showConnecting(const QString &text)
{
    m_connected = false;
    restFocus({m_connectButton});
    m_connectButton->setEnabled(false);
    m_connectButton->setText(text);
}

void ConfManagementDialog::reconnected(bool ok)
{
    if (isClosed())
        return;
    if (ok)
        sendIdRequest();
    m_connected = ok;
    m_connectButton->setEnabled(true);
    updateTexts();
    returnFocus();
}

// A database without configurations is asked until it has some, in a measured way.
void ConfManagementDialog::sendIdRequest()
{
    showConnecting(tr("Connecting") + QStringLiteral("..."));
    const qint64 pause = m_sinceRequest.isValid() ? kPause - m_sinceRequest.elapsed() : 0;
    if (pause > 0)
        QTimer::singleShot(static_cast<int>(pause), this, [this] { requestList(); });
    else
        requestList();
}

void ConfManagementDialog::requestList()
{
    m_sinceRequest.start();
    emit requestIdList(kListFirst, true);
}

void ConfManagementDialog::showList(bool listReadable)
{
    if (isClosed())
        return;
    m_connectButton->setEnabled(true);
    m_connected = true;
    updateTexts();
    if (m_list->isEnabled() || !listReadable) {
        returnFocus();
        return;
    }
    if (SettingsHandler::getInstance()->getOnlineNotesList().isEmpty()) {
        saveConnection();
        sendIdRequest();
        return;
    }
    if (m_list->count() == 0)
        fillList();
    setListEnabled(true);
    setChoiceEnabled(true);
    returnFocus();
}

void ConfManagementDialog::fillList()
{
    m_notesById = SettingsHandler::getInstance()->getOnlineNotesList();
    for (auto entry = m_notesById.cend(); entry != m_notesById.cbegin();) {
        --entry;
        m_list->addItem(
            tr("%1 Created %2 by %3")
                .arg(QString::number(entry.key()), entry->timestamp + QStringLiteral(" (UTC)"), entry->user),
            entry.key());
    }
    showNotes(0);
    emit requestActive();
}

void ConfManagementDialog::showNotes(int index)
{
    m_notes->setPlainText(m_notesById.value(m_list->itemData(index).toInt()).notes);
    m_notes->moveCursor(QTextCursor::Start);
    showWholeTexts();
}

void ConfManagementDialog::markActive(int id)
{
    const int index = m_list->findData(id, Qt::UserRole, Qt::MatchExactly);
    if (isClosed() || index < 0)
        return;
    m_list->setItemText(index, m_list->itemText(index) + QStringLiteral(" - ") + tr("Active in database"));
    m_list->setCurrentIndex(index);
    showWholeTexts();
}

/// Texts that are too long for the box are whole in its list and in its tip.
void ConfManagementDialog::showWholeTexts()
{
    const QString text = m_list->currentText();
    m_list->setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text));
    QAbstractItemView *view = m_list->view();
    view->setMinimumWidth(view->sizeHintForColumn(0) +
                          view->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

void ConfManagementDialog::setListEnabled(bool enabled)
{
    m_list->setEnabled(enabled);
    m_notes->setEnabled(enabled);
}

void ConfManagementDialog::setChoiceEnabled(bool enabled)
{
    // There is nothing to choose once the last configuration was deleted.
    m_loadButton->setEnabled(enabled && m_list->count() > 0);
    m_deleteButton->setEnabled(enabled && m_list->count() > 0);
}

int ConfManagementDialog::currentId() const
{
    return m_list->currentData().toInt();
}

void ConfManagementDialog::handleLoadClicked()
{
    // A second click that was on its way: loading twice would leave nothing to go back to.
    if (isClosed())
        return;
    saveConnection();
    emit loadTag(m_list->currentText());
    bool isLoaded = false;
    {
        const WaitCursor cursor;
        isLoaded = SettingsHandler::getInstance()->getOnlineSettings(currentId());
    }
    if (isLoaded)
        emit loaded();
    m_loadedFlag = true;
    handleCancelClicked();
}

void ConfManagementDialog::handleDeleteClicked()
{
    QMessageBox box(QMessageBox::Information, tr("Deleting settings"),
                    tr("Deleting from database:") + QLatin1Char('\n') + m_list->currentText(),
                    QMessageBox::Ok | QMessageBox::Cancel, this);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Ok)->setText(tr("OK"));
    box.button(QMessageBox::Cancel)->setText(tr("Cancel"));
    const int id = currentId();
    if (box.exec() != QMessageBox::Ok)
        return;
    // The mark of the active configuration may have come meanwhile and moved the choice.
    m_list->setCurrentIndex(m_list->findData(id));
    // Not the button, where a key that is held down would delete one configuration after the other.
    restFocus({m_loadButton, m_deleteButton}, m_list);
    setChoiceEnabled(false);
    emit requestDelete(currentId());
}

void ConfManagementDialog::deleteDone(int id, OnlineSettings::QueryError error)
{
    if (isClosed())
        return;
    setChoiceEnabled(true);
    returnFocus();
    if (error == OnlineSettings::Success && id == currentId()) {
        removeCurrent();
        return;
    }
    CORVANE_LOG(Logger::Warning, Logger::Console, "ConfManagementDialog::deleteDone",
                QStringLiteral("Settings configuration delete not ok"));
    QString reason;
    switch (error) {
    case OnlineSettings::ConfigurationActive:
        reason = tr("Cannot delete active configuration");
        break;
    case OnlineSettings::NoRights:
        reason = tr("Settings configuration was not deleted");
        break;
    case OnlineSettings::UnusableId:
        reason = tr("Could not delete settings configuration");
        handleToolClicked();
        break;
    default:
        reason = tr("Check connection options and try again");
        handleToolClicked();
        break;
    }
    emit logError(Actions::DeleteSettings, ZephanErrors::kDeletingFailed,
                  QStringLiteral("OnlineSettingsError: ") + QString::number(error));
    showDeleteFailure(reason);
}

void ConfManagementDialog::removeCurrent()
{
    const int index = m_list->currentIndex();
    m_list->removeItem(index);
    m_list->setCurrentIndex(qMin(index, m_list->count() - 1));
    showNotes(m_list->currentIndex());
    setChoiceEnabled(true);
}

void ConfManagementDialog::showDeleteFailure(const QString &reason)
{
    QMessageBox box(QMessageBox::Warning, tr("Deleting configuration failed"),
                    tr("Deleting settings configuration from database was unsuccessful.") +
                        QLatin1Char('\n') + reason,
                    QMessageBox::NoButton, this);
    box.addButton(tr("Ok"), QMessageBox::AcceptRole);
    box.exec();
}

void ConfManagementDialog::handleCancelClicked()
{
    rememberConnection();
    close();
}

bool ConfManagementDialog::restoresSettings() const
{
    return !m_loadedFlag;
}

void ConfManagementDialog::toggleDbGroup()
{
    m_area->setVisible(m_area->isHidden());
    updateOptionsText();
    setFixedHeight(m_area->isHidden() ? kFoldedHeight : kFoldedHeight + m_area->minimumHeight());
}
