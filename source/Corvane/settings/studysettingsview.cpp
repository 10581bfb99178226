#include "Corvane/settings/studysettingsview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/referencesets.h"
#include "Corvane/settings/studyentries.h"
#include "ZephanShared/toolkit/applicationhelper.h"
#include "ZephanShared/widgets/selectionpopup.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QSettings>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int kFrameWidth = 362;
constexpr int kShortestName = 20;  // letters; longer names are cut while the box is closed

const char *const kPluginSettings = "RuvenkaPlugin";
const char *const kReferenceSetsKey = "reference_sets";

/// The measurement plug-in's own value. Its file is another program's, so that nothing is made or repaired
/// here.
QVariant pluginReferenceSets()
{
    QSettings settings(QSettings::IniFormat, QSettings::SystemScope, QLatin1String(kSuiteOrganisation),
                       QLatin1String(kPluginSettings));
    settings.setIniCodec("UTF-8");
    return settings.value(QLatin1String(kReferenceSetsKey), QString());
}

void keepNarrow(QComboBox *box)
{
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kShortestName);
}

QStringList sortedByName(const QMap<QString, QString> &names)
{
    QStringList ids = names.keys();
    std::stable_sort(ids.begin(), ids.end(), [&names](const QString &left, const QString &right) {
        return names.value(left) < names.value(right);
    });
    return ids;
}

QString idOf(const QListWidgetItem *item)
{
    return item->data(Qt::UserRole).toString();
}

/// In the list's order. The selection is asked as a whole: asked for each item it takes a time that grows
/// with the square of a long list's length.
QStringList selectedIds(const SelectionPopup *list)
{
    QModelIndexList indexes = list->selectionModel()->selectedIndexes();
    std::sort(indexes.begin(), indexes.end());
    QStringList ids;
    for (const QModelIndex &index : qAsConst(indexes))
        ids.append(index.data(Qt::UserRole).toString());
    return ids;
}

void selectIds(SelectionPopup *list, const QStringList &ids)
{
    const QSet<QString> wanted(ids.cbegin(), ids.cend());
    QItemSelection selection;
    for (int row = 0; row < list->count(); ++row) {
        const QModelIndex index = list->model()->index(row, 0);
        if (wanted.contains(index.data(Qt::UserRole).toString()))
            selection.append(QItemSelectionRange(index));
    }
    list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

}  // namespace

StudySettingsView::StudySettingsView(const QString &dataPath, QWidget *parent)
    : BaseView(parent)
{
    loadApplications(dataPath);
    m_namedReferenceSets = StudyEntries::namedReferenceSets(pluginReferenceSets());

    auto *content = new QWidget(this);
    QHBoxLayout *columns = FormParts::makeColumns(content);
    QFrame *frame = FormParts::makeFrame(kFrameWidth, content);
    columns->addWidget(frame);
    auto *rows = qobject_cast<QBoxLayout *>(frame->layout());
    buildHead(rows);
    m_referenceSection = buildReferenceSets(frame);
    rows->addWidget(m_referenceSection);
    if (!m_applications.isEmpty()) {
        m_fieldsSection = buildFields(frame);
        rows->addWidget(m_fieldsSection);
    }
    rows->addStretch();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FormParts::makeScrollable(content, this));
    updateTexts();
    reloadSettings();
}

void StudySettingsView::loadApplications(const QString &dataPath)
{
    ApplicationHelper helper;
    // Nobody can listen to this page before it is built.
    connect(&helper, &ApplicationHelper::logError, this, &StudySettingsView::logError, Qt::QueuedConnection);
    m_applications = helper.applications(dataPath + QLatin1String(LocalCache::kFileName));
}

void StudySettingsView::buildHead(QBoxLayout *layout)
{
    auto *row = new QHBoxLayout;
    layout->addLayout(row);
    m_applicationLabel = FormParts::addTitle(row);
    m_applicationBox = FormParts::addComboBox(row, QStringLiteral("study_application"));
    keepNarrow(m_applicationBox);
    m_noPluginsLabel = FormParts::addLabel(row);
    m_noPluginsLabel->setObjectName(QStringLiteral("no_study_plugins"));
    m_noPluginsLabel->setWordWrap(true);
    m_noPluginsLabel->setMinimumHeight(FormParts::kLabelHeight);
    m_noPluginsLabel->setMaximumHeight(QWIDGETSIZE_MAX);
    row->setStretchFactor(m_applicationBox, 1);
    fillApplications();

    m_applicationLabel->setVisible(!m_applications.isEmpty());
    m_applicationBox->setVisible(!m_applications.isEmpty());
    m_noPluginsLabel->setVisible(m_applications.isEmpty());
    connect(m_applicationBox, SIGNAL(currentIndexChanged(int)), this, SLOT(resetStudyFields(int)));
}

void StudySettingsView::fillApplications()
{
    if (m_applications.isEmpty())
        return;
    for (auto entry = m_applications.cbegin(); entry != m_applications.cend(); ++entry)
        m_applicationBox->addItem(QString(), entry.key());
    const QString spirometry = QLatin1String(kSpirometryApplication);
    if (!m_applications.contains(spirometry))
        m_applicationBox->addItem(QString(), spirometry);
}

QWidget *StudySettingsView::buildReferenceSets(QWidget *parent)
{
    auto *section = new QWidget(parent);
    section->setObjectName(QStringLiteral("reference_sets"));
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    m_hiddenSetsLabel = FormParts::addLabel(layout);
    m_hiddenSetsButton = FormParts::addButton(layout, QStringLiteral("hidden_reference_sets"));
    m_hiddenSets = new SelectionPopup(m_hiddenSetsButton, this);
    m_hiddenSets->setObjectName(QStringLiteral("hidden_reference_sets_list"));
    m_defaultSetLabel = FormParts::addLabel(layout);
    m_defaultSet = FormParts::addComboBox(layout, QStringLiteral("default_reference_set"));
    keepNarrow(m_defaultSet);

    connect(m_hiddenSetsButton, SIGNAL(clicked()), this, SLOT(showOrHideListWidget()));
    connect(m_hiddenSets, SIGNAL(itemSelectionChanged()), this, SLOT(handleSelectedRefsetChange()));
    connect(m_defaultSet, SIGNAL(currentIndexChanged(int)), this,
            SLOT(handleSelectedDefaultRefsetChange(int)));
    return section;
}

void StudySettingsView::updateTexts()
{
    FormParts::setLabelText(m_applicationLabel, m_applicationBox, tr("Study information settings for"));
    m_noPluginsLabel->setText(tr("More study specific settings available when study plugins are installed"));
    for (int i = 0; i < m_applicationBox->count(); ++i)
        m_applicationBox->setItemText(i, applicationText(m_applicationBox->itemData(i).toString()));

    FormParts::setLabelText(m_hiddenSetsLabel, m_hiddenSetsButton, tr("Hidden spirometry reference sets"));
    m_hiddenSets->setAccessibleName(tr("Hidden spirometry reference sets"));
    FormParts::setLabelText(m_defaultSetLabel, m_defaultSet, tr("Default spirometry reference set"));
    fillReferenceSets();
    if (m_fieldsSection)
        updateFieldTexts();
}

QString StudySettingsView::applicationText(const QString &id) const
{
    const AbstractApplication *application = m_applications.value(id);
    if (!application)
        return tr("Spirometry");
    const QString displayName = application->displayName();
    return displayName.isEmpty() ? id : displayName;
}

void StudySettingsView::fillReferenceSets()
{
    m_referenceSetNames = m_namedReferenceSets.value_or(QMap<QString, QString>());
    for (const ReferenceSet &set : builtInReferenceSets()) {
        const QString id = QLatin1String(set.id);
        m_referenceSetDescriptions.insert(id, QObject::tr(set.description));
        if (!m_namedReferenceSets)
            m_referenceSetNames.insert(id, QObject::tr(set.name));
    }

    const QStringList hidden = selectedIds(m_hiddenSets);
    const QString preset = m_defaultSet->currentData().toString();
    {
        const QSignalBlocker listBlocker(m_hiddenSets);
        const QSignalBlocker boxBlocker(m_defaultSet);
        m_hiddenSets->clear();
        m_defaultSet->clear();
        m_defaultSet->addItem(QString());
        const QStringList ids = sortedByName(m_referenceSetNames);
        for (const QString &id : ids) {
            const QString name = m_referenceSetNames.value(id);
            auto *item = new QListWidgetItem(name, m_hiddenSets);
            item->setToolTip(m_referenceSetDescriptions.value(id));
            item->setData(Qt::UserRole, id);
            m_defaultSet->addItem(name, id);
        }
    }
    select({hidden, preset});
}

void StudySettingsView::select(const StudyEntries::ReferenceChoice &choice)
{
    {
        const QSignalBlocker blocker(m_hiddenSets);
        selectIds(m_hiddenSets, choice.hidden);
    }
    handleSelectedRefsetChange();
    const int index = choice.preset.isEmpty() ? 0 : m_defaultSet->findData(choice.preset);
    m_defaultSet->setCurrentIndex(qMax(0, index));
}

void StudySettingsView::reloadSettings()
{
    const QString focused = focusedField();
    resetStudyFields(m_applicationBox->currentIndex(), false);
    focusField(focused);
    readReferenceChoice();
}

void StudySettingsView::saveSettings()
{
    writeListFields();
    writeHiddenFields();
    writeReferenceChoice();
}

void StudySettingsView::readReferenceChoice()
{
    const QStringList entries = SettingsHandler::getInstance()
                                    ->value(QLatin1String(SettingsKeys::kStudySpecific), QStringList())
                                    .toStringList();
    select(StudyEntries::referenceChoice(entries, QLatin1String(kSpirometryApplication)));
}

void StudySettingsView::writeReferenceChoice()
{
    const QString key = QLatin1String(SettingsKeys::kStudySpecific);
    const QStringList entries = SettingsHandler::getInstance()->value(key, QStringList()).toStringList();
    StudyEntries::ReferenceChoice choice{selectedIds(m_hiddenSets), QString()};
    if (!m_defaultSet->currentText().isEmpty())
        choice.preset = m_defaultSet->currentData().toString();
    SettingsHandler::getInstance()->setValue(
        key, StudyEntries::withReferenceChoice(entries, QLatin1String(kSpirometryApplication), choice,
                                               m_referenceSetNames));
}

void StudySettingsView::showOrHideListWidget()
{
    m_hiddenSets->showOrHide();
}

void StudySettingsView::handleSelectedRefsetChange()
{
    m_hiddenSets->updateButtonText(tr("Select to hide"));
    if (m_defaultSet->currentIndex() > 0 &&
        selectedIds(m_hiddenSets).contains(m_defaultSet->currentData().toString()))
        m_defaultSet->setCurrentIndex(0);
}

void StudySettingsView::handleSelectedDefaultRefsetChange(int index)
{
    if (index <= 0)
        return;
    const QString id = m_defaultSet->itemData(index).toString();
    for (int row = 0; row < m_hiddenSets->count(); ++row) {
        if (idOf(m_hiddenSets->item(row)) == id)
            m_hiddenSets->item(row)->setSelected(false);
    }
}
