#ifndef TESTS_CORVANE_FIELDPAGES_H
#define TESTS_CORVANE_FIELDPAGES_H

#include "Corvane/settings/custompersonfield.h"
#include "settingstest.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QTest>

#include <algorithm>

/// What the tests of the Person fields and Search pages share.
namespace FieldPages {

constexpr char kCustom[] = "application/custom_person_fields";
constexpr char kMandatory[] = "application/mandatory_fields";
constexpr char kVisible[] = "application/visible_fields";
constexpr char kNameOrder[] = "ui/person_name_field_order";
constexpr char kSummary[] = "ui/person_summary_fields";
constexpr char kMinimum[] = "application/minimum_search_characters";
constexpr char kSingleLine[] = "application/single_line_persons";
constexpr char kResult[] = "ui/person_result_fields";
constexpr char kParameters[] = "database/defaultsearchparameters";
constexpr char kSearchedCustom[] = "database/defaultSearchCustomFields";

constexpr char kRowName[] = "custom_field_name";
constexpr char kRowUp[] = "custom_field_up";
constexpr char kRowDown[] = "custom_field_down";
constexpr char kRowRemove[] = "custom_field_remove";
constexpr char kRowVisibility[] = "custom_field_visibility";
constexpr char kRowLines[] = "custom_field_lines";

/// The rows of the custom fields as they stand on the screen, from top to bottom.
inline QList<CustomPersonField *> rows(const QWidget &page)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QList<CustomPersonField *> shown;
    for (CustomPersonField *row : page.findChildren<CustomPersonField *>()) {
        if (!row->isHidden())
            shown.append(row);
    }
    std::sort(shown.begin(), shown.end(),
              [](const QWidget *a, const QWidget *b) { return a->pos().y() < b->pos().y(); });
    return shown;
}

template<class Widget = QWidget>
Widget *rowPart(const QWidget &page, int row, const char *name)
{
    return SettingsTest::child<Widget>(*rows(page).at(row), name);
}

inline QStringList rowNames(const QWidget &page)
{
    QStringList names;
    for (const CustomPersonField *row : rows(page))
        names.append(SettingsTest::child<QLineEdit>(*row, kRowName)->text());
    return names;
}

/// Types a name in place of the one that is there, and leaves it by the keyboard.
inline void typeName(const QWidget &page, int row, const QString &name)
{
    auto *edit = rowPart<QLineEdit>(page, row, kRowName);
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, name);
    QTest::keyClick(edit, Qt::Key_Tab);
}

/// One of a page's numbered boxes that choose a field to show.
inline QComboBox *fieldBox(const QWidget &page, const char *name, int number)
{
    return SettingsTest::child<QComboBox>(page, qPrintable(QStringLiteral("%1_%2").arg(name).arg(number)));
}

inline QStringList shownTexts(const QWidget &page, const char *name, int count)
{
    QStringList texts;
    for (int number = 1; number <= count; ++number)
        texts.append(fieldBox(page, name, number)->currentText());
    return texts;
}

/// The check boxes of the custom fields in their order, those that are checked with a "+" before the text.
inline QStringList customChecks(const QWidget &page)
{
    QStringList texts;
    for (int number = 1;; ++number) {
        const auto *box = page.findChild<QCheckBox *>(QStringLiteral("search_custom_field_%1").arg(number));
        if (!box)
            return texts;
        texts.append((box->isChecked() ? QStringLiteral("+") : QString()) + box->text());
    }
}

inline QCheckBox *parameterBox(const QWidget &page, int key)
{
    return SettingsTest::child<QCheckBox>(page, qPrintable(QStringLiteral("search_parameter_%1").arg(key)));
}

inline QList<int> checkedParameters(const QWidget &page)
{
    QList<int> keys;
    for (const int key : {2, 3, 4, 6, 7}) {
        if (parameterBox(page, key)->isChecked())
            keys.append(key);
    }
    return keys;
}

/// Shows the page as the tab widget does, with the keyboard at work.
inline void show(QWidget &page)
{
    page.resize(780, 480);
    page.show();
    page.activateWindow();
    if (!QTest::qWaitForWindowActive(&page))
        qFatal("The page does not show");
}

}  // namespace FieldPages

#endif
