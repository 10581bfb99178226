#include "Corvane/accesscontrol/supportconnectionhandler.h"

#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const char *const kOfflineConnection = "supportConnectionHandler";
constexpr int kSupportDatabase = 3;  // the editor's index of the support database
constexpr int kButtonHeight = 30;

/// The directory of a location as the editor holds it, with or without the file's name.
QString directoryOf(QString location)
{
    const QString file = QLatin1String(kOfflineAccessFile);
    if (location.endsWith(file))
        location.chop(file.size());
    return location;
}

}  // namespace

void SupportConnectionHandler::connectionOptions()
{
    if (m_groupEditor)
        return;
    QHBoxLayout *buttonRow = addEditor();
    if (exec() == QDialog::Accepted && !connectAsChosen()) {
        emit logError(Actions::Started, ZephanErrors::kNoConnection,
                      QStringLiteral("Connection failed to access.supportdb"));
        showFailure();
    }
    removeEditor(buttonRow);
    emit reconnected();
}

void SupportConnectionHandler::acceptDatabaseSettings()
{
    if (m_groupEditor && (!m_groupEditor->isOffline() || !m_groupEditor->offlineLocation().isEmpty()))
        accept();
}

QHBoxLayout *SupportConnectionHandler::addEditor()
{
    setWindowTitle(tr("Connection options"));
    m_groupEditor =
        new DatabaseGroupSettings(kSupportDatabase, true, false, m_offlineAllowed, &m_connectionValues, this);
    auto *connectButton = new QPushButton(isConnected() ? tr("Reconnect") : tr("Connect"), this);
    connectButton->setObjectName(QStringLiteral("connect_button"));
    connectButton->setFixedHeight(kButtonHeight);
    connectButton->setDefault(true);
    connect(connectButton, SIGNAL(clicked()), this, SLOT(acceptDatabaseSettings()));
    auto *cancelButton = new QPushButton(tr("Cancel"), this);
    cancelButton->setObjectName(QStringLiteral("cancel_button"));
    cancelButton->setFixedHeight(kButtonHeight);
    connect(cancelButton, SIGNAL(clicked()), this, SLOT(reject()));

    auto *buttonRow = new QHBoxLayout;
    buttonRow->addWidget(connectButton);
    buttonRow->addWidget(cancelButton);
    auto *column = static_cast<QVBoxLayout *>(layout());
    column->addWidget(m_groupEditor);
    column->addLayout(buttonRow);
    adjustSize();
    m_groupEditor->setFocus();
    return buttonRow;
}

void SupportConnectionHandler::removeEditor(QHBoxLayout *buttonRow)
{
    while (QLayoutItem *item = buttonRow->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    layout()->removeItem(buttonRow);
    delete buttonRow;
    layout()->removeWidget(m_groupEditor);
    delete m_groupEditor;
    m_groupEditor = nullptr;
}

bool SupportConnectionHandler::connectAsChosen()
{
    if (m_groupEditor->isOffline())
        return m_offlineAllowed && connectOffline();
    m_groupEditor->saveDBSettings();
    refreshCredentials();
    refreshParameters();
    return connectOnline();
}

bool SupportConnectionHandler::connectOffline()
{
    m_groupEditor->saveDBSettings();
    refreshParameters();
    const WaitCursor cursor;
    if (m_database.isValid())
        closeConnection();
    m_offline = std::make_unique<AccessControlOffline>(QLatin1String(kOfflineConnection));
    QString reason;
    if (!m_offline->openOfflineDatabase(directoryOf(m_groupEditor->offlineLocation()), reason))
        return false;
    m_database = m_offline->database();
    if (isConnected())
        logConnection(Actions::Started, Actions::Human, m_database.databaseName());
    updateConnectionState();
    return true;
}

void SupportConnectionHandler::showFailure()
{
    QMessageBox box(QMessageBox::Critical, tr("Error"), tr("Connection failed"), QMessageBox::Ok,
                    parentWidget());
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    box.exec();
}
