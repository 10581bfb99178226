#include "Corvane/settings/databasesettingsview.h"

#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/identificationboxes.h"
#include "Corvane/settings/plainsettings.h"
#include "Corvane/settings/settingslists.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

using PlainSettings::read;
using PlainSettings::write;

namespace {

constexpr int kFrameWidth = 362;
constexpr int kDatabaseSelector = 4;
constexpr int kScrollBarDistance = 6;
constexpr int kDefaultIdentification = 6;  // Personal ID

const char *const kDefaultLocation = "C:/Halvorn/Data";

}  // namespace

DatabaseSettingsView::DatabaseSettingsView(AccessType allowed, QWidget *parent)
    : BaseView(parent)
{
    auto *content = new QWidget(this);
    QHBoxLayout *columns = FormParts::makeColumns(content);
    columns->addWidget(buildStorage(content), 1);
    columns->addWidget(buildConnections(allowed, content), 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FormParts::makeScrollable(content, this));
    updateTexts();
    reloadSettings();
}

QWidget *DatabaseSettingsView::buildStorage(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kFrameWidth, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    m_storageTitle = FormParts::addTitle(layout);
    m_offlineTitle = FormParts::addTitle(layout);
    m_locationLabel = FormParts::addLabel(layout);
    m_location = FormParts::addEditWithButton(layout, QStringLiteral("database_location"), m_browseLocation);
    m_useOffline = FormParts::addCheckBox(layout, QStringLiteral("use_offline"));
    m_synchronisationTitle = FormParts::addTitle(layout);
    m_identificationLabel = FormParts::addLabel(layout);

    auto *criteria = new QFrame(frame);
    criteria->setFrameShape(QFrame::StyledPanel);
    auto *criteriaLayout = new QVBoxLayout(criteria);
    m_identification = new IdentificationBoxes(1, criteria);
    criteriaLayout->addWidget(m_identification);
    layout->addWidget(criteria);
    layout->addStretch();

    connect(m_browseLocation, &QPushButton::clicked, this,
            &DatabaseSettingsView::handleBrowseOfflineLocation);
    for (const QCheckBox *box : m_identification->boxes())
        connect(box, &QCheckBox::stateChanged, this, &DatabaseSettingsView::syncIdentificationStateChanged);
    return frame;
}

QWidget *DatabaseSettingsView::buildConnections(AccessType allowed, QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kFrameWidth, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    m_connectionsTitle = FormParts::addTitle(layout);

    // The editor fits its parent to itself whenever its rows change, so that it needs one of its own.
    auto *holder = new QWidget(frame);
    auto *holderLayout = new QVBoxLayout(holder);
    holderLayout->setContentsMargins(0, 0, kScrollBarDistance, 0);
    m_connections = new DatabaseGroupSettings(kDatabaseSelector, (allowed & WriteLocalDbSettings) != 0,
                                              (allowed & AuditTrailManagement) != 0, false, nullptr, holder);
    m_connections->setObjectName(QStringLiteral("database_connections"));
    holderLayout->addWidget(m_connections);
    holderLayout->addStretch();
    for (QComboBox *box : m_connections->findChildren<QComboBox *>())
        FormParts::leaveWheelToPage(box);

    QScrollArea *area = FormParts::makeScrollable(holder, frame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout->addWidget(area);
    return frame;
}

void DatabaseSettingsView::updateTexts()
{
    m_storageTitle->setText(tr("General storage settings"));
    m_offlineTitle->setText(tr("Offline database"));
    FormParts::setLabelText(m_locationLabel, m_location, tr("Location"));
    m_browseLocation->setText(tr("Browse..."));
    m_useOffline->setText(tr("Use offline database exclusively"));
    m_synchronisationTitle->setText(tr("Synchronisation"));
    m_identificationLabel->setText(tr("Identification criteria"));
    m_connectionsTitle->setText(tr("Database connection settings"));
}

void DatabaseSettingsView::reloadSettings()
{
    getCurrentDBSettings(false);
    m_location->setText(read(SettingsKeys::kDatabaseLocation, QLatin1String(kDefaultLocation)).toString());
    m_useOffline->setChecked(read(SettingsKeys::kUseOffline, true).toBool());
    m_identification->setNumbers(
        readNumbers(read(SettingsKeys::kSyncPersonIdentificationKeys, kDefaultIdentification)));
}

void DatabaseSettingsView::saveSettings()
{
    saveDBSettings();
    write(SettingsKeys::kDatabaseLocation, m_location->text());
    write(SettingsKeys::kUseOffline, m_useOffline->isChecked());
    QList<int> criteria = m_identification->numbers();
    if (criteria.isEmpty())
        criteria.append(kDefaultIdentification);
    write(SettingsKeys::kSyncPersonIdentificationKeys, numbersToSetting(criteria));
}

void DatabaseSettingsView::getCurrentDBSettings(bool saveFirst)
{
    m_connections->getCurrentDBSettings(saveFirst);
}

void DatabaseSettingsView::saveDBSettings()
{
    m_connections->saveDBSettings();
}

void DatabaseSettingsView::syncIdentificationStateChanged(int state)
{
    auto *box = qobject_cast<QCheckBox *>(sender());
    if (box && state == Qt::Unchecked && !m_identification->isAnyChecked())
        box->setCheckState(Qt::Checked);
}

void DatabaseSettingsView::handleBrowseOfflineLocation()
{
    QFileDialog dialog(this, tr("Select offline database location directory"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    FormParts::chooseFile(dialog, m_location);
}
