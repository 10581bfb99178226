#ifndef AUDITTRAILCHARTDIALOG_H
#define AUDITTRAILCHARTDIALOG_H

#include "Corvane/views/audittrailtimeline.h"

#include <QChartView>
#include <QDialog>

class QPushButton;

/// Shows audit events over time, one bar for each piece of time with a part for each category.
class AuditTrailChartDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AuditTrailChartDialog(const AuditTrailTimeline &timeline, QWidget *parent = nullptr);

signals:
    /// The picture is on disk.
    void pictureSaved(QString file);
    /// The picture is not on disk; the person has been told.
    void savingFailed(QString file);

private slots:
    void savePicture();

private:
    void buildChart(const AuditTrailTimeline &timeline);
    bool writePicture(const QString &file, QString &cause) const;

    QtCharts::QChartView *m_view;
};

#endif
