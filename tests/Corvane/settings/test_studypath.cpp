#include "settingsbench.h"
#include "settingstest.h"
#include "support/messageboxes.h"
#include "support/pluginfolder.h"
#include "support/userinput.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>

using namespace SettingsTest;

namespace {

constexpr int kStudyTab = 4;

/// What a site stored of the spirometry application, and of one that this workstation doesn't have.
QMap<QString, QVariant> site()
{
    return {{QLatin1String(SettingsKeys::kStudySpecific),
             QStringList{QStringLiteral("Other=hidden=1=One"),
                         QStringLiteral("Ruvenka=hidden=-344530043=Brazil,36662987=China"),
                         QStringLiteral("Ruvenka=default=2012=GLI2012")}},
            {QLatin1String(SettingsKeys::kStudyResultFields),
             QStringList{QStringLiteral("Ruvenka=appName,quality,Date,"), QStringLiteral("Other=a,b,c,d"),
                         QStringLiteral("NightOximetry=Date,,,")}},
            {QLatin1String(SettingsKeys::kStudyHiddenFields),
             QStringList{QStringLiteral("NightOximetry=mask"), QStringLiteral("Ruvenka=packYears"),
                         QStringLiteral("exe-id=weight")}}};
}

QStringList lines(const DiffView &dialog, const char *pane)
{
    return child<QPlainTextEdit>(dialog, pane)->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

/// The way of the study settings from the local application through the page and back, in the real settings
/// view.
class TestStudyPath : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aLoadedSourceIsShownAndChangesNothing_data();
    void aLoadedSourceIsShownAndChangesNothing();
    void aChoiceIsInTheComparisonAndReachesTheLocalApplication();
    void withNothingChosenNothingIsReportedAsInvalid();

private:
    QWidget &openPage(SettingsBench &bench);

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestStudyPath::init()
{
    m_files.reset();
    m_files.setLocal(site());
}

QWidget &TestStudyPath::openPage(SettingsBench &bench)
{
    bench.choose("local_menu", "load_action");
    auto *tabs = child<QTabWidget>(bench.view(), "settings_tabs");
    tabs->setCurrentIndex(kStudyTab);
    return *tabs->currentWidget();
}

void TestStudyPath::aLoadedSourceIsShownAndChangesNothing_data()
{
    QTest::addColumn<bool>("hasPlugins");
    QTest::newRow("with the sample plug-ins") << true;
    QTest::newRow("without plug-ins") << false;
}

void TestStudyPath::aLoadedSourceIsShownAndChangesNothing()
{
    QFETCH(bool, hasPlugins);
    PluginFolder folder;
    if (hasPlugins)
        QVERIFY(folder.addSamples());
    SettingsBench bench(m_workstation, kAllRights);
    const QWidget &page = openPage(bench);
    QCOMPARE(page.objectName(), QStringLiteral("study_page"));
    QCOMPARE(child<QComboBox>(page, "default_reference_set")->currentText(), QStringLiteral("GLI2012"));
    if (hasPlugins) {
        QVERIFY(child<QCheckBox>(page, "study_field_mask")->isChecked());
        auto *applications = child<QComboBox>(page, "study_application");
        applications->setCurrentIndex(applications->findData(QStringLiteral("Ruvenka")));
        QVERIFY(child<QCheckBox>(page, "study_field_packYears")->isChecked());
        QCOMPARE(child<QComboBox>(page, "study_list_field_2")->currentText(),
                 QStringLiteral("Quality grade"));
    }
    const QMap<QString, QVariant> expected = site();
    bench.seeChanges([&expected](DiffView &dialog) {
        for (const QString &line : lines(dialog, "left_pane") + lines(dialog, "right_pane"))
            QVERIFY2(!expected.contains(line.section(QLatin1Char('='), 0, 0)), qPrintable(line));
    });
    for (auto setting = expected.cbegin(); setting != expected.cend(); ++setting)
        QCOMPARE(m_files.workingValue(qPrintable(setting.key())).toStringList(), setting->toStringList());
}

void TestStudyPath::aChoiceIsInTheComparisonAndReachesTheLocalApplication()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    SettingsBench bench(m_workstation, kAllRights);
    const QWidget &page = openPage(bench);
    child<QCheckBox>(page, "study_field_nights")->click();
    chooseEntry(child<QComboBox>(page, "study_list_field_4"), 2);
    bench.seeChanges([](DiffView &dialog) {
        QVERIFY(lines(dialog, "left_pane")
                    .contains(QStringLiteral(
                        "ui/study_hidden_fields=nightoximetry=mask;ruvenka=packyears;exe-id=weight")));
        QVERIFY(lines(dialog, "right_pane")
                    .contains(QStringLiteral(
                        "ui/study_hidden_fields=nightoximetry=mask,nights;ruvenka=packyears;exe-id=weight")));
    });
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().value(0).text, QStringLiteral("Saving succeeded."));
    QCOMPARE(m_files.localValue(SettingsKeys::kStudyHiddenFields).toStringList().constFirst(),
             QStringLiteral("NightOximetry=mask,nights"));
    QCOMPARE(m_files.localValue(SettingsKeys::kStudyResultFields).toStringList().constLast(),
             QStringLiteral("NightOximetry=Date,,,device"));
}

void TestStudyPath::withNothingChosenNothingIsReportedAsInvalid()
{
    m_files.reset();
    SettingsBench bench(m_workstation, kAllRights);
    openPage(bench);
    bench.takeEvents();
    bench.seeChanges([](DiffView &) {});
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    bench.choose("local_menu", "load_action");
    for (const AuditEvent &event : bench.takeEvents())
        QCOMPARE(event.error, 0U);
}

QTEST_MAIN(TestStudyPath)
#include "test_studypath.moc"
