#include "Corvane/settings/fieldsettingsview.h"

#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/custompersonfield.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/personfieldboxes.h"
#include "Corvane/settings/plainsettings.h"
#include "Corvane/settings/standardfields.h"
#include "ZephanShared/toolkit/applicationhelper.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QVBoxLayout>

#include <iterator>

using PlainSettings::read;
using PlainSettings::write;

namespace {

constexpr int kStandardFrame = 362;
constexpr int kChoicesFrame = 400;  // both fit side by side into the smallest window
constexpr int kLabelColumn = 0;
constexpr int kStateColumn = 1;
constexpr int kRequiredColumn = 2;
constexpr int kSummaryColumns = 2;
constexpr int kRowDistance = 4;

// Beyond so many, only the rows near those in sight have their widgets.
constexpr int kRowsBuiltAtOnce = 100;
constexpr int kRowsBuiltAround = 10;

const int kDefaultNameOrder[] = {2, 0, StandardFields::kNoNamePart};  // last name, first name

}  // namespace

FieldSettingsView::FieldSettingsView(QWidget *parent)
    : BaseView(parent)
{
    loadApplications();
    auto *content = new QWidget(this);
    QHBoxLayout *columns = FormParts::makeColumns(content);
    columns->addWidget(buildStandard(content), kStandardFrame);
    columns->addWidget(buildChoices(content), kChoicesFrame);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pageArea = FormParts::makeScrollable(content, this);
    layout->addWidget(m_pageArea);
    updateTexts();
    reloadSettings();
}

FieldSettingsView::~FieldSettingsView()
{
    // A name that has the focus is left while the widgets go, when nobody may listen any more.
    for (CustomPersonField *row : qAsConst(m_rows))
        row->disconnect();
}

void FieldSettingsView::loadApplications()
{
    ApplicationHelper helper;
    // Queued, since nobody listens to the page as long as it is being built.
    connect(&helper, &ApplicationHelper::logError, this, &FieldSettingsView::logError, Qt::QueuedConnection);
    m_applications = helper.applications(QString());
}

QWidget *FieldSettingsView::buildStandard(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kStandardFrame, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    m_pageTitle = FormParts::addTitle(layout);
    auto *grid = new QGridLayout;
    layout->addLayout(grid);
    m_standardTitle = new QLabel(frame);
    m_requiredTitle = new QLabel(frame);
    for (QLabel *title : {m_standardTitle, m_requiredTitle}) {
        title->setFixedHeight(FormParts::kLabelHeight);
        FormParts::setBold(title);
    }
    grid->addWidget(m_standardTitle, 0, kLabelColumn, 1, kRequiredColumn);
    grid->addWidget(m_requiredTitle, 0, kRequiredColumn);
    grid->setColumnStretch(kRequiredColumn, 1);
    for (int number = StandardFields::kFirstEdited; number <= StandardFields::kLastEdited; ++number)
        buildStandardRow(grid, number);
    layout->addStretch();
    return frame;
}

void FieldSettingsView::buildStandardRow(QGridLayout *grid, int number)
{
    auto *label = new QLabel;
    label->setFixedHeight(FormParts::kLabelHeight);
    grid->addWidget(label, number, kLabelColumn);
    m_fieldLabels.insert(number, label);

    auto *state = new QComboBox;
    state->setObjectName(QStringLiteral("field_state_%1").arg(number));
    state->setFixedHeight(FormParts::kFieldHeight);
    state->addItems({QString(), QString(), QString()});
    FormParts::leaveWheelToPage(state);
    grid->addWidget(state, number, kStateColumn);
    m_fieldStates.insert(number, state);
    const StandardFields::Masks defaults = {StandardFields::kDefaultMandatory,
                                            StandardFields::kDefaultVisible};
    state->setCurrentIndex(StandardFields::stateOf(defaults, number));

    auto *required = new QLabel;
    required->setObjectName(QStringLiteral("field_required_by_%1").arg(number));
    required->setWordWrap(true);
    required->setTextFormat(Qt::PlainText);
    grid->addWidget(required, number, kRequiredColumn);
    m_requiredBy.insert(number, required);
}

QWidget *FieldSettingsView::buildChoices(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kChoicesFrame, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    buildSummary(layout);
    buildNameOrder(layout);
    buildCustomFields(layout);
    return frame;
}

void FieldSettingsView::buildSummary(QBoxLayout *layout)
{
    m_summaryTitle = FormParts::addTitle(layout);
    m_summary = new PersonFieldBoxes(QStringLiteral("summary_field"), this);
    auto *grid = new QGridLayout;
    layout->addLayout(grid);
    for (int i = 0; i < m_summary->boxes().size(); ++i)
        grid->addWidget(m_summary->boxes().at(i), i / kSummaryColumns, i % kSummaryColumns);
}

void FieldSettingsView::buildNameOrder(QBoxLayout *layout)
{
    m_orderTitle = FormParts::addTitle(layout);
    auto *row = new QHBoxLayout;
    layout->addLayout(row);
    for (int place = 1; place <= StandardFields::kNameParts; ++place) {
        QComboBox *box = FormParts::addComboBox(row, QStringLiteral("name_order_%1").arg(place));
        for (int part = 0; part <= StandardFields::kNoNamePart; ++part)
            box->addItem(QString());
        box->setCurrentIndex(kDefaultNameOrder[place - 1]);
        m_nameOrder.append(box);
    }
}

void FieldSettingsView::buildCustomFields(QBoxLayout *layout)
{
    m_customTitle = FormParts::addTitle(layout);
    m_addButton = FormParts::addButton(layout, QStringLiteral("add_custom_field"));
    connect(m_addButton, SIGNAL(clicked()), this, SLOT(addCustomField()));

    auto *content = new QWidget;
    auto *contentLayout = new QVBoxLayout(content);
    contentLayout->setContentsMargins(0, 0, 0, 0);
    m_customLayout = new QVBoxLayout;
    m_customLayout->setSpacing(kRowDistance);
    contentLayout->addLayout(m_customLayout);
    contentLayout->addStretch();
    m_customArea = FormParts::makeScrollable(content, this);
    m_customArea->setObjectName(QStringLiteral("custom_fields"));
    layout->addWidget(m_customArea, 1);
}

void FieldSettingsView::updateTexts()
{
    m_pageTitle->setText(tr("Person information settings"));
    m_standardTitle->setText(tr("Standard fields"));
    m_requiredTitle->setText(tr("Required by"));
    for (auto state = m_fieldStates.cbegin(); state != m_fieldStates.cend(); ++state) {
        FormParts::setLabelText(m_fieldLabels.value(state.key()), *state, StandardFields::text(state.key()));
        (*state)->setItemText(StandardFields::Mandatory, tr("Mandatory"));
        (*state)->setItemText(StandardFields::Visible, tr("Visible"));
        (*state)->setItemText(StandardFields::NotVisible, tr("Not visible"));
    }
    updateRequiredBy();
    m_summaryTitle->setText(tr("Summary fields"));
    m_summary->updateTexts(tr("Summary fields"));
    m_orderTitle->setText(tr("Order of the full name"));
    for (int place = 0; place < m_nameOrder.size(); ++place) {
        QComboBox *box = m_nameOrder.at(place);
        box->setAccessibleName(QStringLiteral("%1 %2").arg(tr("Order of the full name")).arg(place + 1));
        for (int part = 0; part < StandardFields::kNameParts; ++part)
            box->setItemText(part, StandardFields::text(StandardFields::kFirstEdited + part));
        box->setItemText(StandardFields::kNoNamePart, StandardFields::emptyText());
    }
    m_customTitle->setText(tr("Custom fields"));
    m_addButton->setText(tr("Add new custom field"));
}

void FieldSettingsView::updateRequiredBy()
{
    QMap<int, QStringList> names;
    for (auto application = m_applications.cbegin(); application != m_applications.cend(); ++application) {
        const QString displayName = (*application)->displayName();
        const QString name = displayName.isEmpty() ? application.key() : displayName;
        const QList<int> required = (*application)->requiredPersonFields();
        for (const int number : QSet<int>(required.cbegin(), required.cend()))
            names[number].append(name);
    }
    for (auto label = m_requiredBy.cbegin(); label != m_requiredBy.cend(); ++label)
        (*label)->setText(names.value(label.key()).join(QLatin1String(", ")));
}

void FieldSettingsView::reloadSettings()
{
    readCustomRows();
    offerCustomFields();
    readMasks();
    readNameOrder();
    readSummary();
}

void FieldSettingsView::readCustomRows()
{
    const QVector<CustomField> fields = readCustomFields(read(SettingsKeys::kCustomPersonFields, QString()));
    QSet<int> ids;
    for (const CustomField &field : fields) {
        ids.insert(field.id);
        // A row that is there stays, and with it the place of a person who works with the keyboard.
        CustomPersonField *row = m_rows.value(field.id);
        if (row) {
            row->setField(field);
        } else {
            row = new CustomPersonField;
            row->setField(field);
            insertRow(row);
        }
    }
    for (CustomPersonField *row : m_rows.values()) {
        if (!ids.contains(row->id()))
            removeRow(row);
    }
}

void FieldSettingsView::readMasks()
{
    const auto mandatory =
        StandardFields::readMask(read(SettingsKeys::kMandatoryFields, StandardFields::kDefaultMandatory));
    const auto visible =
        StandardFields::readMask(read(SettingsKeys::kVisibleFields, StandardFields::kDefaultVisible));
    if (!mandatory || !visible)
        return;
    const StandardFields::Masks masks = {*mandatory, *visible};
    for (auto state = m_fieldStates.cbegin(); state != m_fieldStates.cend(); ++state)
        (*state)->setCurrentIndex(StandardFields::stateOf(masks, state.key()));
}

void FieldSettingsView::readNameOrder()
{
    const QList<int> defaults(std::begin(kDefaultNameOrder), std::end(kDefaultNameOrder));
    const auto indexes = StandardFields::readNameOrder(
        read(SettingsKeys::kPersonNameFieldOrder, StandardFields::nameOrderToSetting(defaults)));
    if (!indexes)
        return;
    for (int place = 0; place < m_nameOrder.size(); ++place)
        m_nameOrder.at(place)->setCurrentIndex(indexes->at(place));
}

void FieldSettingsView::readSummary()
{
    m_summary->setEntries(
        read(SettingsKeys::kPersonSummaryFields, StandardFields::defaultEntries()).toStringList(),
        &StandardFields::summaryIndex);
}

void FieldSettingsView::saveSettings()
{
    takeTypedNames();
    saveCustomFields();
    saveMasks();
    QList<int> order;
    for (const QComboBox *box : qAsConst(m_nameOrder))
        order.append(box->currentIndex());
    write(SettingsKeys::kPersonNameFieldOrder, StandardFields::nameOrderToSetting(order));
    write(SettingsKeys::kPersonSummaryFields, m_summary->entries());
}

void FieldSettingsView::takeTypedNames()
{
    // A menu opens without the name that is being typed losing the focus.
    for (CustomPersonField *row : qAsConst(m_rows))
        row->sync();
    if (customNames() != m_summary->customNames())
        offerCustomFields();
}

void FieldSettingsView::saveCustomFields()
{
    QVector<CustomField> fields;
    for (const CustomPersonField *row : qAsConst(m_rows)) {
        if (!row->isRemoved())
            fields.append(row->field());
    }
    write(SettingsKeys::kCustomPersonFields, customFieldsToSetting(fields));
}

void FieldSettingsView::saveMasks()
{
    StandardFields::Masks masks;
    for (auto state = m_fieldStates.cbegin(); state != m_fieldStates.cend(); ++state)
        StandardFields::addState(masks, state.key(),
                                 static_cast<StandardFields::State>((*state)->currentIndex()));
    write(SettingsKeys::kMandatoryFields, masks.mandatory);
    write(SettingsKeys::kVisibleFields, masks.visible);
}

void FieldSettingsView::addCustomField(CustomPersonField *field)
{
    const bool isNew = !field;
    CustomPersonField *row = isNew ? new CustomPersonField : field;
    CustomField content = row->field();
    if (isNew)
        content.visible = true;
    if (content.id < 1 || m_rows.contains(content.id))
        content.id = nextCustomId(m_rows);
    if (isNew)
        row->setField(content);
    else
        row->setContent(content);
    insertRow(row);
    m_summary->setCustomNames(customNames());
    if (isNew) {
        // The new row has no place yet to which the area could be scrolled.
        m_customArea->widget()->layout()->activate();
        m_customArea->widget()->adjustSize();
        bringIntoSight(row);
        buildRow(row);
        row->editName();
    }
}

void FieldSettingsView::insertRow(CustomPersonField *row)
{
    m_rows.insert(row->id(), row);
    const bool isLast = m_rows.last() == row;
    m_customLayout->insertWidget(isLast ? -1 : positionOf(row->id()), row);
    row->show();
    if (m_rows.size() <= kRowsBuiltAtOnce)
        buildRow(row);
    // Queued, since what is being painted must not change.
    connect(
        row, &CustomPersonField::exposed, row, [this, row] { buildAround(row); }, Qt::QueuedConnection);
    connect(row, SIGNAL(refresh()), this, SLOT(handleCustomFieldChange()));
    connect(row, SIGNAL(nameChange()), this, SLOT(refreshCustomFieldsInBoxes()));
}

void FieldSettingsView::buildRow(CustomPersonField *row)
{
    if (row->isBuilt())
        return;
    row->build();
    placeInTabOrder(row);
}

void FieldSettingsView::buildAround(const CustomPersonField *row)
{
    auto first = m_rows.constFind(row->id());
    if (first == m_rows.cend() || *first != row)
        return;
    auto last = first;
    for (int i = 0; i < kRowsBuiltAround && first != m_rows.cbegin(); ++i)
        --first;
    for (int i = 0; i <= kRowsBuiltAround && last != m_rows.cend(); ++i)
        ++last;
    for (; first != last; ++first)
        buildRow(*first);
}

void FieldSettingsView::placeInTabOrder(CustomPersonField *row)
{
    QWidget *before = m_addButton;
    for (auto above = m_rows.constFind(row->id()); above != m_rows.cbegin();) {
        --above;
        if ((*above)->isBuilt()) {
            before = (*above)->tabStops().last();
            break;
        }
    }
    for (QWidget *stop : row->tabStops()) {
        setTabOrder(before, stop);
        before = stop;
    }
}

void FieldSettingsView::removeRow(CustomPersonField *row)
{
    row->disconnect();
    m_rows.remove(row->id());
    m_customLayout->removeWidget(row);
    row->hide();
    row->deleteLater();
}

void FieldSettingsView::cleanAddedFields(bool clear)
{
    for (CustomPersonField *row : m_rows.values()) {
        if (!clear && !row->isRemoved())
            continue;
        if (!clear) {
            m_summary->removeCustomName(positionOf(row->id()));
            passFocusOn(row);
        }
        removeRow(row);
    }
    m_summary->setCustomNames(customNames());
}

void FieldSettingsView::passFocusOn(const CustomPersonField *row)
{
    if (!row->isAncestorOf(window()->focusWidget()))
        return;
    const auto here = m_rows.constFind(row->id());
    const auto next = std::next(here);
    CustomPersonField *neighbour = nullptr;
    if (next != m_rows.cend())
        neighbour = *next;
    else if (here != m_rows.cbegin())
        neighbour = *std::prev(here);
    if (!neighbour) {
        m_addButton->setFocus(Qt::OtherFocusReason);
        return;
    }
    buildRow(neighbour);
    neighbour->tabStops().last()->setFocus(Qt::OtherFocusReason);
    bringIntoSight(neighbour);
}

void FieldSettingsView::refreshCustomFieldsInBoxes()
{
    saveCustomFields();
    readCustomRows();
    offerCustomFields();
}

void FieldSettingsView::handleCustomFieldChange()
{
    cleanAddedFields();
    for (CustomPersonField *row : m_rows.values()) {
        if (row->takeMoveUp())
            moveRow(row, -1);
        else if (row->takeMoveDown())
            moveRow(row, 1);
    }
    m_summary->setCustomNames(customNames());
}

void FieldSettingsView::moveRow(CustomPersonField *row, int step)
{
    const int position = positionOf(row->id());
    if (position + step < 0 || position + step >= m_rows.size())
        return;
    CustomPersonField *neighbour = *std::next(m_rows.cbegin(), position + step);
    const int id = row->id();
    row->setId(neighbour->id());
    neighbour->setId(id);
    m_rows[row->id()] = row;
    m_rows[neighbour->id()] = neighbour;

    m_customLayout->removeWidget(row);
    m_customLayout->insertWidget(position + step, row);
    placeInTabOrder(step < 0 ? row : neighbour);
    m_customArea->widget()->layout()->activate();
    bringIntoSight(row);
}

void FieldSettingsView::bringIntoSight(CustomPersonField *row)
{
    m_customArea->ensureWidgetVisible(row);
    m_pageArea->ensureWidgetVisible(row);
}

int FieldSettingsView::positionOf(int id) const
{
    return static_cast<int>(std::distance(m_rows.cbegin(), m_rows.constFind(id)));
}

QStringList FieldSettingsView::customNames() const
{
    QStringList names;
    for (const CustomPersonField *row : m_rows)
        names.append(row->field().name);
    return names;
}

void FieldSettingsView::offerCustomFields()
{
    m_summary->setCustomNames(customNames());
    emit personCustomFieldsUpdated(m_summary->customNames());
}
