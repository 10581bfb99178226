#include "Corvane/views/connectionoptionsdialog.h"

#include "ZephanShared/widgets/onelinevalidator.h"

#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

namespace {

constexpr int kWidth = 480;
constexpr int kGridSpacing = 10;
constexpr int kLabelHeight = 20;
constexpr int kFieldHeight = 25;
constexpr int kButtonHeight = 30;
constexpr int kAreaHeight = 300;
constexpr int kAreaRow = 2;
constexpr int kColumns = 2;

/// The name and value of each part of a line that consists of a name, one "=" and a value.
QList<QPair<QString, QString>> pairsOf(const QString &line)
{
    QList<QPair<QString, QString>> pairs;
    const QStringList parts = line.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const QStringList pieces = part.split(QLatin1Char('='));
        if (pieces.size() == 2)
            pairs.append({pieces.first(), pieces.last()});
    }
    return pairs;
}

}  // namespace

QStringList ConnectionOptions::optionList(const QVariant &connectOptions)
{
    QStringList options = connectOptions.toStringList();
    options.removeAll(QString());
    return options;
}

ConnectionOptionsDialog::ConnectionOptionsDialog(QVariantMap *onlineOptions, QVariantMap *offlineOptions,
                                                 QWidget *parent)
    : QDialog(parent)
    , m_onlineOptions(onlineOptions)
    , m_offlineOptions(offlineOptions)
    , m_online(onlineOptions->value(ConnectionOptions::kOnlineMode).toBool())
    , m_grid(new QGridLayout(this))
{
    setObjectName(QStringLiteral("audit_connection_dialog"));
    setWindowTitle(tr("Audit trail connection options"));
    setFixedWidth(kWidth);
    m_grid->setHorizontalSpacing(kGridSpacing);
    m_grid->setVerticalSpacing(kGridSpacing);
    buildModeCombo();
    buildOnlineArea();
    buildOfflineArea();
    QScrollArea *shown = m_online ? m_onlineArea : m_offlineArea;
    m_grid->addWidget(shown, kAreaRow, 0, 1, kColumns);
    (m_online ? m_offlineArea : m_onlineArea)->hide();
    buildButtons();
    addEmptyEditors(false);
    m_modeCombo->setCurrentIndex(m_online ? 0 : 1);
    connect(m_modeCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(toggleDatabaseLocation(int)));
    m_saveButton->setEnabled(false);
    m_cancelButton->setFocus();
}

void ConnectionOptionsDialog::buildModeCombo()
{
    QLabel *label = makeLabel(tr("Select connection configuration"), this);
    m_grid->addWidget(label, 0, 0, 1, kColumns);
    m_modeCombo = new QComboBox(this);
    m_modeCombo->setObjectName(QStringLiteral("audit_connection_mode"));
    m_modeCombo->setAccessibleName(tr("Select connection configuration"));
    m_modeCombo->setFixedHeight(kFieldHeight);
    m_modeCombo->addItems({tr("online"), tr("offline")});
    label->setBuddy(m_modeCombo);
    m_grid->addWidget(m_modeCombo, 1, 0, 1, kColumns);
}

void ConnectionOptionsDialog::buildOnlineArea()
{
    using namespace ConnectionOptions;
    auto *content = new QWidget(this);
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(makeLabel(tr("Username"), content));
    m_username = makeEdit(QStringLiteral("audit_username"), tr("Username"), content);
    m_username->setText(m_onlineOptions->value(kUsername).toString());
    layout->addWidget(m_username);
    layout->addWidget(makeLabel(tr("Password"), content));
    m_password = makeEdit(QStringLiteral("audit_password"), tr("Password"), content);
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setText(m_onlineOptions->value(kPassword).toString());
    layout->addWidget(m_password);

    const auto addList = [&](LineList &list, const QString &title) {
        layout->addWidget(makeLabel(title, content));
        list.layout = new QVBoxLayout;
        layout->addLayout(list.layout);
    };
    addList(m_settings, tr("Connection settings"));
    addList(m_parameters, tr("Connection parameters"));
    layout->addStretch();
    m_onlineArea = makeArea(content);

    const QVariantMap params = m_onlineOptions->value(kParams).toMap();
    for (auto param = params.cbegin(); param != params.cend(); ++param)
        addEdit(m_settings, param.key() + QLatin1Char('=') + param.value().toString());
    const QStringList options = optionList(m_onlineOptions->value(kConnectOptions));
    for (const QString &option : options)
        addEdit(m_parameters, option);
}

void ConnectionOptionsDialog::buildOfflineArea()
{
    auto *content = new QWidget(this);
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(makeLabel(tr("Location"), content));
    m_location = makeEdit(QStringLiteral("audit_location"), tr("Location"), content);
    m_location->setText(m_offlineOptions->value(ConnectionOptions::kLocation).toString());
    layout->addWidget(m_location);
    auto *browse = new QPushButton(tr("Browse..."), content);
    browse->setObjectName(QStringLiteral("audit_browse"));
    browse->setFixedHeight(kButtonHeight);
    browse->setAutoDefault(false);
    layout->addWidget(browse, 0, Qt::AlignLeft);
    layout->addStretch();
    m_offlineArea = makeArea(content);
    connect(browse, &QPushButton::clicked, this, &ConnectionOptionsDialog::handleBrowseOfflineLocation);
}

void ConnectionOptionsDialog::buildButtons()
{
    m_saveButton = new QPushButton(tr("Save"), this);
    m_saveButton->setObjectName(QStringLiteral("audit_connection_save"));
    m_saveButton->setFixedHeight(kButtonHeight);
    m_saveButton->setDefault(true);
    m_saveButton->setEnabled(false);
    m_cancelButton = new QPushButton(tr("Cancel"), this);
    m_cancelButton->setObjectName(QStringLiteral("audit_connection_cancel"));
    m_cancelButton->setFixedHeight(kButtonHeight);
    m_cancelButton->setAutoDefault(false);
    m_grid->addWidget(m_saveButton, kAreaRow + 1, 0, Qt::AlignLeft);
    m_grid->addWidget(m_cancelButton, kAreaRow + 1, 1, Qt::AlignRight);
    connect(m_saveButton, &QPushButton::clicked, this, &ConnectionOptionsDialog::handleSaveClicked);
    connect(m_cancelButton, &QPushButton::clicked, this, &ConnectionOptionsDialog::handleCancelClicked);
    for (QLineEdit *edit : {m_username, m_password, m_location}) {
        new OneLineValidator(edit);
        connect(edit, SIGNAL(textChanged(QString)), this, SLOT(handleSaveButtonState()));
    }
}

QLabel *ConnectionOptionsDialog::makeLabel(const QString &text, QWidget *parent) const
{
    auto *label = new QLabel(QStringLiteral("<b>%1</b>").arg(text), parent);
    label->setFixedHeight(kLabelHeight);
    return label;
}

QLineEdit *ConnectionOptionsDialog::makeEdit(const QString &name, const QString &accessibleName,
                                             QWidget *parent) const
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setAccessibleName(accessibleName);
    edit->setFixedHeight(kFieldHeight);
    return edit;
}

QScrollArea *ConnectionOptionsDialog::makeArea(QWidget *content)
{
    auto *area = new QScrollArea(this);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumHeight(kAreaHeight);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(content);
    return area;
}

void ConnectionOptionsDialog::addEdit(LineList &list, const QString &text)
{
    const bool isSetting = &list == &m_settings;
    QLineEdit *before = m_password;
    if (!list.edits.isEmpty())
        before = list.edits.last();
    else if (!isSetting && !m_settings.edits.isEmpty())
        before = m_settings.edits.last();

    QWidget *content = m_username->parentWidget();
    QLineEdit *edit =
        makeEdit(isSetting ? QStringLiteral("audit_setting") : QStringLiteral("audit_parameter"),
                 isSetting ? tr("Connection settings") : tr("Connection parameters"), content);
    edit->setText(text);
    list.layout->addWidget(edit);
    setTabOrder(before, edit);
    list.edits.append(edit);
    connect(edit, SIGNAL(editingFinished()), this, SLOT(addEmptyEditors()));
    connect(edit, SIGNAL(textChanged(QString)), this, SLOT(handleSaveButtonState()));
}

void ConnectionOptionsDialog::handleSaveClicked()
{
    using namespace ConnectionOptions;
    m_onlineOptions->insert(kOnlineMode, m_online);
    if (m_online) {
        m_onlineOptions->insert(kParams, editedParameters());
        m_onlineOptions->insert(kConnectOptions, editedOptions());
        if (!m_username->text().isEmpty())
            m_onlineOptions->insert(kUsername, m_username->text());
        if (!m_password->text().isEmpty())
            m_onlineOptions->insert(kPassword, m_password->text());
    } else if (!m_location->text().isEmpty()) {
        m_offlineOptions->insert(kLocation, m_location->text());
    }
    accept();
}

void ConnectionOptionsDialog::handleCancelClicked()
{
    reject();
}

void ConnectionOptionsDialog::handleToolClicked() {}

// Save stays the default button wherever the focus is. Return on another button presses that one all the
// same.
void ConnectionOptionsDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto *button = qobject_cast<QPushButton *>(focusWidget());
    if (!isReturn || !button)
        QDialog::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        button->click();
}

void ConnectionOptionsDialog::toggleDatabaseLocation(int index)
{
    m_online = index != 1;
    QScrollArea *left = m_online ? m_offlineArea : m_onlineArea;
    QScrollArea *shown = m_online ? m_onlineArea : m_offlineArea;
    m_grid->removeWidget(left);
    left->hide();
    m_grid->addWidget(shown, kAreaRow, 0, 1, kColumns);
    shown->show();
    handleSaveButtonState();
}

void ConnectionOptionsDialog::addEmptyEditors(bool setFocus)
{
    bool moveFocus = false;
    auto *finished = setFocus ? qobject_cast<QLineEdit *>(sender()) : nullptr;
    if (finished) {
        finished->setText(finished->text().trimmed());
        moveFocus = finished->hasFocus();
    }
    keepOneSpare(m_settings, moveFocus);
    keepOneSpare(m_parameters, moveFocus);
}

void ConnectionOptionsDialog::keepOneSpare(LineList &list, bool moveFocus)
{
    if (list.edits.isEmpty() || !list.edits.last()->text().isEmpty()) {
        addEdit(list, QString());
        if (moveFocus)
            list.edits.last()->setFocus();
        handleSaveButtonState();
        return;
    }
    for (int i = list.edits.size() - 2; i >= 0; --i) {
        if (!list.edits.at(i)->text().isEmpty())
            continue;
        QLineEdit *surplus = list.edits.takeAt(i);
        surplus->disconnect(this);
        list.layout->removeWidget(surplus);
        surplus->hide();
        surplus->deleteLater();
    }
    handleSaveButtonState();
}

void ConnectionOptionsDialog::handleBrowseOfflineLocation()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Choose database file"), m_location->text(), tr("DB (*.db)"));
    if (file.isEmpty())
        return;
    m_location->setText(file);
    handleSaveButtonState();
}

void ConnectionOptionsDialog::handleSaveButtonState()
{
    if (!m_saveButton)
        return;
    if (m_online && m_settings.edits.size() == 1 && m_settings.edits.first()->text().isEmpty()) {
        m_saveButton->setEnabled(false);
        return;
    }
    const bool otherMode = m_online != m_onlineOptions->value(ConnectionOptions::kOnlineMode).toBool();
    m_saveButton->setEnabled(otherMode || (m_online ? hasOnlineChange() : hasOfflineChange()));
}

/// One edit of each list is always the spare: as many entries stored as there are edits means one was taken
/// away.
bool ConnectionOptionsDialog::hasOnlineChange() const
{
    using namespace ConnectionOptions;
    const QVariantMap storedParams = m_onlineOptions->value(kParams).toMap();
    for (const QLineEdit *edit : m_settings.edits) {
        const auto pairs = pairsOf(edit->text());
        for (const auto &pair : pairs) {
            if (!storedParams.contains(pair.first) ||
                storedParams.value(pair.first).toString() != pair.second)
                return true;
        }
    }
    const QStringList storedOptions = optionList(m_onlineOptions->value(kConnectOptions));
    for (const QLineEdit *edit : m_parameters.edits) {
        if (!edit->text().isEmpty() && !storedOptions.contains(edit->text()))
            return true;
    }
    return storedParams.size() >= m_settings.edits.size() ||
           storedOptions.size() >= m_parameters.edits.size() ||
           m_username->text() != m_onlineOptions->value(kUsername).toString() ||
           m_password->text() != m_onlineOptions->value(kPassword).toString();
}

bool ConnectionOptionsDialog::hasOfflineChange() const
{
    const QString location = m_location->text();
    return !location.isEmpty() &&
           location != m_offlineOptions->value(ConnectionOptions::kLocation).toString();
}

QVariantMap ConnectionOptionsDialog::editedParameters() const
{
    QVariantMap params;
    for (const QLineEdit *edit : m_settings.edits) {
        const auto pairs = pairsOf(edit->text());
        for (const auto &pair : pairs)
            params.insert(pair.first, pair.second);
    }
    return params;
}

QStringList ConnectionOptionsDialog::editedOptions() const
{
    QStringList options;
    for (const QLineEdit *edit : m_parameters.edits)
        options += edit->text().split(QLatin1Char(';'), Qt::SkipEmptyParts);
    return options;
}
