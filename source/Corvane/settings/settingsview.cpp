#include "Corvane/settings/settingsview.h"

#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/stashimage.h"
#include "Corvane/settings/accesssettingsview.h"
#include "Corvane/settings/databasesettingsview.h"
#include "Corvane/settings/fieldsettingsview.h"
#include "Corvane/settings/personbrowsersettingsview.h"
#include "Corvane/settings/searchsettingsview.h"
#include "Corvane/settings/settingssnapshot.h"
#include "Corvane/settings/studysettingsview.h"
#include "ZephanShared/widgets/fittedtext.h"

#include <QAction>
#include <QApplication>
#include <QHostInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr int kTabsMinimumHeight = 490;
constexpr int kTabsMinimumWidth = 765;
constexpr int kTabHeight = 35;
constexpr int kTabTextHeight = 34;  // without the line below
constexpr int kWidestTab = kTabsMinimumWidth;
constexpr int kPromptStretch = 15;

const char *const kMenuBarStyle =
    "QMenuBar { border: none; }"
    "QMenuBar::item { background: white; padding: 3px; border: groove; border-radius: 4px; "
    "border-width: 2px; border-color: darkgray; margin-right: 15px; }"
    "QMenuBar::item:selected { padding: 3px; border: groove; border-radius: 4px; "
    "border-width: 3px; border-color: darkgray; margin-right: 15px; }"
    "QMenuBar::item:pressed { padding: 3px; border: inset; border-radius: 4px; "
    "border-width: 2px; border-color: darkgray; margin-right: 15px; }";

template<class Page>
void save(Page *page)
{
    if (page)
        page->saveSettings();
}

template<class Page>
void reload(Page *page)
{
    if (page)
        page->reloadSettings();
}

}  // namespace

SettingsView::SettingsView(QString dataPath, QWidget *parent)
    : BaseView(parent)
    , m_layout(new QVBoxLayout(this))
    , m_dataPath(std::move(dataPath))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
}

void SettingsView::setAccessControl(AccessControl *access)
{
    m_access = access;
    if (!m_access || m_tabs)
        return;
    createPages();
    createTabs();
    createMenus();
    m_autosaveAction->setChecked(isLocalSaveEnabled());

    m_prompt = new QLabel(this);
    m_prompt->setObjectName(QStringLiteral("settings_prompt"));
    m_prompt->setStyleSheet(QStringLiteral("QLabel { font: 14px; }"));

    m_layout->addWidget(m_tabs);
    m_layout->addWidget(m_prompt, kPromptStretch, Qt::AlignCenter);
    m_layout->addWidget(m_menuBar, 0, Qt::AlignHCenter);
    updateTexts();
    removeRedundantSettings();
}

void SettingsView::createPages()
{
    m_accessPage = new AccessSettingsView(m_dataPath, m_access->allowedAccessTypes());
    m_accessPage->setObjectName(QStringLiteral("access_page"));
    m_databasePage = new DatabaseSettingsView(m_access->allowedAccessTypes());
    m_databasePage->setObjectName(QStringLiteral("database_page"));
    m_generalPage = new PersonBrowserSettingsView(m_dataPath);
    m_generalPage->setObjectName(QStringLiteral("general_page"));
    m_searchPage = new SearchSettingsView;
    m_searchPage->setObjectName(QStringLiteral("search_page"));
    m_fieldPage = new FieldSettingsView;
    m_fieldPage->setObjectName(QStringLiteral("field_page"));
    connect(m_fieldPage, &FieldSettingsView::logError, this, &SettingsView::logError);
    connect(m_fieldPage, SIGNAL(personCustomFieldsUpdated(QStringList)), m_searchPage,
            SLOT(personCustomFieldsChanged(QStringList)));
    m_studyPage = new StudySettingsView(m_dataPath);
    m_studyPage->setObjectName(QStringLiteral("study_page"));
    connect(m_studyPage, &StudySettingsView::logError, this, &SettingsView::logError);
}

void SettingsView::createTabs()
{
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("settings_tabs"));
    m_tabs->hide();
    m_tabs->setMinimumSize(kTabsMinimumWidth, kTabsMinimumHeight);
    m_tabs->setStyleSheet(QStringLiteral("QTabBar::tab { height: %1px; }").arg(kTabHeight));
    m_tabs->addTab(m_generalPage, QString());
    m_tabs->addTab(m_databasePage, QString());
    m_tabs->addTab(m_searchPage, QString());
    m_tabs->addTab(m_fieldPage, QString());
    m_tabs->addTab(m_studyPage, QString());
    m_tabs->addTab(m_accessPage, QString());
}

void SettingsView::createMenus()
{
    m_menuBar = new QMenuBar(this);
    m_menuBar->setObjectName(QStringLiteral("settings_menus"));
    m_menuBar->setNativeMenuBar(false);
    m_menuBar->setDefaultUp(true);
    m_menuBar->setStyleSheet(QLatin1String(kMenuBarStyle));
    buildLocalMenu();
    buildOnlineMenu();
    buildTransferMenu();
}

void SettingsView::buildLocalMenu()
{
    m_localMenu = addMenu(QStringLiteral("local_menu"));
    m_autosaveAction = addAction(m_localMenu, QStringLiteral("autosave_action"), false);
    m_autosaveAction->setCheckable(true);
    m_saveAction = addAction(m_localMenu, QStringLiteral("save_action"), false);
    m_loadAction = addAction(m_localMenu, QStringLiteral("load_action"), true);
    connect(m_autosaveAction, &QAction::triggered, this, &SettingsView::localSaveToggled);
    connect(m_saveAction, &QAction::triggered, this, [this] { saveSettingsLocally(); });
    connect(m_loadAction, &QAction::triggered, this, &SettingsView::loadLocalSettings);
}

void SettingsView::buildOnlineMenu()
{
    m_onlineMenu = addMenu(QStringLiteral("online_menu"));
    m_diffAction = addAction(m_onlineMenu, QStringLiteral("diff_action"), false);
    m_manageAction = addAction(m_onlineMenu, QStringLiteral("manage_action"), isAllowed(DownloadSettings));
    m_distributeAction = addAction(m_onlineMenu, QStringLiteral("distribute_action"), false);
    if (isAllowed(DownloadSettings))
        connect(m_manageAction, &QAction::triggered, this, &SettingsView::manageSettings);
}

void SettingsView::buildTransferMenu()
{
    m_transferMenu = addMenu(QStringLiteral("transfer_menu"));
    m_importAction = addAction(m_transferMenu, QStringLiteral("import_action"), true);
    m_exportAction = addAction(m_transferMenu, QStringLiteral("export_action"), false);
    connect(m_importAction, &QAction::triggered, this, &SettingsView::importSettings);
    connect(m_exportAction, &QAction::triggered, this, &SettingsView::exportSettings);
}

QMenu *SettingsView::addMenu(const QString &name)
{
    QMenu *menu = m_menuBar->addMenu(QString());
    menu->setObjectName(name);
    return menu;
}

QAction *SettingsView::addAction(QMenu *menu, const QString &name, bool enabled)
{
    QAction *action = menu->addAction(QString());
    action->setObjectName(name);
    action->setEnabled(enabled);
    return action;
}

void SettingsView::updateTexts()
{
    if (!m_tabs)
        return;
    m_prompt->setText(tr("Select settings source from menu below"));

    updateTabTexts();

    m_localMenu->setTitle(tr("Manage local application"));
    m_autosaveAction->setText(tr("Enable autosaving to local application"));
    m_saveAction->setText(tr("Save settings to local application"));
    m_loadAction->setText(tr("Load settings from local application"));

    m_onlineMenu->setTitle(tr("Manage online configurations"));
    m_diffAction->setText(tr("See changes made in settings"));
    m_manageAction->setText(tr("Manage settings configurations"));
    m_distributeAction->setText(tr("Distribute settings"));

    m_transferMenu->setTitle(tr("Transfer settings"));
    m_importAction->setText(tr("Import settings"));
    m_exportAction->setText(tr("Export settings"));
}

void SettingsView::updateTabTexts()
{
    m_tabs->setTabText(m_tabs->indexOf(m_generalPage), tr("General"));
    m_tabs->setTabText(m_tabs->indexOf(m_databasePage), tr("Database"));
    m_tabs->setTabText(m_tabs->indexOf(m_searchPage), tr("Search"));
    m_tabs->setTabText(m_tabs->indexOf(m_fieldPage), tr("Person fields"));
    m_tabs->setTabText(m_tabs->indexOf(m_studyPage), tr("Study fields"));
    m_tabs->setTabText(m_tabs->indexOf(m_accessPage), tr("Access control") + QLatin1Char(' ') + tr("and") +
                                                          QLatin1Char('\n') + tr("Audit trail"));
    fitTabTexts();
}

/// Two lines are higher than a tab in the letters of some languages.
void SettingsView::fitTabTexts()
{
    QTabBar *bar = m_tabs->tabBar();
    bar->setFont(fittedFont(QApplication::font(bar), QSize(kWidestTab, kTabTextHeight), Qt::AlignLeft,
                            m_tabs->tabText(m_tabs->indexOf(m_accessPage))));
}

void SettingsView::savePages()
{
    save(m_accessPage);
    save(m_fieldPage);
    save(m_databasePage);
    save(m_searchPage);
    save(m_generalPage);
    save(m_studyPage);
}

void SettingsView::reloadPages()
{
    reload(m_accessPage);
    reload(m_searchPage);
    reload(m_fieldPage);
    reload(m_databasePage);
    reload(m_generalPage);
    reload(m_studyPage);
}

void SettingsView::showSettings()
{
    if (!m_tabs || !m_tabs->isHidden())
        return;
    m_prompt->hide();
    m_tabs->show();
    m_autosaveAction->setEnabled(true);
    m_saveAction->setEnabled(true);
    m_loadAction->setEnabled(true);
    m_diffAction->setEnabled(true);
    connect(m_diffAction, &QAction::triggered, this, &SettingsView::diffSettings);
    m_distributeAction->setEnabled(isAllowed(DistributeSettings));
    if (isAllowed(DistributeSettings))
        connect(m_distributeAction, &QAction::triggered, this, &SettingsView::distributeSettings);
    m_importAction->setEnabled(true);
    m_exportAction->setEnabled(true);
}

void SettingsView::loadTag(QString tag)
{
    m_settingsTag = std::move(tag);
}

bool SettingsView::isAllowed(AccessType type) const
{
    return m_access && m_access->isAllowed(type);
}

void SettingsView::removeRedundantSettings()
{
    QSettings *settings = SettingsHandler::getInstance()->generalSettings();
    settings->remove(QLatin1String(SettingsKeys::kGeometry));
    settings->remove(QLatin1String(SettingsKeys::kDefaultRights));
    removeStaleParameters(*settings);
}

void SettingsView::removeDatabaseGroups()
{
    QSettings *settings = SettingsHandler::getInstance()->generalSettings();
    for (const char *group : {SettingsKeys::kActionDbGroup, SettingsKeys::kPersonDbGroup,
                              SettingsKeys::kStudyDbGroup, SettingsKeys::kSupportDbGroup})
        settings->remove(QLatin1String(group));
}

QStringList SettingsView::settingsSnapshot(Actions::Action action)
{
    QByteArray *image = nullptr;
    SettingsHandler::getInstance()->stash(image);
    const QMap<QString, QVariant> settings =
        readStashImage(image ? *image : QByteArray()).value_or(QMap<QString, QVariant>());

    QStringList lines;
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting) {
        if (setting->isValid())
            lines.append(snapshotLine(setting.key(), *setting));
        else
            emit logError(action, ZephanErrors::kSettingsIncomplete,
                          QStringLiteral("Invalid setting was skipped"));
    }
    return lines;
}

bool SettingsView::appendPrivilegeNotes(QString &text) const
{
    const QString before = text;
    if (!isAllowed(WriteLocalDbSettings))
        text += QLatin1Char(' ') + tr("Lacking privileges to save database settings.");
    if (!isAllowed(AuditTrailManagement))
        text += QLatin1Char(' ') + tr("Lacking privileges to save local audit trail settings.");
    if (!isAllowed(AccessControlManagement))
        text += QLatin1Char(' ') + tr("Lacking privileges to save local access control settings.");
    return text != before;
}

void SettingsView::logSettingsAction(Actions::Action action, Actions::ActionType type, const QString &info)
{
    emit logAction(action, type, UuidString(), QString(), QHostInfo::localHostName(), info);
}

void SettingsView::showMessage(const QString &text)
{
    QMessageBox box(this);
    box.setObjectName(QStringLiteral("settings_message"));
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.addButton(tr("Ok"), QMessageBox::AcceptRole);
    box.exec();
}
