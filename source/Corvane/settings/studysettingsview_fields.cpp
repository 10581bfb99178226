#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/referencesets.h"
#include "Corvane/settings/studyentries.h"
#include "Corvane/settings/studysettingsview.h"
#include "ZephanShared/widgets/wrappingcheckbox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSet>
#include <QVector>

namespace {

constexpr int kListFields = 4;
constexpr int kOwnFields = 2;  // that every application has, before those of its studies
constexpr int kFieldBoxColumns = 3;
constexpr int kShortestListField = 8;  // letters; longer names are cut while the box is closed

const char *const kApplicationNameField = "appName";
const char *const kDateField = "Date";

QStringList defaultListFields()
{
    return {QStringLiteral("Ruvenka=appName,,Date,")};
}

QStringList defaultHiddenFields()
{
    return {QStringLiteral("exe-id=weight")};
}

QStringList readEntries(const char *key, const QStringList &defaults)
{
    return SettingsHandler::getInstance()->value(QLatin1String(key), defaults).toStringList();
}

void writeFields(const char *key, const QStringList &defaults, const QString &application,
                 const QStringList &fields)
{
    SettingsHandler::getInstance()->setValue(
        QLatin1String(key), StudyEntries::withFields(readEntries(key, defaults), application, fields));
}

/// A check box takes a single "&" for the mark of its shortcut.
QString boxText(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

struct StudyField
{
    QString id;
    QString text;
    bool isFixed;
};

/// The fields that settings can name: without an id, with a separator in it or with one that came before
/// there is nothing that could be stored. A field without a text is shown by its id.
QVector<StudyField> usableFields(const AbstractApplication &application)
{
    QVector<StudyField> fields;
    QSet<QString> ids;
    const QList<AbstractApplication::FieldDescriptor> descriptors = application.studyFields();
    for (const AbstractApplication::FieldDescriptor &descriptor : descriptors) {
        const QString id = descriptor.value(AbstractApplication::FieldId).toString();
        if (id.isEmpty() || id.contains(QLatin1Char(',')) || id.contains(QLatin1Char('=')) ||
            ids.contains(id))
            continue;
        ids.insert(id);
        const QString text = descriptor.value(AbstractApplication::FieldText).toString();
        fields.append(
            {id, text.isEmpty() ? id : text, descriptor.value(AbstractApplication::FieldFixed).toBool()});
    }
    return fields;
}

}  // namespace

QWidget *StudySettingsView::buildFields(QWidget *parent)
{
    auto *section = new QWidget(parent);
    section->setObjectName(QStringLiteral("study_fields"));
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    m_listFieldsLabel = FormParts::addTitle(layout);
    auto *row = new QHBoxLayout;
    layout->addLayout(row);
    for (int slot = 1; slot <= kListFields; ++slot) {
        QComboBox *box = FormParts::addComboBox(row, QStringLiteral("study_list_field_%1").arg(slot));
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(kShortestListField);
        m_listFields.append(box);
    }
    m_hiddenFieldsLabel = FormParts::addTitle(layout);
    m_fieldBoxGrid = new QGridLayout;
    layout->addLayout(m_fieldBoxGrid);
    for (int column = 0; column < kFieldBoxColumns; ++column)
        m_fieldBoxGrid->setColumnStretch(column, 1);
    return section;
}

void StudySettingsView::resetStudyFields(int index, bool save)
{
    if (save) {
        writeListFields();
        writeHiddenFields();
    }
    m_application = m_applicationBox->itemData(index).toString();
    m_referenceSection->setVisible(!m_fieldsSection ||
                                   m_application == QLatin1String(kSpirometryApplication));
    clearFields();
    if (m_fieldsSection)
        m_fieldsSection->setVisible(application() != nullptr);
    if (!application())
        return;
    showFields();
    readListFields();
    readHiddenFields();
}

AbstractApplication *StudySettingsView::application() const
{
    return m_application.isEmpty() ? nullptr : m_applications.value(m_application);
}

void StudySettingsView::clearFields()
{
    for (QComboBox *box : qAsConst(m_listFields))
        box->clear();
    qDeleteAll(m_fieldBoxes);
    m_fieldBoxes.clear();
}

void StudySettingsView::showFields()
{
    const QVector<StudyField> fields = usableFields(*application());
    for (QComboBox *box : qAsConst(m_listFields)) {
        box->addItem(tr("Application name"), QLatin1String(kApplicationNameField));
        box->addItem(tr("Date"), QLatin1String(kDateField));
        for (const StudyField &field : fields)
            box->addItem(field.text, field.id);
        box->addItem(QString());
        box->setCurrentIndex(box->count() - 1);
    }
    for (const StudyField &field : fields) {
        if (!field.isFixed)
            addFieldBox(field.id, field.text);
    }
}

void StudySettingsView::addFieldBox(const QString &id, const QString &text)
{
    auto *box = new WrappingCheckBox(m_fieldsSection);
    box->setObjectName(QStringLiteral("study_field_") + id);
    box->setText(boxText(text));
    const int place = m_fieldBoxes.size();
    m_fieldBoxGrid->addWidget(box, place / kFieldBoxColumns, place % kFieldBoxColumns);
    m_fieldBoxes.insert(id, box);
}

QString StudySettingsView::focusedField() const
{
    return m_fieldBoxes.key(qobject_cast<QCheckBox *>(window()->focusWidget()));
}

void StudySettingsView::focusField(const QString &id)
{
    if (QCheckBox *box = m_fieldBoxes.value(id)) {
        box->show();
        box->setFocus(Qt::OtherFocusReason);
    }
}

void StudySettingsView::updateFieldTexts()
{
    m_listFieldsLabel->setText(tr("Study list fields"));
    m_hiddenFieldsLabel->setText(tr("Hidden study field editors"));
    QMap<QString, QString> texts;
    if (application()) {
        for (const StudyField &field : usableFields(*application()))
            texts.insert(field.id, field.text);
    }
    for (auto box = m_fieldBoxes.cbegin(); box != m_fieldBoxes.cend(); ++box)
        (*box)->setText(texts.contains(box.key()) ? boxText(texts.value(box.key())) : (*box)->text());
    for (int slot = 0; slot < m_listFields.size(); ++slot) {
        QComboBox *box = m_listFields.at(slot);
        box->setAccessibleName(tr("Study list fields") + QStringLiteral(" %1").arg(slot + 1));
        for (int i = kOwnFields; i < box->count() - 1; ++i)
            box->setItemText(i, texts.value(box->itemData(i).toString(), box->itemText(i)));
        if (box->count() > kOwnFields) {
            box->setItemText(0, tr("Application name"));
            box->setItemText(1, tr("Date"));
        }
    }
}

void StudySettingsView::readListFields()
{
    const QStringList fields = StudyEntries::fields(
        readEntries(SettingsKeys::kStudyResultFields, defaultListFields()), m_application);
    for (int slot = 0; slot < qMin(fields.size(), m_listFields.size()); ++slot) {
        QComboBox *box = m_listFields.at(slot);
        const int index = fields.at(slot).isEmpty() ? -1 : box->findData(fields.at(slot));
        if (index >= 0)
            box->setCurrentIndex(index);
    }
}

void StudySettingsView::writeListFields()
{
    if (!application())
        return;
    QStringList fields;
    for (const QComboBox *box : qAsConst(m_listFields))
        fields.append(box->currentData().toString());
    writeFields(SettingsKeys::kStudyResultFields, defaultListFields(), m_application, fields);
}

void StudySettingsView::readHiddenFields()
{
    const QStringList fields = StudyEntries::fields(
        readEntries(SettingsKeys::kStudyHiddenFields, defaultHiddenFields()), m_application);
    for (const QString &field : fields) {
        if (QCheckBox *box = m_fieldBoxes.value(field))
            box->setChecked(true);
    }
}

void StudySettingsView::writeHiddenFields()
{
    if (!application())
        return;
    QStringList fields;
    for (auto box = m_fieldBoxes.cbegin(); box != m_fieldBoxes.cend(); ++box) {
        if ((*box)->isChecked())
            fields.append(box.key());
    }
    writeFields(SettingsKeys::kStudyHiddenFields, defaultHiddenFields(), m_application, fields);
}
