#include "Corvane/views/audittrailview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "ZephanShared/widgets/dateedit.h"
#include "ZephanShared/widgets/returnkey.h"
#include "ZephanShared/widgets/selectionpopup.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QStandardItemModel>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int kMinimumWidth = 765;
constexpr int kPanelSpacing = 8;
constexpr int kTableStretch = 50;
constexpr int kFieldHeight = 25;
constexpr int kLevelRows = 4;
constexpr int kNoChoice = -1;

// The walk through the numbers of the actions: families begin at multiples of 0x100, three levels a category.
constexpr int kNextLevel = 0x100;
constexpr int kNextCategory = 0x1000;
constexpr int kLastAction = 0x5205;

int nextFamily(int family)
{
    if ((family & Actions::kLevelMask) < Actions::HighLevel)
        return family + kNextLevel;
    return (family & Actions::kCategoryMask) + kNextCategory;
}

void addEntry(QListWidget *list, const QString &text, int value)
{
    auto *item = new QListWidgetItem(text, list);
    item->setData(Qt::UserRole, value);
}

void fillWithActions(QListWidget *list)
{
    int family = 0;
    for (int number = 0; number <= kLastAction;) {
        const QString name = Actions::name(number);
        if (name.isEmpty()) {
            family = nextFamily(family);
            number = family;
        } else {
            addEntry(list, name, number++);
        }
    }
}

/// Moves a widget in the tab order, over a detour: where nothing but the window stands between two widgets of
/// the ring, they count as neighbours and stay where they are.
void moveBehind(QWidget *first, QWidget *second, QWidget *detour)
{
    QWidget::setTabOrder(detour, second);
    QWidget::setTabOrder(first, second);
}

}  // namespace

AuditTrailView::AuditTrailView(QString dataPath, QWidget *parent)
    : BaseView(parent)
    , m_dataPath(std::move(dataPath))
    , m_localCache(openSettingsFile(m_dataPath + QLatin1String(LocalCache::kFileName)))
    , m_layout(new QVBoxLayout(this))
    , m_filterByLabel(new QLabel(this))
    , m_filterPanel(new QWidget(this))
{
    setMinimumWidth(kMinimumWidth);
    m_filterPanel->setObjectName(QStringLiteral("audit_filters"));
    m_filterPanel->setStyleSheet(
        QStringLiteral(".QWidget{ border: 1px solid lightgray; border-radius: 3px;}"));
    buildTable();
    buildTableActions();
    buildConnectionButton();
    m_layout->addWidget(m_filterByLabel);
    m_layout->addWidget(m_filterPanel);
    m_layout->addWidget(m_table, kTableStretch);
    m_layout->addWidget(m_connectButton, 0, Qt::AlignHCenter);
    loadConnectionOptions();
    updateTexts();
    hide();
}

AuditTrailView::~AuditTrailView()
{
    delete m_model;
    releaseDatabase();
    removeOnlineConnection();
}

void AuditTrailView::updateTexts()
{
    m_filterByLabel->setText(tr("Filter by:"));
    m_table->setAccessibleName(tr("Audit Trail Viewer"));
    m_connectButton->setText(tr("Connect to database"));
    m_optionsAction->setText(tr("Connection options"));
    m_disconnectAction->setText(tr("Disconnect"));
    setTableActionTexts();
    buildFilterPanel();
}

/// The settings may have got another date format meanwhile, in which the table shows its times at once.
void AuditTrailView::showEvent(QShowEvent *event)
{
    m_fromEdit->reloadFormat();
    m_toEdit->reloadFormat();
    BaseView::showEvent(event);
}

QString AuditTrailView::filterLabel(int index)
{
    switch (static_cast<AuditFilterKey>(index)) {
    case AuditFilterKey::Action:
        return tr("Action");
    case AuditFilterKey::Type:
        return tr("Type");
    case AuditFilterKey::Category:
        return tr("Category");
    case AuditFilterKey::Level:
        return tr("Level");
    case AuditFilterKey::Operator:
        return tr("Operator ID or username");
    case AuditFilterKey::System:
        return tr("System");
    case AuditFilterKey::DateFrom:
        return tr("Date from");
    case AuditFilterKey::DateTo:
        return tr("Date to");
    case AuditFilterKey::DatabaseKey:
        return tr("Database Key");
    }
    return tr("Unknown");
}

void AuditTrailView::buildTable()
{
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("audit_table"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);  // the way to the button would lead through every cell
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + kPanelSpacing);
    m_table->horizontalHeader()->setSortIndicator(m_sort.first, m_sort.second);
    m_table->setSortingEnabled(true);
    connect(m_table->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &AuditTrailView::setSort);
}

void AuditTrailView::buildConnectionButton()
{
    m_connectButton = new QToolButton(this);
    m_connectButton->setObjectName(QStringLiteral("audit_connect_button"));
    m_connectButton->setPopupMode(QToolButton::MenuButtonPopup);
    auto *menu = new QMenu(m_connectButton);
    m_optionsAction = menu->addAction(QString(), this, &AuditTrailView::launchConnectionDialog);
    m_disconnectAction = menu->addAction(QString(), this, &AuditTrailView::disconnectFromDatabase);
    m_disconnectAction->setEnabled(false);
    m_connectButton->setMenu(menu);
    clickByReturn(m_connectButton);
    // As of a combo box: by itself a tool button opens its menu for the mouse alone.
    auto *openMenu = new QShortcut(Qt::ALT + Qt::Key_Down, m_connectButton);
    openMenu->setContext(Qt::WidgetShortcut);
    connect(openMenu, &QShortcut::activated, m_connectButton, &QToolButton::showMenu);
    connect(m_connectButton, &QToolButton::clicked, this, &AuditTrailView::connectToDatabase);
}

/// The panel is made anew with each language. The active filters go on restricting the rows while the new
/// widgets show no choice.
void AuditTrailView::buildFilterPanel()
{
    qDeleteAll(m_filterPanel->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    delete m_filterPanel->layout();
    auto *panel = new QHBoxLayout(m_filterPanel);
    panel->setSpacing(kPanelSpacing);
    panel->addWidget(buildDateFilters());
    m_typeCombo = buildTypeFilter();
    m_categoryCombo = buildCategoryFilter();
    panel->addLayout(buildChoiceColumn(buildFilter(AuditFilterKey::Type, m_typeCombo),
                                       buildFilter(AuditFilterKey::Category, m_categoryCombo)));
    m_levelButton = buildLevelFilter();
    m_actionButton = buildActionFilter();
    panel->addLayout(buildChoiceColumn(buildFilter(AuditFilterKey::Level, m_levelButton),
                                       buildFilter(AuditFilterKey::Action, m_actionButton)));
    auto *texts = new QHBoxLayout;
    texts->setSpacing(kPanelSpacing);
    texts->addLayout(buildFilter(AuditFilterKey::Operator,
                                 buildTextFilter(AuditFilterKey::Operator, SLOT(setOperatorFilter()),
                                                 SLOT(setOperatorFilterTimer()))));
    texts->addLayout(
        buildFilter(AuditFilterKey::System, buildTextFilter(AuditFilterKey::System, SLOT(setHostFilter()),
                                                            SLOT(setHostFilterTimer()))));
    QLineEdit *lastFilter =
        buildTextFilter(AuditFilterKey::DatabaseKey, SLOT(setIdFilter()), SLOT(setIdFilterTimer()));
    texts->addLayout(buildFilter(AuditFilterKey::DatabaseKey, lastFilter));
    panel->addLayout(texts, 1);
    // The filters are younger than what stands below them.
    moveBehind(lastFilter, m_table, m_fromEdit->lineEdit());
    moveBehind(m_table, m_connectButton, m_fromEdit->lineEdit());
}

QWidget *AuditTrailView::buildDateFilters()
{
    auto *block = new QFrame(m_filterPanel);
    auto *layout = new QVBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto addDate = [&](AuditFilterKey key, const QString &name, const char *filterSlot) {
        auto *label = new QLabel(filterLabel(static_cast<int>(key)) + QStringLiteral(" (UTC) :"), block);
        layout->addWidget(label);
        auto *edit = new DateEdit(false);
        layout->addLayout(edit);
        edit->lineEdit()->setObjectName(name);
        edit->lineEdit()->setFixedHeight(kFieldHeight);
        edit->lineEdit()->setAccessibleName(label->text());
        label->setBuddy(edit->lineEdit());
        connect(edit, SIGNAL(contentChanged()), this, filterSlot);
        return edit;
    };
    m_fromEdit = addDate(AuditFilterKey::DateFrom, QStringLiteral("audit_date_from"), SLOT(setFromFilter()));
    m_toEdit = addDate(AuditFilterKey::DateTo, QStringLiteral("audit_date_to"), SLOT(setToFilter()));
    layout->addStretch();
    return block;
}

QBoxLayout *AuditTrailView::buildChoiceColumn(QBoxLayout *upper, QBoxLayout *lower)
{
    auto *column = new QVBoxLayout;
    column->addLayout(upper);
    column->addLayout(lower);
    column->addStretch();
    return column;
}

QBoxLayout *AuditTrailView::buildFilter(AuditFilterKey key, QWidget *field)
{
    auto *layout = new QVBoxLayout;
    auto *label = new QLabel(filterLabel(static_cast<int>(key)), m_filterPanel);
    label->setBuddy(field);
    field->setAccessibleName(label->text());
    layout->addWidget(label);
    layout->addWidget(field);
    const bool isText = qobject_cast<QLineEdit *>(field);
    if (isText)
        layout->addStretch();
    return layout;
}

QComboBox *AuditTrailView::buildTypeFilter()
{
    auto *combo = new QComboBox(m_filterPanel);
    combo->setObjectName(QStringLiteral("audit_type"));
    combo->setFixedHeight(kFieldHeight);
    combo->addItem(tr("Select"), kNoChoice);
    for (const int type : {Actions::Human, Actions::Automatic})
        combo->addItem(AuditTrailQueryModel::typeName(type), type);
    qobject_cast<QStandardItemModel *>(combo->model())->item(0)->setEnabled(false);
    connect(combo, SIGNAL(currentIndexChanged(int)), this, SLOT(setTypeFilter(int)));
    return combo;
}

QComboBox *AuditTrailView::buildCategoryFilter()
{
    auto *combo = new QComboBox(m_filterPanel);
    combo->setObjectName(QStringLiteral("audit_category"));
    combo->setFixedHeight(kFieldHeight);
    combo->addItem(tr("Select"), kNoChoice);
    for (int category = Actions::AccessCategory; category <= Actions::ErrorCategory;
         category += kNextCategory)
        combo->addItem(AuditTrailQueryModel::categoryName(category), category);
    qobject_cast<QStandardItemModel *>(combo->model())->item(0)->setEnabled(false);
    connect(combo, SIGNAL(currentIndexChanged(int)), this, SLOT(setCategoryFilter(int)));
    return combo;
}

QPushButton *AuditTrailView::buildActionFilter()
{
    auto *button = new QPushButton(tr("Select"), m_filterPanel);
    button->setObjectName(QStringLiteral("audit_action"));
    button->setFixedHeight(kFieldHeight);
    m_actionList = new SelectionPopup(button, m_filterPanel);
    m_actionList->setObjectName(QStringLiteral("audit_action_list"));
    m_actionList->setAccessibleName(tr("Action"));
    fillWithActions(m_actionList);
    connect(button, &QPushButton::clicked, this, &AuditTrailView::showOrHideListWidget);
    connect(m_actionList, &QListWidget::itemSelectionChanged, this, &AuditTrailView::setActionFilter);
    return button;
}

QPushButton *AuditTrailView::buildLevelFilter()
{
    auto *button = new QPushButton(tr("Select"), m_filterPanel);
    button->setObjectName(QStringLiteral("audit_level"));
    button->setFixedHeight(kFieldHeight);
    m_levelList = new SelectionPopup(button, m_filterPanel);
    m_levelList->setObjectName(QStringLiteral("audit_level_list"));
    m_levelList->setAccessibleName(tr("Level"));
    for (const int level : {Actions::LowLevel, Actions::NormalLevel, Actions::HighLevel})
        addEntry(m_levelList, AuditTrailQueryModel::levelName(level), level);
    m_levelList->setFixedHeight(kLevelRows * m_levelList->sizeHintForRow(0));
    connect(button, &QPushButton::clicked, this, &AuditTrailView::showOrHideListWidget);
    connect(m_levelList, &QListWidget::itemSelectionChanged, this, &AuditTrailView::setLevelFilter);
    return button;
}

QLineEdit *AuditTrailView::buildTextFilter(AuditFilterKey key, const char *filterSlot, const char *timerSlot)
{
    auto *edit = new QLineEdit(m_filterPanel);
    edit->setObjectName(QStringLiteral("audit_text_%1").arg(static_cast<int>(key)));
    edit->setFixedHeight(kFieldHeight);
    connect(edit, SIGNAL(editingFinished()), this, filterSlot);
    connect(edit, SIGNAL(textEdited(QString)), this, timerSlot);
    return edit;
}
