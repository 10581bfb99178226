#include "Corvane/settings/personfieldboxes.h"

#include "Corvane/settings/formparts.h"
#include "Corvane/settings/standardfields.h"

#include <QComboBox>
#include <QListView>
#include <QStringListModel>

using namespace StandardFields;

namespace {

constexpr int kShownCharacters = 11;  // a longer text is cut off in the box and whole in its list

QStringList standardTexts()
{
    QStringList texts;
    for (int number = 0; number < StandardFields::kCount; ++number)
        texts.append(text(number));
    texts.append(emptyText());
    return texts;
}

QComboBox *makeBox(const QString &name, QAbstractItemModel *items, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->setObjectName(name);
    box->setFixedHeight(FormParts::kFieldHeight);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // A site may have very many fields, which need not all be measured.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kShownCharacters);
    if (auto *list = qobject_cast<QListView *>(box->view()))
        list->setUniformItemSizes(true);
    box->setModel(items);
    FormParts::leaveWheelToPage(box);
    return box;
}

}  // namespace

PersonFieldBoxes::PersonFieldBoxes(const QString &name, QWidget *parent)
    : QObject(parent)
    , m_items(new QStringListModel(standardTexts(), this))
{
    for (int number = 1; number <= kCount; ++number)
        m_boxes.append(makeBox(QStringLiteral("%1_%2").arg(name).arg(number), m_items, parent));
}

void PersonFieldBoxes::updateTexts(const QString &name)
{
    const QStringList texts = standardTexts();
    for (int row = 0; row < texts.size(); ++row)
        m_items->setData(m_items->index(row), texts.at(row));
    for (int i = 0; i < m_boxes.size(); ++i)
        m_boxes.at(i)->setAccessibleName(QStringLiteral("%1 %2").arg(name).arg(i + 1));
}

void PersonFieldBoxes::setCustomNames(const QStringList &names)
{
    if (names == m_customNames)
        return;
    QVector<int> indexes;
    for (const QComboBox *box : qAsConst(m_boxes)) {
        const int position = box->currentIndex() - kFirstCustomIndex;
        if (position < 0) {
            indexes.append(box->currentIndex());
            continue;
        }
        const int now = names.indexOf(m_customNames.at(position));
        indexes.append(now < 0 ? kEmptyIndex : kFirstCustomIndex + now);
    }
    m_customNames = names;
    m_items->setStringList(standardTexts() + names);
    for (int i = 0; i < m_boxes.size(); ++i)
        m_boxes.at(i)->setCurrentIndex(indexes.at(i));
}

void PersonFieldBoxes::removeCustomName(int position)
{
    const int row = kFirstCustomIndex + position;
    for (QComboBox *box : qAsConst(m_boxes)) {
        if (box->currentIndex() == row)
            box->setCurrentIndex(kEmptyIndex);
    }
    m_customNames.removeAt(position);
    m_items->removeRow(row);
}

QStringList PersonFieldBoxes::entries() const
{
    QStringList entries;
    for (const QComboBox *box : m_boxes)
        entries.append(entryOf(box->currentIndex(), m_customNames));
    return entries;
}

void PersonFieldBoxes::setEntries(const QStringList &entries,
                                  int (*indexOf)(const QString &entry, const QStringList &customNames))
{
    for (int i = 0; i < m_boxes.size(); ++i)
        m_boxes.at(i)->setCurrentIndex(indexOf(entries.value(i), m_customNames));
}
