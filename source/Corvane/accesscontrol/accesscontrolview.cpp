#include "Corvane/accesscontrol/accesscontrolview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/columnlineedit.h"
#include "ZephanShared/widgets/returnkey.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QHideEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr int kTopSpacing = 30;
constexpr int kComboHeight = 25;
constexpr int kButtonHeight = 30;

/// Runs a question about unsaved work.
///
/// \param labels  of the standard buttons that it has; Yes is the default
QMessageBox::StandardButton askToSave(QWidget *parent, const QString &title, const QString &text,
                                      const QMap<QMessageBox::StandardButton, QString> &labels)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    for (auto label = labels.cbegin(); label != labels.cend(); ++label)
        box.addButton(label.key())->setText(label.value());
    box.setDefaultButton(QMessageBox::Yes);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

AccesscontrolView::AccesscontrolView(SupportConnectionHandler *handler, QWidget *parent)
    : BaseView(parent)
    , m_handler(handler)
{
    // A press beside the fields leaves the one that is being typed in. On Save, which is off until then, it
    // enables the button before it reaches it.
    setFocusPolicy(Qt::ClickFocus);
    connect(&m_domainHelper, SIGNAL(domainListUpdated(QStringList)), this,
            SLOT(domainListUpdated(QStringList)));
    // The list asked for at its construction may have come before anybody listened.
    emit m_domainHelper.updateDomainList();

    auto *column = new QVBoxLayout(this);
    column->addSpacing(kTopSpacing);
    buildControls(column);
    buildTables(column);
    buildSaveButton(column);
    if (m_handler) {
        column->addLayout(m_handler->createConnectionRow());
        connect(m_handler, SIGNAL(reconnected()), this, SLOT(resetTables()));
    }
    selectConfiguredMethod();
    connectAddButton();
    connectCombo(m_viewCombo, true);
    connectCombo(m_methodCombo, true);
    updateTexts();
}

bool AccesscontrolView::ensureConnection()
{
    if (!m_handler)
        return false;
    if (!m_handler->isConnected()) {
        m_handler->setOfflineAllowed(true);
        m_handler->connectionOptions();
    }
    if (!m_handler->isConnected())
        return false;
    if (!m_filled)
        resetTables();  // of a connection that was there before anybody was told
    updateButtonStates();
    return true;
}

void AccesscontrolView::buildControls(QBoxLayout *column)
{
    m_viewCombo = new QComboBox(this);
    m_viewCombo->setObjectName(QStringLiteral("view_combo"));
    for (int view = UsersView; view <= DepartmentsView; ++view)
        m_viewCombo->addItem(QString(), view);
    m_addButton = new QPushButton(this);
    m_addButton->setObjectName(QStringLiteral("add_button"));
    m_addButton->setFixedHeight(kButtonHeight);
    clickByReturn(m_addButton);
    m_methodPlaceholder = new QLabel(this);
    m_methodCombo = new QComboBox(this);
    m_methodCombo->setObjectName(QStringLiteral("method_combo"));
    for (const uint type :
         {OperatorModelData::InternalUser, OperatorModelData::WindowsGroup, OperatorModelData::WindowsUser})
        m_methodCombo->addItem(QString(), type);

    auto *row = new QHBoxLayout;
    for (QWidget *widget :
         {static_cast<QWidget *>(m_viewCombo), static_cast<QWidget *>(m_addButton),
          static_cast<QWidget *>(m_methodPlaceholder), static_cast<QWidget *>(m_methodCombo)})
        row->addWidget(widget, 1);
    for (QComboBox *combo : {m_viewCombo, m_methodCombo})
        combo->setFixedHeight(kComboHeight);
    m_methodPlaceholder->hide();
    column->addLayout(row);
}

void AccesscontrolView::buildTables(QBoxLayout *column)
{
    m_userTable = new CellTable(CellTable::TabLeaves, this);
    m_userTable->setObjectName(QStringLiteral("user_table"));
    m_roleTable = new CellTable(CellTable::TabLeaves, this);
    m_roleTable->setObjectName(QStringLiteral("role_table"));
    m_infoTable = new CellTable(CellTable::TabGoesThrough, this);
    m_infoTable->setObjectName(QStringLiteral("info_table"));
    for (CellTable *table : {m_userTable, m_roleTable, m_infoTable}) {
        table->hide();
        column->addWidget(table, 1);
    }
    m_userTable->show();
}

void AccesscontrolView::buildSaveButton(QBoxLayout *column)
{
    m_saveButton = new QPushButton(this);
    m_saveButton->setObjectName(QStringLiteral("save_button"));
    m_saveButton->setFixedHeight(kButtonHeight);
    clickByReturn(m_saveButton);
    m_saveButton->setEnabled(false);
    connect(m_saveButton, SIGNAL(clicked()), this, SLOT(save()));
    column->addWidget(m_saveButton);
    auto *key = new QShortcut(QKeySequence::Save, this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, SIGNAL(activated()), this, SLOT(saveByKey()));
}

void AccesscontrolView::selectConfiguredMethod()
{
    static const QMap<QString, int> indices{{QStringLiteral("none"), 0},
                                            {QStringLiteral("Internal users"), 0},
                                            {QStringLiteral("Windows group based"), 1},
                                            {QStringLiteral("Windows user based"), 2}};
    const QString method =
        SettingsHandler::getInstance()
            ->safeValue(QLatin1String(SettingsKeys::kAccessMethod), QStringLiteral("default"))
            .toString();
    m_methodCombo->setCurrentIndex(indices.value(method, m_methodCombo->currentIndex()));
    m_previousMethodIndex = m_methodCombo->currentIndex();
}

void AccesscontrolView::connectCombo(QComboBox *combo, bool connected)
{
    const char *slot = combo == m_viewCombo ? SLOT(changeView(int)) : SLOT(accessMethodChanged(int));
    if (connected)
        connect(combo, SIGNAL(currentIndexChanged(int)), this, slot);
    else
        disconnect(combo, SIGNAL(currentIndexChanged(int)), this, slot);
}

/// Selects an entry without the question and the switch that follow a person's choice.
void AccesscontrolView::selectSilently(QComboBox *combo, int index)
{
    connectCombo(combo, false);
    combo->setCurrentIndex(index);
    connectCombo(combo, true);
}

void AccesscontrolView::connectAddButton()
{
    disconnect(m_addButton, SIGNAL(clicked()), nullptr, nullptr);
    const char *slot = SLOT(newManagedUser());
    if (m_currentView == RolesView)
        slot = SLOT(newRole());
    else if (m_currentView == OrganizationsView)
        slot = SLOT(newOrganization());
    else if (m_currentView == DepartmentsView)
        slot = SLOT(newDepartment());
    else if (operatorType() == OperatorModelData::WindowsUser)
        slot = SLOT(newSystemUser());
    else if (operatorType() == OperatorModelData::WindowsGroup)
        slot = SLOT(newSystemGroup());
    connect(m_addButton, SIGNAL(clicked()), this, slot);
}

uint AccesscontrolView::operatorType() const
{
    return m_methodCombo->currentData().toUInt();
}

CellTable *AccesscontrolView::tableOf(int view) const
{
    if (view == UsersView)
        return m_userTable;
    return view == RolesView ? m_roleTable : m_infoTable;
}

void AccesscontrolView::changeView(int index)
{
    if (!mayLeaveChanges()) {
        selectSilently(m_viewCombo, m_previousViewIndex);
        return;
    }
    m_currentView = m_viewCombo->itemData(index).toInt();
    m_previousViewIndex = index;
    showTable();
    updateTexts();
    connectAddButton();
    updateButtonStates();
}

void AccesscontrolView::showTable()
{
    for (CellTable *table : {m_userTable, m_roleTable, m_infoTable})
        table->hide();
    const bool users = m_currentView == UsersView;
    m_methodCombo->setVisible(users);
    m_methodPlaceholder->setVisible(!users);
    showInfoColumnsAndRows();
    tableOf(m_currentView)->show();
    tableOf(m_currentView)->doItemsLayout();
}

void AccesscontrolView::accessMethodChanged(int method)
{
    if (!mayLeaveChanges()) {
        selectSilently(m_methodCombo, m_previousMethodIndex);
        return;
    }
    m_previousMethodIndex = method;
    applyMethod();
}

void AccesscontrolView::applyMethod()
{
    updateTexts();
    connectAddButton();
    filterRows();
    updateButtonStates();
}

/// Asks what is to become of the changes of the table that is shown, if there are any, and saves them when
/// that is wanted.
///
/// \return  false when the person wants to stay
bool AccesscontrolView::mayLeaveChanges()
{
    if (!m_saveButton->isEnabled())
        return true;
    const auto answer = askToSave(window(), QString(), tr("There are unsaved changes.\nSave now?"),
                                  {{QMessageBox::Yes, tr("Yes")},
                                   {QMessageBox::No, tr("Not now")},
                                   {QMessageBox::Cancel, tr("Cancel")}});
    if (answer == QMessageBox::Yes)
        save();
    return answer != QMessageBox::Cancel;
}

void AccesscontrolView::domainListUpdated(QStringList domainList)
{
    m_domainList = domainList;
}

void AccesscontrolView::saveByKey()
{
    commitEditInProgress();
    if (m_saveButton->isEnabled())
        save();
}

/// A text that is still being typed is a change as well.
void AccesscontrolView::commitEditInProgress()
{
    if (auto *edit = qobject_cast<ColumnLineEdit *>(m_infoTable->viewport()->focusWidget()))
        edit->edited();
}

// A minimised window hides its views as well, but nobody has left them.
void AccesscontrolView::hideEvent(QHideEvent *event)
{
    BaseView::hideEvent(event);
    if (event->spontaneous())
        return;
    commitEditInProgress();
    const int shownView = m_currentView;
    connectCombo(m_methodCombo, false);
    const QVector<int> methods = changedMethods();
    const QVector<int> views = changedViews();
    if (!methods.isEmpty() || !views.isEmpty()) {
        const auto answer =
            askToSave(window(), tr("Access Control Management"), tr("There are unsaved changes.\nSave now?"),
                      {{QMessageBox::Yes, tr("Yes")}, {QMessageBox::No, tr("No")}});
        if (answer == QMessageBox::Yes)
            saveNoted(methods, views);
    }
    m_currentView = UsersView;
    m_methodCombo->setCurrentIndex(m_previousMethodIndex);
    filterRows();
    connectCombo(m_methodCombo, true);
    m_currentView = shownView;
    updateTexts();
    connectAddButton();
    updateButtonStates();
}

/// The types of users with changes, as indices of the list of types. Leaves the last one selected.
QVector<int> AccesscontrolView::changedMethods()
{
    QVector<int> methods;
    m_currentView = UsersView;
    for (int method = 0; method < m_methodCombo->count(); ++method) {
        m_methodCombo->setCurrentIndex(method);
        applyMethod();
        if (m_saveButton->isEnabled())
            methods.append(method);
    }
    return methods;
}

QVector<int> AccesscontrolView::changedViews()
{
    QVector<int> views;
    for (const int view : {RolesView, OrganizationsView, DepartmentsView}) {
        m_currentView = view;
        updateButtonStates();
        if (m_saveButton->isEnabled())
            views.append(view);
    }
    return views;
}

void AccesscontrolView::saveNoted(const QVector<int> &methods, const QVector<int> &views)
{
    m_currentView = UsersView;
    for (const int method : methods) {
        m_methodCombo->setCurrentIndex(method);
        filterRows();
        save();
    }
    for (const int view : views) {
        m_currentView = view;
        save();
    }
}

void AccesscontrolView::showFailure(const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok, window());
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    box.exec();
}
