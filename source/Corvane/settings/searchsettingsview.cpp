#include "Corvane/settings/searchsettingsview.h"

#include "CommunicationAndData/search/searchmodeldata.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/customfields.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/personfieldboxes.h"
#include "Corvane/settings/plainsettings.h"
#include "Corvane/settings/settingslists.h"
#include "Corvane/settings/standardfields.h"
#include "ZephanShared/widgets/wrappingcheckbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSet>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

using PlainSettings::read;
using PlainSettings::write;

namespace {

constexpr int kFrameWidth = 362;
constexpr int kMinimumEditWidth = 60;
constexpr int kParameterColumns = 2;
constexpr int kGroupTitleTop = 10;     // as in the style sheet
constexpr int kGroupTitleHeight = 30;  // with what is above and below it, where letters aren't large
constexpr int kGroupTitleDistance = 2;
constexpr int kGroupMargin = 10;
constexpr int kDefaultMinimum = 3;

const char *const kGroupStyle =
    "QGroupBox { border: none; font-weight: bold; } QGroupBox::title{ top: 10px; left: 10px; }";
const char *const kAreaStyle = "QScrollArea{ border-width:1px; border-style:outset; border-color:gray;}";

/// A parameter that has a box: its number in the settings and its source text.
struct Parameter
{
    int key;
    const char *text;
};

constexpr Parameter kParameters[] = {
    {SearchModelData::FirstName, QT_TRANSLATE_NOOP("SearchSettingsView", "First name")},
    {SearchModelData::MiddleName, QT_TRANSLATE_NOOP("SearchSettingsView", "Middle name")},
    {SearchModelData::LastName, QT_TRANSLATE_NOOP("SearchSettingsView", "Last name")},
    {SearchModelData::PersonalId, QT_TRANSLATE_NOOP("SearchSettingsView", "Personal ID")},
    {SearchModelData::PersonCode, QT_TRANSLATE_NOOP("SearchSettingsView", "Person code")},
};

/// The part of a group that its title needs.
int titleHeight(const QGroupBox *group)
{
    return std::max(kGroupTitleHeight, kGroupTitleTop + group->fontMetrics().height() + kGroupTitleDistance);
}

/// A name as a check box shows it, where "&" would mark the next letter.
QString shownName(QString name)
{
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

bool holdsNothing(const QVariant &setting)
{
    const QVariantList entries = setting.toList();
    return std::all_of(entries.cbegin(), entries.cend(),
                       [](const QVariant &entry) { return entry.toString().isEmpty(); }) &&
           setting.toString().isEmpty();
}

void setCheckedSilently(QCheckBox *box, bool checked)
{
    // Who watches over what a person checks has no say in what is read.
    const QSignalBlocker blocker(box);
    box->setChecked(checked);
}

}  // namespace

SearchSettingsView::SearchSettingsView(QWidget *parent)
    : BaseView(parent)
{
    auto *content = new QWidget(this);
    QHBoxLayout *columns = FormParts::makeColumns(content);
    QFrame *frame = FormParts::makeFrame(kFrameWidth, content);
    columns->addWidget(frame);
    auto *frameLayout = qobject_cast<QBoxLayout *>(frame->layout());
    buildGeneral(frameLayout);
    buildResult(frameLayout);
    buildParameters(frameLayout);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FormParts::makeScrollable(content, this));
    updateTexts();
    reloadSettings();
}

void SearchSettingsView::buildGeneral(QBoxLayout *layout)
{
    auto *row = new QHBoxLayout;
    layout->addLayout(row);
    m_minimumLabel = FormParts::addLabel(row);
    m_minimum = new QLineEdit;
    m_minimum->setObjectName(QStringLiteral("minimum_search_characters"));
    m_minimum->setFixedSize(kMinimumEditWidth, FormParts::kFieldHeight);
    row->addWidget(m_minimum);
    row->addStretch();
    m_singleLine = FormParts::addCheckBox(layout, QStringLiteral("single_line_persons"));
    connect(m_singleLine, &QCheckBox::toggled, this, &SearchSettingsView::toggleSearchResultsFieldsRows);
}

QGroupBox *SearchSettingsView::addGroup(QBoxLayout *layout)
{
    auto *group = new QGroupBox;
    group->setStyleSheet(QLatin1String(kGroupStyle));
    layout->addWidget(group);
    return group;
}

void SearchSettingsView::buildResult(QBoxLayout *layout)
{
    m_resultGroup = addGroup(layout);
    m_result = new PersonFieldBoxes(QStringLiteral("result_field"), m_resultGroup);
    m_resultGrid = new QGridLayout(m_resultGroup);
    m_resultGrid->setContentsMargins(kGroupMargin, titleHeight(m_resultGroup), kGroupMargin, 0);
}

void SearchSettingsView::buildParameters(QBoxLayout *layout)
{
    m_parametersGroup = addGroup(layout);
    layout->setStretchFactor(m_parametersGroup, 1);
    auto *groupLayout = new QVBoxLayout(m_parametersGroup);
    groupLayout->setContentsMargins(kGroupMargin, titleHeight(m_parametersGroup), kGroupMargin, kGroupMargin);

    auto *content = new QWidget;
    auto *contentLayout = new QVBoxLayout(content);
    auto *standardGrid = new QGridLayout;
    contentLayout->addLayout(standardGrid);
    for (const Parameter &parameter : kParameters) {
        QCheckBox *box = makeParameter(QStringLiteral("search_parameter_%1").arg(parameter.key));
        standardGrid->addWidget(box, m_parameters.size() / kParameterColumns,
                                m_parameters.size() % kParameterColumns);
        m_parameters.insert(parameter.key, box);
    }
    m_customLabel = FormParts::addLabel(contentLayout);
    m_customGrid = new QGridLayout;
    contentLayout->addLayout(m_customGrid);
    contentLayout->addStretch();
    for (QGridLayout *grid : {standardGrid, m_customGrid}) {
        for (int column = 0; column < kParameterColumns; ++column)
            grid->setColumnStretch(column, 1);
    }

    QScrollArea *area = FormParts::makeScrollable(content, m_parametersGroup);
    area->setStyleSheet(QLatin1String(kAreaStyle));
    groupLayout->addWidget(area);
}

QCheckBox *SearchSettingsView::makeParameter(const QString &name)
{
    auto *box = new WrappingCheckBox;
    box->setObjectName(name);
    connect(box, &QCheckBox::toggled, this, &SearchSettingsView::monitorSearchParamChecks);
    return box;
}

void SearchSettingsView::updateTexts()
{
    FormParts::setLabelText(m_minimumLabel, m_minimum, tr("Minimum search characters"));
    m_singleLine->setText(tr("Search results in single row"));
    m_resultGroup->setTitle(tr("Person search result"));
    m_result->updateTexts(tr("Person search result"));
    m_parametersGroup->setTitle(tr("Search parameters"));
    for (const Parameter &parameter : kParameters)
        m_parameters.value(parameter.key)->setText(tr(parameter.text));
    m_customLabel->setText(tr("Custom fields to search:"));
}

void SearchSettingsView::reloadSettings()
{
    m_minimum->setText(read(SettingsKeys::kMinimumSearchCharacters, kDefaultMinimum).toString());
    m_singleLine->setChecked(read(SettingsKeys::kSingleLinePersons, false).toBool());
    toggleSearchResultsFieldsRows(m_singleLine->isChecked());
    personCustomFieldsChanged(readCustomNames(read(SettingsKeys::kCustomPersonFields, QString())));
    m_result->setEntries(
        read(SettingsKeys::kPersonResultFields, StandardFields::defaultEntries()).toStringList(),
        &StandardFields::resultIndex);
    reloadParameters();
}

void SearchSettingsView::reloadParameters()
{
    const QVariant setting = read(SettingsKeys::kDefaultSearchParameters, QVariant());
    const QList<int> stored = readNumbers(setting);
    const bool isAll = holdsNothing(setting);
    for (auto box = m_parameters.cbegin(); box != m_parameters.cend(); ++box)
        setCheckedSilently(*box, isAll || stored.contains(box.key()));
    checkStoredCustomBoxes();
}

void SearchSettingsView::saveSettings()
{
    bool isNumber = false;
    const int minimum = m_minimum->text().toInt(&isNumber);
    if (isNumber)
        write(SettingsKeys::kMinimumSearchCharacters, minimum);
    write(SettingsKeys::kSingleLinePersons, m_singleLine->isChecked());
    saveParameters();
    write(SettingsKeys::kPersonResultFields, m_result->entries());
}

void SearchSettingsView::saveParameters()
{
    const QStringList custom = checkedCustomNames();
    const QStringList stored = read(SettingsKeys::kDefaultSearchCustomFields, QStringList()).toStringList();
    if (!custom.isEmpty() || !stored.isEmpty())
        write(SettingsKeys::kDefaultSearchCustomFields, custom);

    QList<int> parameters;
    for (auto box = m_parameters.cbegin(); box != m_parameters.cend(); ++box) {
        if ((*box)->isChecked())
            parameters.append(box.key());
    }
    if (!custom.isEmpty())
        parameters.append(SearchModelData::CustomFields);
    write(SettingsKeys::kDefaultSearchParameters, numbersToSetting(parameters));
}

void SearchSettingsView::personCustomFieldsChanged(QStringList customfields)
{
    m_result->setCustomNames(customfields);
    setCustomBoxes(customfields);
    const int before = m_checkedCount;
    checkStoredCustomBoxes();
    if (before > 0 && m_checkedCount == 0)
        checkAllParameters();
}

void SearchSettingsView::checkAllParameters()
{
    for (QCheckBox *box : qAsConst(m_parameters))
        setCheckedSilently(box, true);
    countChecks();
}

void SearchSettingsView::setCustomBoxes(const QStringList &names)
{
    while (m_customBoxes.size() > names.size())
        delete m_customBoxes.takeLast();
    while (m_customBoxes.size() < names.size()) {
        const int number = m_customBoxes.size();
        QCheckBox *box = makeParameter(QStringLiteral("search_custom_field_%1").arg(number + 1));
        m_customGrid->addWidget(box, number / kParameterColumns, number % kParameterColumns);
        m_customBoxes.append(box);
    }
    m_customNames = names;
    for (int i = 0; i < names.size(); ++i)
        m_customBoxes.at(i)->setText(shownName(names.at(i)));
    m_customLabel->setVisible(!names.isEmpty());
}

void SearchSettingsView::checkStoredCustomBoxes()
{
    const QStringList stored = read(SettingsKeys::kDefaultSearchCustomFields, QStringList()).toStringList();
    const QSet<QString> searched(stored.cbegin(), stored.cend());
    for (int i = 0; i < m_customBoxes.size(); ++i)
        setCheckedSilently(m_customBoxes.at(i), searched.contains(m_customNames.at(i)));
    countChecks();
}

void SearchSettingsView::countChecks()
{
    m_checkedCount = checkedCustomNames().size();
    for (const QCheckBox *box : qAsConst(m_parameters)) {
        if (box->isChecked())
            ++m_checkedCount;
    }
}

QStringList SearchSettingsView::checkedCustomNames() const
{
    QStringList names;
    for (int i = 0; i < m_customBoxes.size(); ++i) {
        if (m_customBoxes.at(i)->isChecked())
            names.append(m_customNames.at(i));
    }
    return names;
}

void SearchSettingsView::monitorSearchParamChecks(bool checked)
{
    if (checked) {
        ++m_checkedCount;
        return;
    }
    --m_checkedCount;
    auto *box = qobject_cast<QCheckBox *>(sender());
    if (m_checkedCount == 0 && box)
        box->setChecked(true);
}

void SearchSettingsView::toggleSearchResultsFieldsRows(bool single)
{
    const int columns = single ? PersonFieldBoxes::kCount : PersonFieldBoxes::kCount / 2;
    for (QComboBox *box : m_result->boxes())
        m_resultGrid->removeWidget(box);
    for (int i = 0; i < PersonFieldBoxes::kCount; ++i)
        m_resultGrid->addWidget(m_result->boxes().at(i), i / columns, i % columns);
}
