#include "Corvane/views/audittrailview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/nativepath.h"

#include <QLabel>
#include <QSettings>
#include <QVBoxLayout>

AuditTrailView::AuditTrailView(QString dataPath, QWidget *parent)
    : BaseView(parent)
    , m_layout(new QVBoxLayout(this))
    , m_heading(new QLabel(this))
    , m_dataPath(std::move(dataPath))
{
    m_heading->setObjectName(QStringLiteral("audit_trail_heading"));
    m_heading->setWordWrap(true);
    m_heading->setAlignment(Qt::AlignTop);
    m_heading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_layout->addWidget(m_heading);
    updateTexts();
    hide();
}

void AuditTrailView::updateTexts()
{
    m_heading->setText(tr("Events of this workstation are recorded in %1").arg(offlineLocation()));
}

QString AuditTrailView::offlineLocation() const
{
    const auto localCache = openSettingsFile(m_dataPath + LocalCache::kFileName);
    localCache->beginGroup(LocalCache::kActionDbOfflineGroup);
    const QString location = localCache->value(LocalCache::kLocation).toString();
    return location.isEmpty() ? nativePath(m_dataPath + QStringLiteral("CorvaneActions/")) : location;
}
