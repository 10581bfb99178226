#include "Corvane/settings/fieldsettingsview.h"
#include "Corvane/settings/searchsettingsview.h"
#include "fieldpages.h"
#include "settingstest.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

constexpr int kMany = 2000;

QString manyFields()
{
    QStringList fields;
    for (int id = 1; id <= kMany; ++id)
        fields.append(QStringLiteral("%1:Field %1=0:true").arg(id));
    return fields.join(QLatin1Char(','));
}

QStringList offered(const QWidget &page)
{
    return items(fieldBox(page, "summary_field", 1)).mid(10);
}

QString saved(FieldSettingsView &page)
{
    page.saveSettings();
    return stored(kCustom).toString();
}

}  // namespace

/// Both pages at a site that has defined very many fields.
class TestManyCustomFields : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void ofThousandsOfRowsThoseInSightHaveTheirWidgets();
    void theKeyboardGoesThroughThousandsOfRows();
    void thousandsOfFieldsAreNoTrouble();
    void thousandsOfFieldsCanBeSearched();

private:
    Workstation m_workstation;
};

void TestManyCustomFields::init()
{
    useEmptySettings(m_workstation);
}

void TestManyCustomFields::ofThousandsOfRowsThoseInSightHaveTheirWidgets()
{
    setStored(kCustom, manyFields());
    FieldSettingsView page;
    show(page);
    QTRY_VERIFY(rows(page).first()->isBuilt());
    QVERIFY(page.findChildren<QLineEdit *>(QLatin1String(kRowName)).size() < 200);

    const CustomPersonField *middle = rows(page).at(kMany / 2);
    QVERIFY(!middle->isBuilt());
    auto *bar = child<QScrollArea>(page, "custom_fields")->verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    QTRY_VERIFY(middle->isBuilt());
    QCOMPARE(child<QLineEdit>(*middle, kRowName)->text(), middle->field().name);
}

void TestManyCustomFields::theKeyboardGoesThroughThousandsOfRows()
{
    setStored(kCustom, manyFields());
    FieldSettingsView page;
    show(page);
    // Rows far below are in sight first, so that those between are made later.
    auto *bar = child<QScrollArea>(page, "custom_fields")->verticalScrollBar();
    bar->setValue(bar->maximum());
    QTRY_VERIFY(rows(page).last()->isBuilt());
    bar->setValue(0);

    QWidget *here = child<QPushButton>(page, "add_custom_field");
    here->setFocus();
    const QList<CustomPersonField *> all = rows(page);
    for (const CustomPersonField *row : all.mid(0, 50)) {
        QTRY_VERIFY(row->isBuilt());
        for (const QWidget *stop : row->tabStops()) {
            QTest::keyClick(here, Qt::Key_Tab);
            here = QApplication::focusWidget();
            QCOMPARE(here, stop);
        }
    }
}

void TestManyCustomFields::thousandsOfFieldsAreNoTrouble()
{
    const QString all = manyFields();
    setStored(kCustom, all);
    FieldSettingsView page;
    show(page);
    QCOMPARE(rows(page).size(), kMany);
    QCOMPARE(saved(page), all);
    QTest::mouseClick(child<QPushButton>(page, "add_custom_field"), Qt::LeftButton);
    QVERIFY(!rowPart(page, kMany, kRowName)->visibleRegion().isEmpty());
    typeName(page, kMany, QStringLiteral("The last"));
    QTest::mouseClick(rowPart(page, kMany, kRowUp), Qt::LeftButton);
    QCOMPARE(offered(page).mid(kMany - 1), (QStringList{"The last", QStringLiteral("Field %1").arg(kMany)}));
    setStored(kCustom, QStringLiteral("1:A=0:true,2:B=0:true"));
    page.reloadSettings();
    QCOMPARE(offered(page), (QStringList{"A", "B"}));
    QCOMPARE(saved(page), QStringLiteral("1:A=0:true,2:B=0:true"));
    setStored(kCustom, all);
    page.reloadSettings();
    page.cleanAddedFields(true);
    QVERIFY(rows(page).isEmpty());
}

void TestManyCustomFields::thousandsOfFieldsCanBeSearched()
{
    QStringList names;
    for (int id = 1; id <= kMany; ++id)
        names.append(QStringLiteral("Field %1").arg(id));
    setStored(kCustom, manyFields());
    setStored(kSearchedCustom, names);
    SearchSettingsView page;
    show(page);
    QCOMPARE(fieldBox(page, "result_field", 1)->count(), 10 + kMany);
    page.saveSettings();
    QCOMPARE(stored(kSearchedCustom).toStringList(), names);
    page.personCustomFieldsChanged({});
    QVERIFY(customChecks(page).isEmpty());
}

QTEST_MAIN(TestManyCustomFields)
#include "test_manycustomfields.moc"
