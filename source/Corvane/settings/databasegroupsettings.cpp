#include "Corvane/settings/databasegroupsettings.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/widgets/onelinevalidator.h"

#include <QComboBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kSupportDatabase = 3;
constexpr int kSelectorShown = 4;
constexpr int kFirstSelectable = 1;  // persons: the action log may be barred
constexpr int kOnlineIndex = 0;
constexpr int kOfflineIndex = 1;
constexpr uint kSqlTypes = 5;
constexpr int kItemFlagsRole = Qt::UserRole - 1;  // where the model of a combo box takes an item's flags from

constexpr int kFixedRowsHeight = 245;  // all that is not a line of the two lists
constexpr int kLineHeight = 40;

const char *const kOfflineFile = "offline.access.db";

struct SqlType
{
    int value;
    const char *name;
    bool offered;
};

constexpr SqlType kSqlTypeTable[] = {
    {1, "MsSQL", true}, {2, "MySQL", true}, {3, "PostgreSQL", false}, {4, "SQLite", false}};

const QStringList &databaseGroups()
{
    static const QStringList groups{
        QLatin1String(SettingsKeys::kActionDbGroup), QLatin1String(SettingsKeys::kPersonDbGroup),
        QLatin1String(SettingsKeys::kStudyDbGroup), QLatin1String(SettingsKeys::kSupportDbGroup)};
    return groups;
}

QString bold(const QString &text)
{
    return QStringLiteral("<b>") + text + QStringLiteral("</b>");
}

/// A path without its last component; one without separators stays.
QString cutLastComponent(const QString &path)
{
    const QString plain = QDir::fromNativeSeparators(path);
    const int separators = plain.count(QLatin1Char('/'));
    return plain.section(QLatin1Char('/'), 0, separators - 1);
}

}  // namespace

DatabaseGroupSettings::DatabaseGroupSettings(int databaseIndex, bool editable, bool enableActionDb,
                                             bool showOnlineMode, QMap<QString, QVariant> *settingsMap,
                                             QWidget *parent)
    : BaseView(parent)
    , m_databaseIndex(databaseIndex)
    , m_editable(editable)
    , m_enableActionDb(enableActionDb)
    , m_showOnlineMode(showOnlineMode)
    , m_settingsMap(settingsMap)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
    m_layout->setContentsMargins(0, 0, 0, 0);
    buildModeAndSelector();
    buildConnection();
    buildOffline();
    updateTexts();

    const bool selectorShown = databaseIndex == kSelectorShown;
    m_selector->setCurrentIndex(selectorShown ? kFirstSelectable : databaseIndex);
    m_selector->setVisible(selectorShown);
    getCurrentDBSettings(false);
    connect(m_selector, SIGNAL(currentIndexChanged(int)), this, SLOT(getCurrentDBSettings()));
    if (m_showOnlineMode)
        showOnlineChoice();
    adjustParent();
}

void DatabaseGroupSettings::buildModeAndSelector()
{
    m_modeCombo = new QComboBox(this);
    m_modeCombo->setObjectName(QStringLiteral("online_mode_combo"));
    m_modeCombo->setFixedHeight(FormParts::kFieldHeight);
    m_modeCombo->addItems({QStringLiteral("Online"), QStringLiteral("Offline")});
    m_modeCombo->setEnabled(m_editable);
    m_modeCombo->hide();
    connect(m_modeCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(onlineModeChanged(int)));
    m_layout->addWidget(m_modeCombo);

    m_selector = new QComboBox(this);
    m_selector->setObjectName(QStringLiteral("database_selector"));
    m_selector->setFixedHeight(FormParts::kFieldHeight);
    m_selector->addItems(databaseGroups());
    if (!m_enableActionDb) {
        QAbstractItemModel *rows = m_selector->model();
        rows->setData(rows->index(0, 0), 0, kItemFlagsRole);
    }
    m_layout->addWidget(m_selector);
}

void DatabaseGroupSettings::buildConnection()
{
    m_sqlTypeLabel = addLabel("sql_type_label");
    m_sqlTypeCombo = new QComboBox(this);
    m_sqlTypeCombo->setObjectName(QStringLiteral("sql_type_combo"));
    m_sqlTypeCombo->setFixedHeight(FormParts::kFieldHeight);
    m_sqlTypeCombo->setEnabled(m_editable);
    for (const SqlType &type : kSqlTypeTable) {
        if (type.offered)
            m_sqlTypeCombo->addItem(QLatin1String(type.name), type.value);
    }
    m_sqlTypeLabel->setBuddy(m_sqlTypeCombo);
    m_layout->addWidget(m_sqlTypeCombo);

    m_usernameLabel = addLabel("username_label");
    m_usernameEdit = addField("username_edit", m_usernameLabel);
    m_passwordLabel = addLabel("password_label");
    m_passwordEdit = addField("password_edit", m_passwordLabel);
    m_passwordEdit->setEchoMode(QLineEdit::Password);

    m_paramsLabel = addLabel("connection_settings_label");
    m_paramEditors.layout = new QVBoxLayout;
    m_layout->addLayout(m_paramEditors.layout);
    m_optionsLabel = addLabel("connection_parameters_label");
    m_optionEditors.layout = new QVBoxLayout;
    m_layout->addLayout(m_optionEditors.layout);
}

void DatabaseGroupSettings::buildOffline()
{
    m_locationLabel = addLabel("offline_location_label");
    m_locationEdit = addField("offline_location_edit", m_locationLabel);
    m_browseButton = new QPushButton(this);
    m_browseButton->setObjectName(QStringLiteral("browse_offline_button"));
    m_createButton = new QPushButton(this);
    m_createButton->setObjectName(QStringLiteral("create_offline_button"));
    for (QPushButton *button : {m_browseButton, m_createButton}) {
        button->setFixedHeight(FormParts::kButtonHeight);
        button->setAutoDefault(false);
        button->setEnabled(m_editable);
        connect(button, SIGNAL(clicked()), this, SLOT(offlineClicked()));
        m_layout->addWidget(button);
    }
    for (QWidget *control : offlineControls())
        control->hide();
}

QLabel *DatabaseGroupSettings::addLabel(const char *name)
{
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setFixedHeight(FormParts::kLabelHeight);
    m_layout->addWidget(label);
    return label;
}

QLineEdit *DatabaseGroupSettings::addField(const char *name, QLabel *label)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    field->setFixedHeight(FormParts::kFieldHeight);
    field->setEnabled(m_editable);
    new OneLineValidator(field);
    label->setBuddy(field);
    m_layout->addWidget(field);
    return field;
}

void DatabaseGroupSettings::updateTexts()
{
    m_modeCombo->setAccessibleName(tr("Connection mode"));
    m_selector->setAccessibleName(tr("Database"));
    m_sqlTypeLabel->setText(bold(tr("SQL type")));
    m_sqlTypeCombo->setAccessibleName(tr("SQL type"));
    m_usernameLabel->setText(bold(tr("Username")));
    m_usernameEdit->setAccessibleName(tr("Username"));
    m_passwordLabel->setText(bold(tr("Password")));
    m_passwordEdit->setAccessibleName(tr("Password"));
    m_paramsLabel->setText(bold(tr("Connection settings")));
    m_optionsLabel->setText(bold(tr("Connection parameters")));
    m_locationLabel->setText(bold(tr("Offline database Location")));
    m_locationEdit->setAccessibleName(tr("Offline database Location"));
    m_browseButton->setText(tr("Browse..."));
    m_createButton->setText(tr("Create new database"));
    nameEditors();
}

bool DatabaseGroupSettings::isOffline() const
{
    return m_modeCombo->currentIndex() != kOnlineIndex;
}

QString DatabaseGroupSettings::offlineLocation() const
{
    return m_locationEdit->text();
}

void DatabaseGroupSettings::showOnlineChoice()
{
    m_modeCombo->show();
    if (!m_settingsMap || m_databaseIndex != kSupportDatabase)
        return;
    const QVariant location = m_settingsMap->value(mapKey(SettingsKeys::kOfflineLocation));
    if (location.isValid())
        m_locationEdit->setText(location.toString());
    const QVariant online = m_settingsMap->value(mapKey(SettingsKeys::kOnlineMode));
    if (online.isValid() && !online.toBool())
        m_modeCombo->setCurrentIndex(kOfflineIndex);
}

void DatabaseGroupSettings::getCurrentDBSettings(bool saveFirst)
{
    if (saveFirst)
        saveDBSettings();
    clearEditors(m_paramEditors);
    clearEditors(m_optionEditors);
    m_shownDatabase = m_selector->currentIndex();
    showValues(m_settingsMap ? *m_settingsMap : storedValues());
    addEmptyEditors(false);
    if (m_databaseIndex == kSelectorShown)
        fitToRows();
}

QMap<QString, QVariant> DatabaseGroupSettings::storedValues() const
{
    SettingsHandler *store = SettingsHandler::getInstance();
    QMap<QString, QVariant> values = store->databaseSettings(databaseGroups().value(m_shownDatabase));
    for (const char *name : {SettingsKeys::kUsername, SettingsKeys::kPassword})
        values.insert(mapKey(name), store->safeValue(mapKey(name), QString()));
    values.insert(
        mapKey(SettingsKeys::kConnectOptions),
        store->value(mapKey(SettingsKeys::kConnectOptions), OdbcConnection::defaultConnectOptions()));
    for (const char *name : {SettingsKeys::kDriverParams, SettingsKeys::kSqlType})
        values.insert(mapKey(name), store->value(mapKey(name), QString()));
    return values;
}

void DatabaseGroupSettings::showValues(const QMap<QString, QVariant> &values)
{
    const QVariant username = values.value(mapKey(SettingsKeys::kUsername));
    if (username.isValid())
        m_usernameEdit->setText(username.toString());
    const QVariant password = values.value(mapKey(SettingsKeys::kPassword));
    if (password.isValid())
        m_passwordEdit->setText(password.toString());

    const QVariantMap parameters = values.value(QLatin1String(SettingsKeys::kParams)).toMap();
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter)
        addEditor(m_paramEditors, parameter.key() + QLatin1Char('=') + parameter.value().toString());
    const QStringList options = values.value(mapKey(SettingsKeys::kConnectOptions)).toStringList();
    for (const QString &option : options)
        addEditor(m_optionEditors, option);
    selectSqlType(values.value(mapKey(SettingsKeys::kSqlType)));
}

// An empty text is what the store gives for a type that it does not have.
void DatabaseGroupSettings::selectSqlType(const QVariant &stored)
{
    bool isNumber = false;
    const uint type = stored.toUInt(&isNumber);
    if (isNumber && type < kSqlTypes)
        m_sqlTypeCombo->setCurrentIndex(m_sqlTypeCombo->findData(type, Qt::UserRole, Qt::MatchExactly));
}

void DatabaseGroupSettings::saveDBSettings()
{
    if (!m_editable || m_shownDatabase < 0)
        return;
    if (m_settingsMap)
        saveToMap();
    else
        saveToStore();
}

void DatabaseGroupSettings::saveToMap()
{
    m_settingsMap->insert(QLatin1String(SettingsKeys::kParams), editedParameters());
    m_settingsMap->insert(mapKey(SettingsKeys::kUsername), m_usernameEdit->text());
    m_settingsMap->insert(mapKey(SettingsKeys::kPassword), m_passwordEdit->text());
    m_settingsMap->insert(mapKey(SettingsKeys::kConnectOptions), editedOptions());
    m_settingsMap->insert(mapKey(SettingsKeys::kDriverParams), QString());
    m_settingsMap->insert(mapKey(SettingsKeys::kSqlType), m_sqlTypeCombo->currentData().toInt());
    if (m_shownDatabase == kSupportDatabase && m_showOnlineMode) {
        m_settingsMap->insert(mapKey(SettingsKeys::kOnlineMode), !isOffline());
        m_settingsMap->insert(mapKey(SettingsKeys::kOfflineLocation), m_locationEdit->text());
    }
}

void DatabaseGroupSettings::saveToStore()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setDatabaseSettings(databaseGroups().value(m_shownDatabase),
                               {{QLatin1String(SettingsKeys::kParams), editedParameters()}});
    store->setSafeValue(mapKey(SettingsKeys::kUsername), m_usernameEdit->text());
    store->setSafeValue(mapKey(SettingsKeys::kPassword), m_passwordEdit->text());
    store->setValue(mapKey(SettingsKeys::kConnectOptions), editedOptions());
    store->setValue(mapKey(SettingsKeys::kDriverParams), QString());
    store->setValue(mapKey(SettingsKeys::kSqlType), m_sqlTypeCombo->currentData().toInt());
}

QString DatabaseGroupSettings::mapKey(const char *name) const
{
    return databaseGroups().value(m_shownDatabase) + QLatin1Char('/') + QLatin1String(name);
}

void DatabaseGroupSettings::onlineModeChanged(int index)
{
    const bool online = index == kOnlineIndex;
    m_selector->setVisible(online && m_databaseIndex == kSelectorShown);
    // First hiding keeps the two forms from both taking room, be it for a moment.
    for (QWidget *control : online ? offlineControls() : onlineControls())
        control->hide();
    for (QWidget *control : online ? onlineControls() : offlineControls())
        control->show();
    adjustParent();
}

QList<QWidget *> DatabaseGroupSettings::onlineControls() const
{
    QList<QWidget *> controls{m_sqlTypeLabel,  m_sqlTypeCombo, m_usernameLabel, m_usernameEdit,
                              m_passwordLabel, m_passwordEdit, m_paramsLabel,   m_optionsLabel};
    for (QLineEdit *editor : m_paramEditors.editors + m_optionEditors.editors)
        controls.append(editor);
    return controls;
}

QList<QWidget *> DatabaseGroupSettings::offlineControls() const
{
    return {m_locationLabel, m_locationEdit, m_browseButton, m_createButton};
}

void DatabaseGroupSettings::offlineClicked()
{
    const bool createNew = sender() == m_createButton;
    QString path = m_locationEdit->text();
    if (path.isEmpty())
        path = SettingsHandler::getInstance()
                   ->safeValue(QLatin1String(SettingsKeys::kSingleWorkstationDbLocation), QString())
                   .toString();
    if (createNew)
        path = cutLastComponent(path);

    QFileDialog dialog(this,
                       createNew ? tr("Select offline database location directory")
                                 : tr("Select offline database location"),
                       path);
    dialog.setFileMode(createNew ? QFileDialog::Directory : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, tr("Select"));
    dialog.setLabelText(QFileDialog::Reject, tr("Cancel"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    QString chosen = dialog.selectedFiles().value(0);
    if (createNew)
        chosen += QLatin1Char('/') + QLatin1String(kOfflineFile);
    m_locationEdit->setText(nativePath(chosen));
}

// A focus proxy would do the same, but then the Tab key would pass over all that stands before it.
void DatabaseGroupSettings::focusInEvent(QFocusEvent *event)
{
    QLineEdit *first = isOffline() ? m_locationEdit : m_usernameEdit;
    first->setFocus(event->reason());
}

// The dialog around the editor would press its default button instead.
void DatabaseGroupSettings::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    for (QPushButton *button : {m_browseButton, m_createButton}) {
        if (!isReturn || focusWidget() != button)
            continue;
        event->accept();
        if (!event->isAutoRepeat())
            button->click();
        return;
    }
    BaseView::keyPressEvent(event);
}

void DatabaseGroupSettings::adjustParent()
{
    m_layout->activate();
    if (parentWidget())
        parentWidget()->adjustSize();
}

void DatabaseGroupSettings::fitToRows()
{
    const int lines = m_paramEditors.editors.size() + m_optionEditors.editors.size();
    resize(sizeHint().width(), kFixedRowsHeight + kLineHeight * lines);
}
