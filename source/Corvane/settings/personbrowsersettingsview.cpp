#include "Corvane/settings/personbrowsersettingsview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/importexportsettings.h"
#include "Corvane/settings/plainsettings.h"
#include "Corvane/settings/settingslists.h"
#include "ZephanShared/toolkit/languages.h"
#include "ZephanShared/widgets/dateformathelper.h"
#include "ZephanShared/widgets/selectionpopup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSettings>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

using PlainSettings::read;
using PlainSettings::write;

namespace {

constexpr int kNarrowFrame = 316;
constexpr int kWideFrame = 400;

const char *const kLanguageFile = "language.ini";
const char *const kDefaultLanguage = "en_GB";
const char *const kSystemLanguage = "system";

constexpr int kStandardSize = 1;

/// A text with a mark for translators: "Japanese" is the name of a language on this page, too.
struct MarkedText
{
    const char *source;
    const char *mark;
};

const MarkedText kIdSystems[] = {
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Unknown", "personal ID system"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Finnish", "personal ID system"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Swedish", "personal ID system"),
};
constexpr int kUnknownIdSystem = 0;
constexpr int kDefaultIdSystem = 1;

const MarkedText kEthnicGroups[] = {
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "No Information", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "African American", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Asian", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Caucasian", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Hispanic", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Hong Kong Chinese", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Japanese American", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Polynesian", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "North Indian and Pakistani", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "South Indian", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "African Descent", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Japanese", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Mexican American", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "North East Asian", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "South East Asian", "ethnic group"),
    QT_TRANSLATE_NOOP3("PersonBrowserSettingsView", "Mixed / Other", "ethnic group"),
};

QString translated(const MarkedText &text)
{
    return PersonBrowserSettingsView::tr(text.source, text.mark);
}

void addNumberedItems(QComboBox *box, int count)
{
    for (int number = 0; number < count; ++number)
        box->addItem(QString(), number);
}

}  // namespace

PersonBrowserSettingsView::PersonBrowserSettingsView(QString dataPath, QWidget *parent)
    : BaseView(parent)
    , m_dataPath(std::move(dataPath))
{
    auto *content = new QWidget(this);
    QHBoxLayout *columns = FormParts::makeColumns(content);
    columns->addWidget(buildApplication(content), kNarrowFrame);
    columns->addWidget(buildExchange(content), kWideFrame);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FormParts::makeScrollable(content, this));
    updateTexts();
    reloadSettings();
}

QWidget *PersonBrowserSettingsView::buildApplication(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kNarrowFrame, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    buildGeneral(layout);
    buildIdSystems(layout);
    buildEthnicGroups(layout);
    layout->addStretch();
    return frame;
}

void PersonBrowserSettingsView::buildGeneral(QBoxLayout *layout)
{
    m_applicationTitle = FormParts::addTitle(layout);
    m_settingsUpdating = FormParts::addCheckBox(layout, QStringLiteral("settings_updating"));
    m_languageLabel = FormParts::addLabel(layout);
    m_language = FormParts::addComboBox(layout, QStringLiteral("language"));
    m_dateFormatLabel = FormParts::addLabel(layout);
    m_dateFormat = FormParts::addComboBox(layout, QStringLiteral("date_format"));
    for (int format = 0; format < DateFormatHelper::kFormatCount; ++format) {
        for (int separator = 0; separator < DateFormatHelper::kSeparatorCount; ++separator)
            m_dateFormat->addItem(DateFormatHelper(format, separator).hintText(),
                                  packDateFormat(format, separator));
    }
    m_timeAmPm = FormParts::addCheckBox(layout, QStringLiteral("time_ampm"));
    m_unitsLabel = FormParts::addLabel(layout);
    m_units = FormParts::addComboBox(layout, QStringLiteral("measurement_units"));
    addNumberedItems(m_units, 2);
    m_sizeLabel = FormParts::addLabel(layout);
    m_size = FormParts::addComboBox(layout, QStringLiteral("default_geometry"));
    addNumberedItems(m_size, 3);
    m_statusbar = FormParts::addCheckBox(layout, QStringLiteral("enable_statusbar"));
    m_prefillStudy = FormParts::addCheckBox(layout, QStringLiteral("prefill_study"));
}

void PersonBrowserSettingsView::buildIdSystems(QBoxLayout *layout)
{
    m_idSystemsTitle = FormParts::addTitle(layout);
    m_usedSystemsLabel = FormParts::addLabel(layout);
    for (int number = kUnknownIdSystem + 1; number < static_cast<int>(std::size(kIdSystems)); ++number) {
        QCheckBox *box = FormParts::addCheckBox(layout, QStringLiteral("personal_id_system_%1").arg(number));
        connect(box, &QCheckBox::toggled, this, &PersonBrowserSettingsView::handleIdChecked);
        m_idSystemBoxes.insert(number, box);
    }
    m_defaultIdSystemLabel = FormParts::addLabel(layout);
    m_defaultIdSystem = FormParts::addComboBox(layout, QStringLiteral("default_personal_id_system"));
    addNumberedItems(m_defaultIdSystem, std::size(kIdSystems));
    connect(m_defaultIdSystem, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PersonBrowserSettingsView::handleIdSystemChange);
}

void PersonBrowserSettingsView::buildEthnicGroups(QBoxLayout *layout)
{
    m_ethnicGroupsTitle = FormParts::addTitle(layout);
    m_shownEthnicsLabel = FormParts::addLabel(layout);
    m_ethnicsButton = FormParts::addButton(layout, QStringLiteral("ethnic_groups"));
    m_ethnics = new SelectionPopup(m_ethnicsButton, this);
    m_ethnics->setObjectName(QStringLiteral("ethnic_groups_list"));
    m_defaultEthnicLabel = FormParts::addLabel(layout);
    m_defaultEthnic = FormParts::addComboBox(layout, QStringLiteral("default_ethnic"));
    addNumberedItems(m_defaultEthnic, std::size(kEthnicGroups));
    for (int number = 0; number < static_cast<int>(std::size(kEthnicGroups)); ++number) {
        auto *item = new QListWidgetItem(m_ethnics);
        item->setData(Qt::UserRole, number);
    }
    connect(m_ethnicsButton, &QPushButton::clicked, this, &PersonBrowserSettingsView::showOrHideListWidget);
    connect(m_ethnics, &QListWidget::itemSelectionChanged, this,
            &PersonBrowserSettingsView::handleSelectedEthnicsChange);
}

QWidget *PersonBrowserSettingsView::buildExchange(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kWideFrame, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    m_exchangeTitle = FormParts::addTitle(layout);
    m_exchange = new ImportExportSettings(frame);
    layout->addWidget(m_exchange);
    return frame;
}

void PersonBrowserSettingsView::updateTexts()
{
    updateGeneralTexts();
    updatePersonTexts();
    m_exchangeTitle->setText(tr("Import/Export settings"));
}

void PersonBrowserSettingsView::updateGeneralTexts()
{
    m_applicationTitle->setText(tr("Application settings"));
    m_settingsUpdating->setText(tr("Update settings when %1 starts").arg(tr("Persons and Studies")));
    FormParts::setLabelText(m_languageLabel, m_language, tr("Language"));
    fillLanguages();
    FormParts::setLabelText(m_dateFormatLabel, m_dateFormat, tr("Date format"));
    m_timeAmPm->setText(tr("12 hour clock"));
    FormParts::setLabelText(m_unitsLabel, m_units, tr("Units"));
    m_units->setItemText(0, tr("Metric (kg, cm , °C)"));
    m_units->setItemText(1, tr("Imperial (lb, ft, in, °F)"));
    FormParts::setLabelText(m_sizeLabel, m_size, tr("Default application size"));
    m_size->setItemText(0, tr("Saved"));
    m_size->setItemText(1, tr("Standard"));
    m_size->setItemText(2, tr("Full"));
    m_statusbar->setText(tr("Enable notification messages"));
    m_prefillStudy->setText(tr("Pre-fill study information"));
}

void PersonBrowserSettingsView::updatePersonTexts()
{
    m_idSystemsTitle->setText(tr("Personal ID systems"));
    m_usedSystemsLabel->setText(tr("Used systems"));
    for (auto box = m_idSystemBoxes.cbegin(); box != m_idSystemBoxes.cend(); ++box)
        (*box)->setText(translated(kIdSystems[box.key()]));
    FormParts::setLabelText(m_defaultIdSystemLabel, m_defaultIdSystem, tr("Default personal ID system"));
    for (int number = 0; number < m_defaultIdSystem->count(); ++number)
        m_defaultIdSystem->setItemText(number, translated(kIdSystems[number]));

    m_ethnicGroupsTitle->setText(tr("Ethnic groups"));
    FormParts::setLabelText(m_shownEthnicsLabel, m_ethnicsButton, tr("Shown ethnic groups"));
    m_ethnics->setAccessibleName(tr("Shown ethnic groups"));
    FormParts::setLabelText(m_defaultEthnicLabel, m_defaultEthnic, tr("Default ethnic group"));
    for (int number = 0; number < m_ethnics->count(); ++number) {
        m_ethnics->item(number)->setText(translated(kEthnicGroups[number]));
        m_defaultEthnic->setItemText(number, translated(kEthnicGroups[number]));
    }
    handleSelectedEthnicsChange();
}

QMap<QString, QString> PersonBrowserSettingsView::offeredLanguages() const
{
    QMap<QString, QString> texts;
    const auto file = openSettingsFile(m_dataPath + QLatin1String(kLanguageFile));
    for (const QString &code : file->allKeys()) {
        // A text with commas that was written without quotes comes as a list.
        const QString text = file->value(code).toStringList().join(QLatin1String(", "));
        if (!text.isEmpty())
            texts.insert(code, text);
    }
    if (texts.isEmpty()) {
        for (const Language &language : languages())
            texts.insert(QLatin1String(language.code), tr(language.name));
    }
    return texts;
}

void PersonBrowserSettingsView::fillLanguages()
{
    const QVariant current = m_language->currentData();
    const QMap<QString, QString> texts = offeredLanguages();
    QStringList codes = texts.keys();
    std::stable_sort(codes.begin(), codes.end(), [&texts](const QString &a, const QString &b) {
        return QString::localeAwareCompare(texts.value(a), texts.value(b)) < 0;
    });
    m_language->clear();
    for (const QString &code : qAsConst(codes))
        m_language->addItem(texts.value(code), code);
    m_language->addItem(tr("System locale"), QLatin1String(kSystemLanguage));
    FormParts::selectData(m_language, current);
}

void PersonBrowserSettingsView::reloadSettings()
{
    reloadIdSystems();
    reloadEthnicGroups();
    reloadGeneral();
    m_exchange->load();
}

void PersonBrowserSettingsView::reloadGeneral()
{
    m_settingsUpdating->setChecked(read(SettingsKeys::kSettingsUpdating, false).toBool());
    const QString language = read(SettingsKeys::kLanguage, QLatin1String(kDefaultLanguage)).toString();
    FormParts::selectData(m_language, language);
    if (m_language->currentIndex() < 0)
        m_language->setCurrentIndex(m_language->count() - 1);
    FormParts::selectData(m_dateFormat, packDateFormat(read(SettingsKeys::kDateFormat, 0).toInt(),
                                                       read(SettingsKeys::kDateSeparator, 0).toInt()));
    m_timeAmPm->setChecked(read(SettingsKeys::kTimeAmPm, false).toBool());
    FormParts::selectData(m_units, read(SettingsKeys::kMeasurementUnits, 0).toInt());
    FormParts::selectData(m_size, read(SettingsKeys::kDefaultGeometry, kStandardSize).toInt());
    m_statusbar->setChecked(read(SettingsKeys::kEnableStatusbar, true).toBool());
    m_prefillStudy->setChecked(read(SettingsKeys::kPrefillStudy, true).toBool());
}

void PersonBrowserSettingsView::reloadIdSystems()
{
    const QList<int> used = readNumbers(read(SettingsKeys::kPersonalIdSystems, numbersToSetting({1, 2})));
    for (auto box = m_idSystemBoxes.cbegin(); box != m_idSystemBoxes.cend(); ++box) {
        // The default system that is on screen has no say in what is read.
        const QSignalBlocker blocker(*box);
        (*box)->setChecked(used.contains(box.key()));
    }
    FormParts::selectData(m_defaultIdSystem,
                          read(SettingsKeys::kDefaultPersonalIdSystem, kDefaultIdSystem).toInt());
}

void PersonBrowserSettingsView::reloadEthnicGroups()
{
    m_ethnics->clearSelection();
    for (const int number : readNumbers(read(SettingsKeys::kEthnicGroups, numbersToSetting({3, 2, 10})))) {
        if (QListWidgetItem *item = m_ethnics->item(number))
            item->setSelected(true);
    }
    FormParts::selectData(m_defaultEthnic, read(SettingsKeys::kDefaultEthnic, 0).toInt());
}

void PersonBrowserSettingsView::saveSettings()
{
    saveGeneral();
    saveIdSystems();
    saveEthnicGroups();
    m_exchange->save();
}

void PersonBrowserSettingsView::saveGeneral()
{
    write(SettingsKeys::kSettingsUpdating, m_settingsUpdating->isChecked());
    write(SettingsKeys::kLanguage, m_language->currentData().toString());
    const int date = m_dateFormat->currentData().toInt();
    write(SettingsKeys::kDateFormat, dateFormatOf(date));
    write(SettingsKeys::kDateSeparator, dateSeparatorOf(date));
    write(SettingsKeys::kTimeAmPm, m_timeAmPm->isChecked());
    write(SettingsKeys::kMeasurementUnits, m_units->currentData().toInt());
    write(SettingsKeys::kDefaultGeometry, m_size->currentData().toInt());
    write(SettingsKeys::kEnableStatusbar, m_statusbar->isChecked());
    write(SettingsKeys::kPrefillStudy, m_prefillStudy->isChecked());
}

void PersonBrowserSettingsView::saveIdSystems()
{
    const int defaultNumber = m_defaultIdSystem->currentData().toInt();
    QList<int> used;
    for (auto box = m_idSystemBoxes.cbegin(); box != m_idSystemBoxes.cend(); ++box) {
        if ((*box)->isChecked() || box.key() == defaultNumber)
            used.append(box.key());
    }
    used.append(kUnknownIdSystem);
    write(SettingsKeys::kPersonalIdSystems, numbersToSetting(used));
    write(SettingsKeys::kDefaultPersonalIdSystem, defaultNumber);
}

void PersonBrowserSettingsView::saveEthnicGroups()
{
    const int defaultNumber = m_defaultEthnic->currentData().toInt();
    QList<int> shown;
    // In the order of their selection, so that an unchanged list is stored as it was.
    for (const QListWidgetItem *item : m_ethnics->selectedItems())
        shown.append(item->data(Qt::UserRole).toInt());
    if (!shown.contains(defaultNumber)) {
        shown.append(defaultNumber);
        m_ethnics->item(defaultNumber)->setSelected(true);
    }
    write(SettingsKeys::kEthnicGroups, numbersToSetting(shown));
    write(SettingsKeys::kDefaultEthnic, defaultNumber);
}

void PersonBrowserSettingsView::handleIdSystemChange(int index)
{
    const int number = m_defaultIdSystem->itemData(index).toInt();
    if (QCheckBox *box = m_idSystemBoxes.value(number))
        box->setChecked(true);
}

void PersonBrowserSettingsView::handleIdChecked(bool checked)
{
    QCheckBox *defaultBox = m_idSystemBoxes.value(m_defaultIdSystem->currentData().toInt());
    if (!checked && defaultBox && sender() == defaultBox)
        defaultBox->setChecked(true);
}

void PersonBrowserSettingsView::handleSelectedEthnicsChange()
{
    m_ethnics->updateButtonText(tr("Select"));
}

void PersonBrowserSettingsView::showOrHideListWidget()
{
    m_ethnics->showOrHide();
}
