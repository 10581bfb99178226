#include "settingsbench.h"
#include "settingstest.h"
#include "support/filedialogs.h"
#include "support/messageboxes.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

using namespace SettingsTest;

namespace {

AuditEvent imported()
{
    return settingsEvent(Actions::Import, QStringLiteral("Corvane Settings Import"));
}

AuditEvent notImported(const QString &source)
{
    return settingsError(Actions::Import, 0x14200005,
                         QStringLiteral("Importing settings did not succeed: ") + source);
}

void show(SettingsBench &bench)
{
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
}

bool isShown(SettingsBench &bench)
{
    return !child<QTabWidget>(bench.view(), "settings_tabs")->isHidden();
}

int unitsOnPage(SettingsBench &bench)
{
    return child<QComboBox>(bench.view(), "measurement_units")->currentIndex();
}

}  // namespace

/// Import on the real menu and Qt's own file dialog, and what comes back of an export.
class TestSettingsTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theOpenDialogAsksAsTold();
    void cancellingTheOpenDialogDoesNothingAtAll();
    void importingReplacesTheWholeOfTheWorkingFile();
    void importingTheWorkingFileItselfCountsAsALoad();
    void importingWithoutAWorkingFileWorks();
    void aMissingSourceIsTold();
    void aFailedCopyLeavesTheFormerFileAndThePagesShowIt();
    void stuckTemporaryFilesGetFreshNames();
    void aProtectedSourceGivesAWritableWorkingFile();
    void databaseGroupsAreImportedWhateverTheRights();
    void aFirstImportMakesInitialAndPreviousSettingsEqual();
    void aFailedImportIsNoLoad_data();
    void aFailedImportIsNoLoad();
    void whatIsExportedAndImportedComesBack();

private:
    QString outside(const QString &name) const
    {
        return m_workstation.path(QStringLiteral("outside/") + name);
    }
    void import(SettingsBench &bench, const QString &source);
    void exportTo(SettingsBench &bench, const QString &target);
    /// The settings view's lines in the run-time log.
    QByteArrayList warnings() const;

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestSettingsTransfer::init()
{
    m_files.reset();
    QDir(m_workstation.path("outside")).removeRecursively();
    QDir().mkpath(m_workstation.path("outside"));
}

void TestSettingsTransfer::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
    // Whatever happened, the store works on the working file again.
    setStored("site/probe", 1);
    store()->generalSettings()->sync();
    QVERIFY(readFile(m_files.working()).contains("probe=1"));
}

void TestSettingsTransfer::import(SettingsBench &bench, const QString &source)
{
    const FileDialogs dialogs({source});
    bench.choose("transfer_menu", "import_action");
    QCOMPARE(dialogs.seen().size(), 1);
}

void TestSettingsTransfer::exportTo(SettingsBench &bench, const QString &target)
{
    const FileDialogs dialogs({target});
    bench.choose("transfer_menu", "export_action");
    QCOMPARE(dialogs.seen().size(), 1);
}

QByteArrayList TestSettingsTransfer::warnings() const
{
    QByteArrayList lines;
    for (const QByteArray &line : readFile(m_workstation.runtimeLog()).split('\n')) {
        if (line.contains("SettingsView::"))
            lines.append(line);
    }
    return lines;
}

void TestSettingsTransfer::theOpenDialogAsksAsTold()
{
    SettingsBench bench(m_workstation, kAllRights);
    const FileDialogs dialogs;
    bench.choose("transfer_menu", "import_action");
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().first().title, QStringLiteral("Import from a file"));
    QCOMPARE(dialogs.seen().first().nameFilters, QStringList{"INI (*.ini)"});
    QCOMPARE(dialogs.seen().first().acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(dialogs.seen().first().directory + '/', m_workstation.dataDirectory());
}

void TestSettingsTransfer::cancellingTheOpenDialogDoesNothingAtAll()
{
    setStored("site/own", "kept");
    SettingsBench bench(m_workstation, 0);
    setStored("ui/geometry", "here");
    const QStringList keys = m_files.workingKeys();
    const FileDialogs dialogs;
    MessageBoxes boxes;
    bench.choose("transfer_menu", "import_action");
    QCOMPARE(dialogs.seen().size(), 1);
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(bench.takeEvents().isEmpty());
    QVERIFY(!isShown(bench));
    QCOMPARE(m_files.workingKeys(), keys);
}

void TestSettingsTransfer::importingReplacesTheWholeOfTheWorkingFile()
{
    const QString source = outside(QStringLiteral("site.ini"));
    QVERIFY(
        writeFile(source, "[site]\nnew=\"k\xc3\xa4yp\xc3\xa4\"\n[ui]\nmeasurement_units=1\ngeometry=x\n"));
    setStored("site/old", 1);
    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    import(bench, source);
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{imported()});
    QVERIFY(isShown(bench));
    QCOMPARE(m_files.workingKeys(), QStringList({"site/new", "ui/measurement_units"}));
    QCOMPARE(m_files.workingValue("site/new").toString(), QStringLiteral("käypä"));
    QCOMPARE(unitsOnPage(bench), 1);
    QVERIFY(readFile(source).contains("geometry=x"));
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(child<QLabel>(dialog, "left_label")->text(), QStringLiteral("Imported settings"));
    });
}

void TestSettingsTransfer::importingTheWorkingFileItselfCountsAsALoad()
{
    setStored("site/own", "kept");
    store()->generalSettings()->sync();
    SettingsBench bench(m_workstation, kAllRights);
    store()->generalSettings()->sync();
    const QByteArray before = readFile(m_files.working());
    const QStringList names = QDir(m_workstation.dataDirectory()).entryList();
    import(bench, m_files.working());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{imported()});
    QVERIFY(isShown(bench));
    store()->generalSettings()->sync();
    QCOMPARE(readFile(m_files.working()), before);
    QCOMPARE(QDir(m_workstation.dataDirectory()).entryList(), names);
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(child<QLabel>(dialog, "left_label")->text(), QStringLiteral("Imported settings"));
    });
}

void TestSettingsTransfer::importingWithoutAWorkingFileWorks()
{
    const QString source = outside(QStringLiteral("site.ini"));
    QVERIFY(writeFile(source, "[site]\nnew=1\n"));
    SettingsBench bench(m_workstation, kAllRights);
    store()->generalSettings()->sync();
    QFile::remove(m_files.working());
    import(bench, source);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{imported()});
    QCOMPARE(m_files.workingKeys(), QStringList{"site/new"});
}

void TestSettingsTransfer::aMissingSourceIsTold()
{
    const QString source = outside(QStringLiteral("gone.ini"));
    QVERIFY(writeFile(source, "[site]\nnew=1\n"));
    setStored("site/own", "kept");
    SettingsBench bench(m_workstation, kAllRights);
    const int logged = warnings().size();
    FileDialogs dialogs({source});
    dialogs.whenChosen([](const QString &path) { QFile::remove(path); });
    MessageBoxes boxes;
    bench.choose("transfer_menu", "import_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text,
             QStringLiteral("Error: File %1 not found! Please select existing file to import!").arg(source));
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({notImported(source), imported()}));
    QVERIFY(!isShown(bench));
    QCOMPARE(m_files.workingKeys(), QStringList{"site/own"});
    QCOMPARE(warnings().size(), logged + 1);
    QVERIFY(warnings().last().startsWith("WRN CV: "));
    QVERIFY(warnings().last().contains("SettingsView::importSettings"));
    QVERIFY(warnings().last().contains("File not found!"));
}

void TestSettingsTransfer::aFailedCopyLeavesTheFormerFileAndThePagesShowIt()
{
    const QString source = outside(QStringLiteral("turned.ini"));
    QVERIFY(writeFile(source, "[site]\nnew=1\n"));
    setStored("site/own", "kept");
    setStored("ui/measurement_units", 1);
    SettingsBench bench(m_workstation, kAllRights);
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(0);
    const int logged = warnings().size();
    FileDialogs dialogs({source});
    dialogs.whenChosen([](const QString &path) {
        QFile::remove(path);
        QDir().mkpath(path);  // it exists, and no file can be copied from it
    });
    MessageBoxes boxes;
    bench.choose("transfer_menu", "import_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(
        boxes.seen().first().text,
        QStringLiteral("Error: Importing settings from %1 did not succeed. Please try again.").arg(source));
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({notImported(source), imported()}));
    QCOMPARE(m_files.workingKeys(), QStringList({"site/own", "ui/measurement_units"}));
    QCOMPARE(unitsOnPage(bench), 1);
    QVERIFY(!isShown(bench));
    QCOMPARE(warnings().size(), logged + 1);
    QVERIFY(warnings().last().startsWith("WRN CV: "));
    QVERIFY(warnings().last().contains("SettingsView::importSettings"));
    QVERIFY(warnings().last().contains("Importing settings did not succeed"));
}

void TestSettingsTransfer::stuckTemporaryFilesGetFreshNames()
{
    QVERIFY(writeFile(m_files.temporaryDirectory() + "/tmp_corvane.ini/stuck", "x"));
    QVERIFY(writeFile(m_files.temporaryDirectory() + "/recovery_corvane.ini/stuck", "x"));
    const QString source = outside(QStringLiteral("site.ini"));
    QVERIFY(writeFile(source, "[site]\nnew=1\n"));
    setStored("site/own", "old");
    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    import(bench, source);
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(m_files.workingKeys(), QStringList{"site/new"});
}

void TestSettingsTransfer::aProtectedSourceGivesAWritableWorkingFile()
{
    const QString source = outside(QStringLiteral("readonly.ini"));
    QVERIFY(writeFile(source, "[site]\nnew=1\n"));
    QVERIFY(QFile::setPermissions(source, QFile::ReadOwner | QFile::ReadGroup));
    SettingsBench bench(m_workstation, kAllRights);
    import(bench, source);
    QVERIFY(QFile::permissions(m_files.working()).testFlag(QFile::WriteOwner));
    QVERIFY(!QFile::permissions(source).testFlag(QFile::WriteOwner));
}

void TestSettingsTransfer::databaseGroupsAreImportedWhateverTheRights()
{
    const QString source = outside(QStringLiteral("site.ini"));
    store()->setSafeValue(QStringLiteral("persondb/username"), QStringLiteral("imported_user"));
    const QVariant form = store()->generalSettings()->value("persondb/username");
    {
        const auto file = openSettingsFile(source);
        file->setValue("persondb/username", form);
        file->setValue("persondb/sqltype", 2);
    }
    store()->generalSettings()->clear();
    SettingsBench bench(m_workstation, 0);
    import(bench, source);
    QCOMPARE(m_files.workingKeys(), QStringList({"persondb/sqltype", "persondb/username"}));
    QCOMPARE(child<QLineEdit>(bench.view(), "username_edit")->text(), QStringLiteral("imported_user"));
}

void TestSettingsTransfer::aFirstImportMakesInitialAndPreviousSettingsEqual()
{
    const QString source = outside(QStringLiteral("site.ini"));
    QVERIFY(writeFile(source, "[site]\nown=first\n"));
    SettingsBench bench(m_workstation, kAllRights);
    import(bench, source);
    setStored("site/own", "second");
    const auto left = [](const DiffView &dialog) {
        return child<QPlainTextEdit>(dialog, "left_pane")->toPlainText();
    };
    bench.seeChanges([left](DiffView &dialog) {
        QCOMPARE(left(dialog), QStringLiteral("site/own=first"));
        QTest::mouseClick(child<QPushButton>(dialog, "toggle_button"), Qt::LeftButton);
        QCOMPARE(left(dialog), QStringLiteral("site/own=first"));
    });
}

void TestSettingsTransfer::aFailedImportIsNoLoad_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("the source is missing") << false;
    QTest::newRow("the copy fails") << true;
}

void TestSettingsTransfer::aFailedImportIsNoLoad()
{
    QFETCH(bool, isThere);
    const QString source = outside(QStringLiteral("gone.ini"));
    QVERIFY(writeFile(source, "[site]\nnew=1\n"));
    SettingsBench bench(m_workstation, kAllRights);
    {
        FileDialogs dialogs({source});
        dialogs.whenChosen([isThere](const QString &path) {
            QFile::remove(path);
            if (isThere)
                QDir().mkpath(path);
        });
        MessageBoxes boxes;
        bench.choose("transfer_menu", "import_action");
        QCOMPARE(boxes.seen().size(), 1);
        QCOMPARE(boxes.seen().first().text.contains("did not succeed"), isThere);
    }
    // An online configuration that comes now is the first load still: it asks nothing.
    const DiffAnswers answers([](DiffView &) {}, true);
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "settingsReceived", Q_ARG(bool, true),
                                      Q_ARG(bool, false), Q_ARG(QString, QString())));
    QCOMPARE(answers.count(), 0);
}

void TestSettingsTransfer::whatIsExportedAndImportedComesBack()
{
    const QString file = outside(QStringLiteral("roundtrip.ini"));
    store()->setSafeValue(QStringLiteral("studydb/password"), QStringLiteral("pässi"));
    setStored("site/list", QStringList({"a, b", "", "c=\"d\";e", "\\f%g"}));
    setStored("site/text", QStringLiteral("日本語 @x; # \n\t"));
    setStored("site/number", 1.5);
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    exportTo(bench, file);
    store()->generalSettings()->clear();
    import(bench, file);
    QCOMPARE(store()->safeValue(QStringLiteral("studydb/password"), QString()).toString(),
             QStringLiteral("pässi"));
    QCOMPARE(stored("site/list").toStringList(), QStringList({"a, b", "", "c=\"d\";e", "\\f%g"}));
    QCOMPARE(stored("site/text").toString(), QStringLiteral("日本語 @x; # \n\t"));
    QCOMPARE(stored("site/number").toDouble(), 1.5);
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestSettingsTransfer test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_settingstransfer.moc"
