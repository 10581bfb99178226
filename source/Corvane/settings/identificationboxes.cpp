#include "Corvane/settings/identificationboxes.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QSignalBlocker>

#include <algorithm>
#include <iterator>

namespace {

/// A box's source text and the number that stands for it in the settings.
struct IdentificationField
{
    const char *text;
    int number;
};

constexpr IdentificationField kFields[] = {
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Personal ID"), 6},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Person code"), 7},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Last Name"), 4},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Middle Name"), 3},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "First Name"), 2},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Birthdate"), 5},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Gender"), 8},
    {QT_TRANSLATE_NOOP("IdentificationBoxes", "Ethnic Group"), 9},
};

}  // namespace

IdentificationBoxes::IdentificationBoxes(int columns, QWidget *parent)
    : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    const int rows = (static_cast<int>(std::size(kFields)) + columns - 1) / columns;
    for (const IdentificationField &field : kFields) {
        auto *box = new QCheckBox(this);
        box->setObjectName(QStringLiteral("identification_%1").arg(field.number));
        grid->addWidget(box, m_boxes.size() % rows, m_boxes.size() / rows);
        m_boxes.append(box);
    }
    updateTexts();
}

void IdentificationBoxes::updateTexts()
{
    for (int i = 0; i < m_boxes.size(); ++i)
        m_boxes.at(i)->setText(tr(kFields[i].text));
}

void IdentificationBoxes::setNumbers(const QList<int> &numbers)
{
    for (int i = 0; i < m_boxes.size(); ++i) {
        // Who watches over what a person checks has no say in what is read.
        const QSignalBlocker blocker(m_boxes.at(i));
        m_boxes.at(i)->setChecked(numbers.contains(kFields[i].number));
    }
}

QList<int> IdentificationBoxes::numbers() const
{
    QList<int> checked;
    for (int i = 0; i < m_boxes.size(); ++i) {
        if (m_boxes.at(i)->isChecked())
            checked.append(kFields[i].number);
    }
    return checked;
}

bool IdentificationBoxes::isAnyChecked() const
{
    return std::any_of(m_boxes.cbegin(), m_boxes.cend(),
                       [](const QCheckBox *box) { return box->isChecked(); });
}

void IdentificationBoxes::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}
