#include "Corvane/views/introductionview.h"

#include "Corvane/views/productlabel.h"
#include "ZephanShared/widgets/returnkey.h"

#include <QGridLayout>
#include <QIcon>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr QSize kIconSize(144, 144);
constexpr int kProductWidth = 300;
constexpr int kWidestAlike = 240;  // three of them fit into the smallest window

// Shares of the free height above the product label, between it and the buttons, and below them.
constexpr int kStretchAbove = 13;
constexpr int kStretchBetween = 24;
constexpr int kStretchBelow = 25;

// The outer columns of the row of buttons take what is left, so that the buttons stand in the middle.
constexpr int kLeftColumn = 0;
constexpr int kFirstButtonColumn = 1;
constexpr int kRightColumn = 6;
constexpr int kOuterStretch = 20;

}  // namespace

IntroductionView::IntroductionView(SupportConnectionHandler *handler, QWidget *parent)
    : BaseView(parent)
    , m_layout(new QVBoxLayout(this))
    , m_settingsButton(createButton(QStringLiteral("settings_button"),
                                    QStringLiteral(":/icons/corvane/manage_settings.png"),
                                    SIGNAL(settingsClicked())))
    , m_databaseButton(createButton(QStringLiteral("database_button"),
                                    QStringLiteral(":/icons/corvane/manage_database.png"),
                                    SIGNAL(databaseClicked())))
    , m_accessButton(createButton(QStringLiteral("access_control_button"),
                                  QStringLiteral(":/icons/corvane/manage_access_control.png"),
                                  SIGNAL(accessClicked())))
    , m_auditTrailButton(createButton(QStringLiteral("audit_trail_button"),
                                      QStringLiteral(":/icons/corvane/audit_trail.png"),
                                      SIGNAL(auditTrailClicked())))
{
    Q_UNUSED(handler)
    m_databaseButton->hide();
    m_databaseButton->setEnabled(false);

    m_layout->addStretch(kStretchAbove);
    m_layout->addWidget(
        new ProductLabel(QStringLiteral(":/resources/halvorn_logo.png"), tr("Corvane"), kProductWidth, this));
    m_layout->addStretch(kStretchBetween);
    m_layout->addLayout(createButtonRow());
    m_layout->addStretch(kStretchBelow);

    updateTexts();
    hide();
}

void IntroductionView::updateTexts()
{
    m_settingsButton->setText(tr("Settings Management"));
    m_databaseButton->setText(tr("Database Management"));
    m_accessButton->setText(tr("Access Control Management"));
    m_auditTrailButton->setText(tr("Audit Trail Viewer"));
    widenAlike();
}

void IntroductionView::disableAuditTrailView(bool disable)
{
    m_auditTrailButton->setDisabled(disable);
}

void IntroductionView::disableAccessControlView(bool disable)
{
    m_accessButton->setDisabled(disable);
}

QToolButton *IntroductionView::createButton(const QString &name, const QString &icon, const char *signal)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIcon(QIcon(icon));
    button->setIconSize(kIconSize);
    clickByReturn(button);
    connect(button, SIGNAL(clicked()), this, signal);
    return button;
}

/// The buttons that are seen are as wide as the one with the longest text, as long as the row fits.
void IntroductionView::widenAlike()
{
    const QList<QToolButton *> seen = {m_settingsButton, m_accessButton, m_auditTrailButton};
    int width = 0;
    for (const QToolButton *button : seen)
        width = qMax(width, button->sizeHint().width());
    for (QToolButton *button : seen)
        button->setMinimumWidth(qMin(width, kWidestAlike));
}

QGridLayout *IntroductionView::createButtonRow()
{
    auto *grid = new QGridLayout;
    int column = kFirstButtonColumn;
    for (QToolButton *button : {m_settingsButton, m_databaseButton, m_accessButton, m_auditTrailButton})
        grid->addWidget(button, 0, column++);
    grid->setColumnStretch(kLeftColumn, kOuterStretch);
    grid->setColumnStretch(kRightColumn, kOuterStretch);
    return grid;
}
