#include "settingsbench.h"
#include "settingstest.h"
#include "support/filedialogs.h"
#include "support/messageboxes.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kAllNotes = QStringLiteral(" Lacking privileges to save database settings."
                                         " Lacking privileges to save local audit trail settings."
                                         " Lacking privileges to save local access control settings.");

AuditEvent exported()
{
    return settingsEvent(Actions::Export, QStringLiteral("Corvane Settings Export"));
}

AuditEvent notExported(const QString &target)
{
    return settingsError(Actions::Export, 0x14200006,
                         QStringLiteral("Exporting settings did not succeed: ") + target);
}

void show(SettingsBench &bench)
{
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
}

}  // namespace

/// Export on the real menu and Qt's own file dialog.
class TestSettingsExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void exportingWritesWhatThePagesShow();
    void theSaveDialogAsksAsTold();
    void cancellingTheSaveDialogLogsAllTheSameAndWarnsOfAMissingRight();
    void cancellingTheSaveDialogWithAllRightsShowsNothing();
    void exportingOntoAnExistingFileReplacesIt();
    void exportingToAProtectedFileFailsWithBothSentences();
    void exportingToAFolderThatIsNotThereFails();
    void whatCannotBeFlushedFailsAsTheCopy_data();
    void whatCannotBeFlushedFailsAsTheCopy();
    void exportingOntoTheWorkingFileKeepsIt();
    void withoutTheDatabaseRightNoDatabaseKeyIsExportedAndTheNotesAreShown();
    void workstationKeysAreAbsentFromAnExport();
    void aParkingFileOfAnEarlierRunIsNoHindrance();

private:
    QString outside(const QString &name) const
    {
        return m_workstation.path(QStringLiteral("outside/") + name);
    }
    void exportTo(SettingsBench &bench, const QString &target);
    /// The settings view's lines in the run-time log.
    QByteArrayList warnings() const;

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestSettingsExport::init()
{
    m_files.reset();
    QDir(m_workstation.path("outside")).removeRecursively();
    QDir().mkpath(m_workstation.path("outside"));
}

void TestSettingsExport::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
    // Whatever happened, the store works on the working file again.
    setStored("site/probe", 1);
    store()->generalSettings()->sync();
    QVERIFY(readFile(m_files.working()).contains("probe=1"));
}

void TestSettingsExport::exportTo(SettingsBench &bench, const QString &target)
{
    const FileDialogs dialogs({target});
    bench.choose("transfer_menu", "export_action");
    QCOMPARE(dialogs.seen().size(), 1);
}

QByteArrayList TestSettingsExport::warnings() const
{
    QByteArrayList lines;
    for (const QByteArray &line : readFile(m_workstation.runtimeLog()).split('\n')) {
        if (line.contains("SettingsView::"))
            lines.append(line);
    }
    return lines;
}

void TestSettingsExport::exportingWritesWhatThePagesShow()
{
    const QString target = outside(QStringLiteral("settings.ini"));
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    setStored("site/own", QStringLiteral("käypä"));
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    MessageBoxes boxes;
    exportTo(bench, target);
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    const auto file = openSettingsFile(target);
    QCOMPARE(file->value("ui/measurement_units").toInt(), 1);
    QCOMPARE(file->value("site/own").toString(), QStringLiteral("käypä"));
    QCOMPARE(file->allKeys(), m_files.workingKeys());
}

void TestSettingsExport::theSaveDialogAsksAsTold()
{
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    const FileDialogs dialogs;
    bench.choose("transfer_menu", "export_action");
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().first().title, QStringLiteral("Export to a file"));
    QCOMPARE(dialogs.seen().first().nameFilters, QStringList{"INI (*.ini)"});
    QCOMPARE(dialogs.seen().first().acceptMode, QFileDialog::AcceptSave);
    // No start directory: the dialog's own, which is the present one.
    QCOMPARE(dialogs.seen().first().directory, QDir::currentPath());
}

void TestSettingsExport::cancellingTheSaveDialogLogsAllTheSameAndWarnsOfAMissingRight()
{
    SettingsBench bench(m_workstation, kAllRights & ~AuditTrailManagement);
    show(bench);
    const FileDialogs dialogs;
    MessageBoxes boxes;
    bench.choose("transfer_menu", "export_action");
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text,
             QStringLiteral(" Lacking privileges to save local audit trail settings."));
}

void TestSettingsExport::cancellingTheSaveDialogWithAllRightsShowsNothing()
{
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    const FileDialogs dialogs;
    MessageBoxes boxes;
    bench.choose("transfer_menu", "export_action");
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    QVERIFY(boxes.seen().isEmpty());
    // The pages were not saved.
    QVERIFY(!m_files.workingKeys().contains("ui/measurement_units"));
}

void TestSettingsExport::exportingOntoAnExistingFileReplacesIt()
{
    const QString target = outside(QStringLiteral("old.ini"));
    QVERIFY(writeFile(target, "[old]\nkey=1\n"));
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    MessageBoxes boxes({"Yes"});  // the file dialog's own question
    exportTo(bench, target);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    QVERIFY(!openSettingsFile(target)->contains("old/key"));
    QVERIFY(openSettingsFile(target)->contains("ui/measurement_units"));
}

void TestSettingsExport::exportingToAProtectedFileFailsWithBothSentences()
{
    // A file that nobody can remove or write, the administrator neither.
    const QString target = QStringLiteral("/proc/version");
    if (!QFile::exists(target))
        QSKIP("This system has no file that resists everyone");
    SettingsBench bench(m_workstation, kAllRights & ~AuditTrailManagement);
    show(bench);
    const int logged = warnings().size();
    MessageBoxes boxes({"Yes"});
    exportTo(bench, target);
    const QString told = QStringLiteral("File existed and could not be overwritten! File copying failed!");
    QCOMPARE(boxes.seen().size(), 2);
    // No note of a missing right stands in a failure.
    QCOMPARE(boxes.seen().last().text, told);
    QCOMPARE(boxes.seen().last().buttons, QStringList{"Ok"});
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({notExported(target), exported()}));
    QVERIFY(QFile::exists(target));
    QCOMPARE(warnings().size(), logged + 1);
    QVERIFY(warnings().last().startsWith("WRN CV: "));
    QVERIFY(warnings().last().contains("SettingsView::exportSettings"));
    QVERIFY(warnings().last().contains(told.toUtf8()));
}

void TestSettingsExport::exportingToAFolderThatIsNotThereFails()
{
    const QString target = outside(QStringLiteral("none/settings.ini"));
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    const int logged = warnings().size();
    MessageBoxes boxes;
    exportTo(bench, target);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Error:  File copying failed!"));
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({notExported(target), exported()}));
    QVERIFY(!QFile::exists(target));
    QVERIFY(m_files.workingKeys().contains("ui/measurement_units"));
    QCOMPARE(warnings().size(), logged + 1);
}

void TestSettingsExport::whatCannotBeFlushedFailsAsTheCopy_data()
{
    QTest::addColumn<bool>("targetIsThere");
    QTest::newRow("to a new file, which is not made") << false;
    QTest::newRow("onto an old file, which stays") << true;
}

void TestSettingsExport::whatCannotBeFlushedFailsAsTheCopy()
{
    QFETCH(bool, targetIsThere);
    const QString target = outside(QStringLiteral("settings.ini"));
    if (targetIsThere)
        QVERIFY(writeFile(target, "[old]\nkey=1\n"));
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    setStored("site/own", "old");
    store()->generalSettings()->sync();
    const int logged = warnings().size();
    // The working file cannot be written; where the target is there is room.
    const QString aside = m_workstation.path("aside_corvane.ini");
    QVERIFY(QFile::rename(m_files.working(), aside));
    QVERIFY(QDir().mkpath(m_files.working()));
    setStored("site/own", "new");
    MessageBoxes boxes({"Yes", "Ok", "Yes"});
    exportTo(bench, target);
    QVERIFY(QDir().rmdir(m_files.working()));
    QVERIFY(QFile::rename(aside, m_files.working()));
    QCOMPARE(boxes.seen().size(), targetIsThere ? 2 : 1);
    QCOMPARE(boxes.seen().last().text, QStringLiteral("Error:  File copying failed!"));
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({notExported(target), exported()}));
    QCOMPARE(readFile(target), QByteArray(targetIsThere ? "[old]\nkey=1\n" : ""));
    QCOMPARE(warnings().size(), logged + 1);
    QVERIFY(warnings().last().startsWith("WRN CV: "));
    QVERIFY(warnings().last().contains("SettingsView::exportSettings"));
    // The working settings are what they were, and an export succeeds as soon as the file can be written.
    QCOMPARE(stored("site/own").toString(), QStringLiteral("new"));
    exportTo(bench, target);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    QCOMPARE(openSettingsFile(target)->value("site/own").toString(), QStringLiteral("new"));
}

void TestSettingsExport::exportingOntoTheWorkingFileKeepsIt()
{
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    setStored("site/own", "kept");
    store()->generalSettings()->sync();
    MessageBoxes boxes({"Yes"});
    exportTo(bench, m_files.working());
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    QCOMPARE(openSettingsFile(m_files.working())->value("site/own").toString(), QStringLiteral("kept"));
}

void TestSettingsExport::withoutTheDatabaseRightNoDatabaseKeyIsExportedAndTheNotesAreShown()
{
    const QString target = outside(QStringLiteral("settings.ini"));
    store()->setSafeValue(QStringLiteral("persondb/username"), QStringLiteral("user"));
    for (const char *key : {"actiondb/sqltype", "studydb/sqltype", "supportdb/sqltype"})
        setStored(key, 2);
    SettingsBench bench(m_workstation, 0);
    show(bench);
    QCOMPARE(child<QLineEdit>(bench.view(), "username_edit")->text(), QStringLiteral("user"));
    MessageBoxes boxes;
    exportTo(bench, target);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, kAllNotes);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{exported()});
    for (const QString &key : openSettingsFile(target)->allKeys()) {
        for (const char *group : {"actiondb/", "persondb/", "studydb/", "supportdb/"})
            QVERIFY2(!key.startsWith(QLatin1String(group)), qPrintable(key));
    }
    // They are gone from the working settings too, and the page shows it.
    QVERIFY(!m_files.workingKeys().contains("persondb/username"));
    QVERIFY(child<QLineEdit>(bench.view(), "username_edit")->text().isEmpty());
}

void TestSettingsExport::workstationKeysAreAbsentFromAnExport()
{
    const QString target = outside(QStringLiteral("settings.ini"));
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    setStored("ui/geometry", "here");
    store()->setSafeValue(QStringLiteral("accesscontrol/defaultrights"), 7);
    exportTo(bench, target);
    const QStringList keys = openSettingsFile(target)->allKeys();
    QVERIFY(!keys.isEmpty());
    QVERIFY(!keys.contains("ui/geometry"));
    QVERIFY(!keys.contains("accesscontrol/defaultrights"));
}

void TestSettingsExport::aParkingFileOfAnEarlierRunIsNoHindrance()
{
    QVERIFY(writeFile(m_workstation.dataDirectory() + "tmp_corvane.ini", "[stale]\nkey=1\n"));
    QVERIFY(QDir().mkpath(m_files.temporaryDirectory()));
    const QString target = outside(QStringLiteral("settings.ini"));
    SettingsBench bench(m_workstation, kAllRights);
    show(bench);
    exportTo(bench, target);
    QVERIFY(openSettingsFile(target)->contains("ui/measurement_units"));
    QVERIFY(!openSettingsFile(target)->contains("stale/key"));
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestSettingsExport test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_settingsexport.moc"
