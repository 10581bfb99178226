#ifndef TESTS_CORVANE_CUSTOMFIELDPAGE_H
#define TESTS_CORVANE_CUSTOMFIELDPAGE_H

#include "Corvane/settings/fieldsettingsview.h"
#include "fieldpages.h"

#include <QPushButton>

/// The Person fields page with a site's own fields.
namespace CustomFieldPage {

constexpr char kSummaryBox[] = "summary_field";
const QString kThreeFields = QStringLiteral("1:A=0:true,2:B=1:false,3:C=0:true");

inline void clickAdd(const QWidget &page)
{
    QTest::mouseClick(SettingsTest::child<QPushButton>(page, "add_custom_field"), Qt::LeftButton);
}

/// The names of the site's own fields that the summary offers.
inline QStringList offered(const QWidget &page)
{
    constexpr int standardEntries = 10;
    return SettingsTest::items(FieldPages::fieldBox(page, kSummaryBox, 1)).mid(standardEntries);
}

/// Saves the page and gives what is stored of the fields.
inline QString saved(FieldSettingsView &page)
{
    page.saveSettings();
    return SettingsTest::stored(FieldPages::kCustom).toString();
}

}  // namespace CustomFieldPage

#endif
