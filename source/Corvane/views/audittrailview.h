#ifndef AUDITTRAILVIEW_H
#define AUDITTRAILVIEW_H

#include "ZephanShared/widgets/baseview.h"

class QLabel;
class QVBoxLayout;

/// Where an administrator reads the action log.
class AuditTrailView : public BaseView
{
    Q_OBJECT

public:
    /// \param dataPath  the data directory with its trailing separator
    explicit AuditTrailView(QString dataPath, QWidget *parent = nullptr);

    void updateTexts() override;

private:
    QString offlineLocation() const;

    QVBoxLayout *m_layout;
    QLabel *m_heading;
    QString m_dataPath;
};

#endif
