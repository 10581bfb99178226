#include "Corvane/views/audittrailchartdialog.h"

#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/savefile.h"
#include "ZephanShared/toolkit/filecommit.h"
#include "ZephanShared/toolkit/plaintime.h"
#include "ZephanShared/widgets/dateformathelper.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPushButton>
#include <QSaveFile>
#include <QStackedBarSeries>
#include <QVBoxLayout>
#include <QValueAxis>
#include <QtMath>

using namespace QtCharts;

namespace {

constexpr QSize kSize(980, 600);
constexpr QSize kMinimumSize(920, 480);  // the labels of all bars can be read
constexpr int kLabelPoints = 8;
constexpr int kPictureScale = 2;
constexpr int kMostLevelLabels = 8;  // more of them are turned on their side
constexpr int kSideways = -90;
constexpr int kMostTicks = 6;
constexpr double kBarWidth = 0.85;

/// Told apart also by those who don't see colours alike, and in the order of the categories.
constexpr QRgb kColours[AuditTrailTimeline::kCategoryCount] = {0xff0072b2, 0xff56b4e9, 0xff009e73, 0xffe69f00,
                                                               0xff8c8c8c, 0xffd55e00, 0xff333333};

QString number(qint64 value)
{
    return QLocale().toString(value);
}

QString barLabel(const QDateTime &start, AuditTrailTimeline::Step step)
{
    const QString date = DateFormatHelper().dateFormat();
    switch (step) {
    case AuditTrailTimeline::Step::Hour:
        return plainText(start, date + QStringLiteral(" hh:mm"));
    case AuditTrailTimeline::Step::Day:
    case AuditTrailTimeline::Step::Week:
        return plainText(start, date);
    case AuditTrailTimeline::Step::Month:
        return plainText(start, QStringLiteral("yyyy-MM"));
    default:
        return plainText(start, QStringLiteral("yyyy"));
    }
}

QStringList barLabels(const QVector<AuditTrailTimeline::Bar> &bars, AuditTrailTimeline::Step step)
{
    QStringList labels;
    for (const AuditTrailTimeline::Bar &bar : bars)
        labels.append(barLabel(bar.start, step));
    return labels;
}

QString chartTitle(AuditTrailTimeline::Step step)
{
    switch (step) {
    case AuditTrailTimeline::Step::Hour:
        return AuditTrailChartDialog::tr("Events by hour (UTC)");
    case AuditTrailTimeline::Step::Day:
        return AuditTrailChartDialog::tr("Events by day (UTC)");
    case AuditTrailTimeline::Step::Week:
        return AuditTrailChartDialog::tr("Events by week (UTC)");
    case AuditTrailTimeline::Step::Month:
        return AuditTrailChartDialog::tr("Events by month (UTC)");
    case AuditTrailTimeline::Step::Year:
        return AuditTrailChartDialog::tr("Events by year (UTC)");
    case AuditTrailTimeline::Step::Decade:
        return AuditTrailChartDialog::tr("Events by decade (UTC)");
    case AuditTrailTimeline::Step::Century:
        return AuditTrailChartDialog::tr("Events by century (UTC)");
    case AuditTrailTimeline::Step::Millennium:
        break;
    }
    return AuditTrailChartDialog::tr("Events by millennium (UTC)");
}

/// How much there is, beside what the bars can't show.
QString sumText(const AuditTrailTimeline &timeline)
{
    QString text = AuditTrailChartDialog::tr("%1 events").arg(number(timeline.total()));
    if (timeline.undated() > 0)
        text += QLatin1String(", ") +
                AuditTrailChartDialog::tr("%1 more without a time").arg(number(timeline.undated()));
    return text;
}

qint64 highestBar(const QVector<AuditTrailTimeline::Bar> &bars)
{
    qint64 highest = 1;
    for (const AuditTrailTimeline::Bar &bar : bars) {
        qint64 sum = 0;
        for (const qint64 count : bar.counts)
            sum += count;
        highest = qMax(highest, sum);
    }
    return highest;
}

/// A whole number of 1, 2 or 5 times a power of ten, so that a few ticks reach the top.
qint64 tickInterval(qint64 top)
{
    qint64 power = 1;
    for (;; power *= 10) {
        for (const int factor : {1, 2, 5}) {
            if (top <= factor * power * kMostTicks)
                return factor * power;
        }
    }
}

/// Only the categories that occur have a part in the bars and a place in the legend.
QStackedBarSeries *makeSeries(const AuditTrailTimeline &timeline,
                              const QVector<AuditTrailTimeline::Bar> &bars)
{
    auto *series = new QStackedBarSeries;
    series->setBarWidth(kBarWidth);
    const AuditTrailTimeline::Counts totals = timeline.totals();
    for (std::size_t i = 0; i < totals.size(); ++i) {
        if (totals[i] == 0)
            continue;
        const int category = AuditTrailTimeline::categoryAt(static_cast<int>(i));
        auto *set = new QBarSet(
            QStringLiteral("%1 (%2)").arg(AuditTrailQueryModel::categoryName(category), number(totals[i])));
        set->setColor(QColor(kColours[i]));
        set->setBorderColor(Qt::white);
        for (const AuditTrailTimeline::Bar &bar : bars)
            set->append(static_cast<double>(bar.counts[i]));
        series->append(set);
    }
    return series;
}

QBarCategoryAxis *makeTimeAxis(const QStringList &labels)
{
    auto *axis = new QBarCategoryAxis;
    axis->append(labels);
    axis->setGridLineVisible(false);
    QFont font = axis->labelsFont();
    font.setPointSize(kLabelPoints);
    axis->setLabelsFont(font);
    if (labels.size() > kMostLevelLabels)
        axis->setLabelsAngle(kSideways);
    return axis;
}

QValueAxis *makeCountAxis(qint64 highest)
{
    auto *axis = new QValueAxis;
    const qint64 interval = tickInterval(highest);
    const qint64 ticks = (highest + interval - 1) / interval;
    axis->setRange(0, static_cast<double>(ticks * interval));
    axis->setTickCount(static_cast<int>(ticks) + 1);
    axis->setLabelFormat(QStringLiteral("%.0f"));
    return axis;
}

}  // namespace

AuditTrailChartDialog::AuditTrailChartDialog(const AuditTrailTimeline &timeline, QWidget *parent)
    : QDialog(parent,
              Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint)
    , m_view(new QChartView(this))
{
    setObjectName(QStringLiteral("audit_chart_dialog"));
    setWindowTitle(tr("Audit events over time"));
    m_view->setObjectName(QStringLiteral("audit_chart"));
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setAccessibleName(windowTitle());
    buildChart(timeline);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *save = buttons->addButton(tr("Save as picture..."), QDialogButtonBox::ActionRole);
    save->setObjectName(QStringLiteral("audit_chart_save"));
    QPushButton *close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("audit_chart_close"));
    close->setDefault(true);
    connect(save, &QPushButton::clicked, this, &AuditTrailChartDialog::savePicture);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_view, 1);
    layout->addWidget(buttons);
    setMinimumSize(kMinimumSize);
    resize(kSize);
    close->setFocus();
}

void AuditTrailChartDialog::buildChart(const AuditTrailTimeline &timeline)
{
    QChart *chart = m_view->chart();
    chart->setTitle(chartTitle(timeline.step()) + QStringLiteral(" - ") + sumText(timeline));
    QFont font = chart->titleFont();
    font.setBold(true);
    chart->setTitleFont(font);
    m_view->setAccessibleDescription(chart->title());

    const QVector<AuditTrailTimeline::Bar> bars = timeline.bars();
    if (bars.isEmpty())
        return;
    QStackedBarSeries *series = makeSeries(timeline, bars);
    chart->addSeries(series);
    QBarCategoryAxis *times = makeTimeAxis(barLabels(bars, timeline.step()));
    QValueAxis *counts = makeCountAxis(highestBar(bars));
    chart->addAxis(times, Qt::AlignBottom);
    chart->addAxis(counts, Qt::AlignLeft);
    series->attachAxis(times);
    series->attachAxis(counts);
    chart->legend()->setAlignment(Qt::AlignBottom);
}

void AuditTrailChartDialog::savePicture()
{
    const QString file =
        SaveFile::choose(this, tr("Save as picture"), QStringLiteral("audit-trail.png"), tr("PNG (*.png)"));
    if (file.isEmpty())
        return;
    QString cause;
    if (writePicture(file, cause)) {
        emit pictureSaved(file);
        return;
    }
    SaveFile::tellFailure(this, file, cause);
    emit savingFailed(file);
}

/// Drawn anew with more points than the screen has, for paper.
bool AuditTrailChartDialog::writePicture(const QString &file, QString &cause) const
{
    QImage picture(m_view->size() * kPictureScale, QImage::Format_RGB32);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        m_view->render(&painter, picture.rect(), m_view->rect());
    }
    QSaveFile target(file);
    const bool saved =
        target.open(QIODevice::WriteOnly) && picture.save(&target, "PNG") && commitWhole(target);
    cause = target.errorString();
    return saved;
}
