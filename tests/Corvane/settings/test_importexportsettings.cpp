#include "Corvane/settings/importexportsettings.h"
#include "settingstest.h"
#include "support/filedialogs.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace SettingsTest;

namespace {

constexpr char kInput[] = "his_input_file";
constexpr char kOutput[] = "his_output_file";
constexpr char kSystem[] = "his_system";

const QString kGdtInput = QStringLiteral("C:\\Halvorn\\Datatransfer\\Input.gdt");
const QString kXmlInput = QStringLiteral("C:\\Halvorn\\Datatransfer\\Input.xml");
const QString kGdtOutput = QStringLiteral("C:\\Halvorn\\Datatransfer\\Output.gdt");
const QString kXmlOutput = QStringLiteral("C:\\Halvorn\\Datatransfer\\Output.xml");

QList<QCheckBox *> identificationBoxes(const QWidget &page)
{
    QList<QCheckBox *> boxes;
    for (const int number : {6, 7, 4, 3, 2, 5, 8, 9})
        boxes.append(child<QCheckBox>(page, qPrintable(QStringLiteral("identification_%1").arg(number))));
    return boxes;
}

QList<int> checkedNumbers(const QWidget &page)
{
    QList<int> numbers;
    for (const QCheckBox *box : identificationBoxes(page)) {
        if (box->isChecked())
            numbers.append(box->objectName().section('_', 1).toInt());
    }
    return numbers;
}

void type(QLineEdit *edit, const QString &text)
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

QLabel *label(const QWidget &page, const QString &text)
{
    const QList<QLabel *> labels = page.findChildren<QLabel *>();
    const auto found = std::find_if(labels.cbegin(), labels.cend(),
                                    [&text](const QLabel *label) { return label->text() == text; });
    return found == labels.cend() ? nullptr : *found;
}

/// Drops a text on an empty edit, which doesn't get the focus by this.
void drop(QLineEdit *edit, const QString &text)
{
    QMimeData data;
    data.setText(text);
    QDropEvent event(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    edit->clear();
    static_cast<QObject *>(edit)->event(&event);
}

/// Fills an edit as assistive technology does, without a key.
void dictate(QLineEdit *edit, const QString &text)
{
    QAccessible::queryAccessibleInterface(edit)->editableTextInterface()->replaceText(0, edit->text().size(),
                                                                                      text);
}

void paste(QLineEdit *edit, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    edit->selectAll();
    edit->paste();
}

}  // namespace

/// The exchange with a hospital system, on the real widgets.
class TestImportExportSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nothingStoredShowsTheDefaults();
    void theDefaultsAreSavedAsTheyAreTold();
    void formatNoneDisablesTheExchangeWidgetsAndShowsEmptyPaths();
    void aFormatEnablesTheExchangeWidgets();
    void aNegativeFormatIndexKeepsThePaths();
    void changingTheFormatAndBackRestoresThePathThatWasTyped();
    void changingTheFormatAndBackRestoresThePathThatCameWithoutAKey_data();
    void changingTheFormatAndBackRestoresThePathThatCameWithoutAKey();
    void loadingForgetsThePathsThatWereShown();
    void aPastedPathLosesTheEndsOfItsLines_data();
    void aPastedPathLosesTheEndsOfItsLines();
    void aPathThatIsStillBeingTypedIsSaved();
    void aStoredFormatOutsideTheTableShowsNone_data();
    void aStoredFormatOutsideTheTableShowsNone();
    void anUnusableImportModeCountsAsInsert_data();
    void anUnusableImportModeCountsAsInsert();
    void identificationKeys_data();
    void identificationKeys();
    void identificationBoxesStandInTheirOrder();
    void aStoredListOfTwoFilesKeepsTheDefaultsOfTheOthers();
    void aStoredListOfFiveFilesLosesItsSurplus();
    void anUnknownFileFormatSelectsNothingAndIsNotOverwritten();
    void browsingForAFile_data();
    void browsingForAFile();
    void aCancelledFileDialogLeavesThePath();
    void browsingForALocation_data();
    void browsingForALocation();
    void whatIsReadAndSavedUnchangedComesBack();

private:
    Workstation m_workstation;
};

void TestImportExportSettings::init()
{
    useEmptySettings(m_workstation);
}

void TestImportExportSettings::nothingStoredShowsTheDefaults()
{
    ImportExportSettings page(nullptr);
    page.load();
    QCOMPARE(items(child<QComboBox>(page, kSystem)), QStringList({"None", "GDT", "GDT 3.0", "XML"}));
    QCOMPARE(child<QComboBox>(page, kSystem)->currentIndex(), 0);
    QCOMPARE(items(child<QComboBox>(page, "his_import_mode")), QStringList({"Insert", "Update"}));
    QCOMPARE(child<QComboBox>(page, "his_import_mode")->currentIndex(), 1);
    QVERIFY(child<QCheckBox>(page, "his_force_match_dialog")->isChecked());
    QCOMPARE(checkedNumbers(page), QList<int>{6});
    QCOMPARE(items(child<QComboBox>(page, "his_auto_export_option")),
             QStringList({"Autoexport", "No autoexport", "No Export"}));
    QCOMPARE(child<QComboBox>(page, "his_auto_export_option")->currentIndex(), 0);
    QCOMPARE(items(child<QComboBox>(page, "his_export_session_data")),
             QStringList({"Current study", "All studies"}));
    QCOMPARE(child<QComboBox>(page, "his_export_session_data")->currentIndex(), 0);
    QVERIFY(child<QCheckBox>(page, "his_proceed_measurement_automatically")->isChecked());
    QCOMPARE(child<QLineEdit>(page, "his_export_location")->text(),
             QStringLiteral("C:\\Halvorn\\Datatransfer"));
    QCOMPARE(child<QLineEdit>(page, "his_import_location")->text(),
             QStringLiteral("C:\\Halvorn\\Datatransfer"));
    QCOMPARE(items(child<QComboBox>(page, "his_default_filter")),
             QStringList({"GDT (*.gdt)", "GDT 3.0 (*.gdt)", "SpiroXML2 (*.xml)"}));
    QCOMPARE(child<QComboBox>(page, "his_default_filter")->currentText(),
             QStringLiteral("SpiroXML2 (*.xml)"));
}

void TestImportExportSettings::theDefaultsAreSavedAsTheyAreTold()
{
    ImportExportSettings page(nullptr);
    page.load();
    page.save();
    QCOMPARE(stored("his/system"), QVariant(0));
    QCOMPARE(stored("his/import_mode"), QVariant(1));
    QCOMPARE(stored("his/force_match_dialog"), QVariant(true));
    QCOMPARE(stored("his/import_keys"), QVariant(6));
    QCOMPARE(stored("his/input_files").toStringList(),
             QStringList({QString(), kGdtInput, kGdtInput, kXmlInput}));
    QCOMPARE(stored("his/output_files").toStringList(),
             QStringList({QString(), kGdtOutput, kGdtOutput, kXmlOutput}));
    QCOMPARE(stored("his/auto_export_option"), QVariant(0));
    QCOMPARE(stored("his/export_session_data"), QVariant(0));
    QCOMPARE(stored("his/proceed_measurement_automatically"), QVariant(true));
    QCOMPARE(stored("his/exportlocation"), QVariant("C:\\Halvorn\\Datatransfer"));
    QCOMPARE(stored("his/importlocation"), QVariant("C:\\Halvorn\\Datatransfer"));
    QCOMPARE(stored("his/defaultfilter"), QVariant("SpiroXML2 (*.xml)"));
    QCOMPARE(store()->generalSettings()->allKeys().size(), 12);
}

void TestImportExportSettings::formatNoneDisablesTheExchangeWidgetsAndShowsEmptyPaths()
{
    setStored("his/system", 1);
    ImportExportSettings page(nullptr);
    page.load();
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kGdtInput);
    child<QComboBox>(page, kSystem)->setCurrentIndex(0);

    QVERIFY(child<QLineEdit>(page, kInput)->text().isEmpty());
    QVERIFY(child<QLineEdit>(page, kOutput)->text().isEmpty());
    for (const char *name :
         {kInput, kOutput, "his_input_file_browse", "his_output_file_browse", "his_import_mode",
          "his_force_match_dialog", "his_auto_export_option", "his_import_keys"})
        QVERIFY2(!child<QWidget>(page, name)->isEnabled(), name);
    for (const QCheckBox *box : identificationBoxes(page))
        QVERIFY(!box->isEnabled());
    QVERIFY(!label(page, QStringLiteral("Import mode"))->isEnabled());
    // What does not depend on the exchange stays.
    for (const char *name : {"his_system", "his_export_session_data", "his_proceed_measurement_automatically",
                             "his_export_location", "his_import_location", "his_default_filter"})
        QVERIFY2(child<QWidget>(page, name)->isEnabled(), name);
}

void TestImportExportSettings::aFormatEnablesTheExchangeWidgets()
{
    ImportExportSettings page(nullptr);
    page.load();
    child<QComboBox>(page, kSystem)->setCurrentIndex(3);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kXmlInput);
    QCOMPARE(child<QLineEdit>(page, kOutput)->text(), kXmlOutput);
    for (const char *name :
         {kInput, kOutput, "his_input_file_browse", "his_output_file_browse", "his_import_mode",
          "his_force_match_dialog", "his_auto_export_option", "his_import_keys"})
        QVERIFY2(child<QWidget>(page, name)->isEnabled(), name);
    QVERIFY(label(page, QStringLiteral("Import mode"))->isEnabled());
}

void TestImportExportSettings::aNegativeFormatIndexKeepsThePaths()
{
    setStored("his/system", 1);
    ImportExportSettings page(nullptr);
    page.load();
    QVERIFY(QMetaObject::invokeMethod(&page, "handleHISSystemChanged", Q_ARG(int, -1)));
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kGdtInput);
    QVERIFY(QMetaObject::invokeMethod(&page, "handleHISSystemChanged", Q_ARG(int, 17)));
    QVERIFY(child<QLineEdit>(page, kInput)->text().isEmpty());
}

void TestImportExportSettings::changingTheFormatAndBackRestoresThePathThatWasTyped()
{
    ImportExportSettings page(nullptr);
    page.load();
    page.show();
    auto *system = child<QComboBox>(page, kSystem);
    system->setCurrentIndex(1);
    type(child<QLineEdit>(page, kInput), QStringLiteral("D:\\in.gdt"));
    type(child<QLineEdit>(page, kOutput), QStringLiteral("D:\\out.gdt"));
    system->setCurrentIndex(3);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kXmlInput);
    system->setCurrentIndex(1);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), QStringLiteral("D:\\in.gdt"));
    QCOMPARE(child<QLineEdit>(page, kOutput)->text(), QStringLiteral("D:\\out.gdt"));
    QVERIFY(!store()->generalSettings()->contains("his/input_files"));
}

void TestImportExportSettings::changingTheFormatAndBackRestoresThePathThatCameWithoutAKey_data()
{
    QTest::addColumn<bool>("dropped");
    QTest::newRow("by drag and drop") << true;
    QTest::newRow("from assistive technology") << false;
}

void TestImportExportSettings::changingTheFormatAndBackRestoresThePathThatCameWithoutAKey()
{
    QFETCH(bool, dropped);
    setStored("his/system", 1);
    ImportExportSettings page(nullptr);
    page.load();
    page.show();
    const auto fill = dropped ? drop : dictate;
    fill(child<QLineEdit>(page, kInput), QStringLiteral("D:\\in.gdt"));
    fill(child<QLineEdit>(page, kOutput), QStringLiteral("D:\\out.gdt"));
    auto *system = child<QComboBox>(page, kSystem);
    system->setCurrentIndex(3);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kXmlInput);
    QCOMPARE(child<QLineEdit>(page, kOutput)->text(), kXmlOutput);
    system->setCurrentIndex(1);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), QStringLiteral("D:\\in.gdt"));
    QCOMPARE(child<QLineEdit>(page, kOutput)->text(), QStringLiteral("D:\\out.gdt"));
}

void TestImportExportSettings::loadingForgetsThePathsThatWereShown()
{
    setStored("his/system", 1);
    ImportExportSettings page(nullptr);
    page.load();
    child<QLineEdit>(page, kInput)->setText(QStringLiteral("D:\\former.gdt"));
    setStored("his/system", 3);
    page.load();
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kXmlInput);
    child<QComboBox>(page, kSystem)->setCurrentIndex(1);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kGdtInput);
}

void TestImportExportSettings::aPastedPathLosesTheEndsOfItsLines_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("path");
    const QString share = QStringLiteral("\\\\server\\exchange\\in.gdt");
    QTest::newRow("one line with its end") << share + "\n" << share;
    QTest::newRow("one line with its end on Windows") << share + "\r\n" << share;
    QTest::newRow("a path that a letter broke") << "\\\\server\\exchange\n\\in.gdt" << share;
    QTest::newRow("a separator of paragraphs") << share + QChar(QChar::ParagraphSeparator) << share;
    QTest::newRow("line ends alone") << "\r\n\r\n" << QString();
    QTest::newRow("blanks stay") << "C:\\My  data \\in.gdt"
                                 << "C:\\My  data \\in.gdt";
    const QString hebrew = QString::fromUtf8("C:\\\u05e0\u05ea\u05d5\u05e0\u05d9\u05dd\\in.gdt");
    QTest::newRow("letters from right to left stay") << hebrew << hebrew;
}

void TestImportExportSettings::aPastedPathLosesTheEndsOfItsLines()
{
    QFETCH(QString, pasted);
    QFETCH(QString, path);
    setStored("his/system", 2);
    ImportExportSettings page(nullptr);
    page.load();
    for (const char *name : {kInput, kOutput, "his_import_location", "his_export_location"}) {
        paste(child<QLineEdit>(page, name), pasted);
        QCOMPARE(child<QLineEdit>(page, name)->text(), path);
    }
    page.save();
    QCOMPARE(stored("his/input_files").toStringList().at(2), path);
    QCOMPARE(stored("his/importlocation").toString(), path);
}

void TestImportExportSettings::aPathThatIsStillBeingTypedIsSaved()
{
    setStored("his/system", 2);
    ImportExportSettings page(nullptr);
    page.load();
    child<QLineEdit>(page, kInput)->clear();
    QTest::keyClicks(child<QLineEdit>(page, kInput), QStringLiteral("E:\\x"));
    page.save();
    QCOMPARE(stored("his/input_files").toStringList().at(2), QStringLiteral("E:\\x"));
}

void TestImportExportSettings::aStoredFormatOutsideTheTableShowsNone_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("7") << QVariant(7);
    QTest::newRow("4") << QVariant(4);
    QTest::newRow("a negative number") << QVariant(-1);
    QTest::newRow("no number") << QVariant("xml");
}

void TestImportExportSettings::aStoredFormatOutsideTheTableShowsNone()
{
    QFETCH(QVariant, value);
    setStored("his/system", value);
    ImportExportSettings page(nullptr);
    page.load();
    QCOMPARE(child<QComboBox>(page, kSystem)->currentText(), QStringLiteral("None"));
    QVERIFY(!child<QLineEdit>(page, kInput)->isEnabled());
}

void TestImportExportSettings::anUnusableImportModeCountsAsInsert_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("3") << QVariant(3);
    QTest::newRow("a negative number") << QVariant(-4);
    QTest::newRow("no number") << QVariant("update");
}

void TestImportExportSettings::anUnusableImportModeCountsAsInsert()
{
    QFETCH(QVariant, value);
    setStored("his/import_mode", value);
    ImportExportSettings page(nullptr);
    page.load();
    QCOMPARE(child<QComboBox>(page, "his_import_mode")->currentIndex(), 0);
}

void TestImportExportSettings::identificationKeys_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QList<int>>("checked");
    QTest::addColumn<QVariant>("saved");

    QTest::newRow("one checked box stores a plain integer") << QVariant(4) << QList<int>{4} << QVariant(4);
    QTest::newRow("a list of one is read and stored as a plain integer")
        << QVariant(QVariantList{5}) << QList<int>{5} << QVariant(5);
    QTest::newRow("two store a list in the order of the boxes")
        << QVariant(QVariantList{2, 6}) << QList<int>{6, 2} << QVariant(QVariantList{6, 2});
    QTest::newRow("texts of an ini file are read")
        << QVariant(QStringList{"9", "3"}) << QList<int>{3, 9} << QVariant(QVariantList{3, 9});
    QTest::newRow("a number without a box is dropped")
        << QVariant(QVariantList{11, 8}) << QList<int>{8} << QVariant(8);
    QTest::newRow("no box stores the empty list as it stands")
        << QVariant(QVariantList{11}) << QList<int>{} << QVariant(QVariantList{});
}

void TestImportExportSettings::identificationKeys()
{
    QFETCH(QVariant, value);
    QFETCH(QList<int>, checked);
    QFETCH(QVariant, saved);
    setStored("his/import_keys", value);
    ImportExportSettings page(nullptr);
    page.load();
    QCOMPARE(checkedNumbers(page), checked);
    page.save();
    QCOMPARE(stored("his/import_keys"), saved);
    QCOMPARE(stored("his/import_keys").userType(), saved.userType());
    page.load();
    QCOMPARE(checkedNumbers(page), checked);
}

void TestImportExportSettings::identificationBoxesStandInTheirOrder()
{
    ImportExportSettings page(nullptr);
    QStringList texts;
    for (const QCheckBox *box : identificationBoxes(page))
        texts.append(box->text());
    QCOMPARE(texts, QStringList({"Personal ID", "Person code", "Last Name", "Middle Name", "First Name",
                                 "Birthdate", "Gender", "Ethnic Group"}));
}

void TestImportExportSettings::aStoredListOfTwoFilesKeepsTheDefaultsOfTheOthers()
{
    setStored("his/input_files", QStringList({"", "D:\\own.gdt"}));
    ImportExportSettings page(nullptr);
    page.load();
    page.save();
    QCOMPARE(stored("his/input_files").toStringList(),
             QStringList({"", "D:\\own.gdt", kGdtInput, kXmlInput}));
}

void TestImportExportSettings::aStoredListOfFiveFilesLosesItsSurplus()
{
    setStored("his/output_files", QStringList({"0", "1", "2", "3", "4"}));
    ImportExportSettings page(nullptr);
    page.load();
    page.save();
    QCOMPARE(stored("his/output_files").toStringList(), QStringList({"0", "1", "2", "3"}));
}

void TestImportExportSettings::anUnknownFileFormatSelectsNothingAndIsNotOverwritten()
{
    setStored("his/defaultfilter", "Other (*.oth)");
    ImportExportSettings page(nullptr);
    page.load();
    QCOMPARE(child<QComboBox>(page, "his_default_filter")->currentIndex(), -1);
    page.save();
    QCOMPARE(stored("his/defaultfilter"), QVariant("Other (*.oth)"));
}

void TestImportExportSettings::browsingForAFile_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("filters");
    const QStringList gdt = {"GDT File (*.gdt)", "Any file (*.*)"};
    const QStringList xml = {"XML File (*.xml)", "Any file (*.*)"};
    QTest::newRow("GDT input") << 1 << QString(kInput) << QStringLiteral("Input file") << gdt;
    QTest::newRow("GDT 3.0 output") << 2 << QString(kOutput) << QStringLiteral("Output file") << gdt;
    QTest::newRow("XML input") << 3 << QString(kInput) << QStringLiteral("Input file") << xml;
}

void TestImportExportSettings::browsingForAFile()
{
    QFETCH(int, format);
    QFETCH(QString, edit);
    QFETCH(QString, title);
    QFETCH(QStringList, filters);
    const QString chosen = m_workstation.path(QStringLiteral("chosen.%1").arg(format));
    setStored("his/system", format);
    ImportExportSettings page(nullptr);
    page.load();

    FileDialogs dialogs({chosen});
    QTest::mouseClick(child<QPushButton>(page, qPrintable(edit + "_browse")), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    const SeenFileDialog seen = dialogs.seen().first();
    QCOMPARE(seen.title, title);
    QCOMPARE(seen.nameFilters, filters);
    QCOMPARE(seen.fileMode, QFileDialog::AnyFile);
    QCOMPARE(seen.acceptLabel, QStringLiteral("Select"));
    QCOMPARE(seen.rejectLabel, QStringLiteral("Cancel"));
    QCOMPARE(child<QLineEdit>(page, qPrintable(edit))->text(), QDir::toNativeSeparators(chosen));

    auto *system = child<QComboBox>(page, kSystem);
    system->setCurrentIndex(0);
    system->setCurrentIndex(format);
    QCOMPARE(child<QLineEdit>(page, qPrintable(edit))->text(), QDir::toNativeSeparators(chosen));
}

void TestImportExportSettings::aCancelledFileDialogLeavesThePath()
{
    setStored("his/system", 1);
    ImportExportSettings page(nullptr);
    page.load();
    FileDialogs dialogs;
    QTest::mouseClick(child<QPushButton>(page, "his_input_file_browse"), Qt::LeftButton);
    QTest::mouseClick(child<QPushButton>(page, "his_import_location_browse"), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(child<QLineEdit>(page, kInput)->text(), kGdtInput);
    QCOMPARE(child<QLineEdit>(page, "his_import_location")->text(),
             QStringLiteral("C:\\Halvorn\\Datatransfer"));
}

void TestImportExportSettings::browsingForALocation_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("title");
    QTest::newRow("import") << "his_import_location"
                            << "Select default import location";
    QTest::newRow("export") << "his_export_location"
                            << "Select default export location";
}

void TestImportExportSettings::browsingForALocation()
{
    QFETCH(QString, edit);
    QFETCH(QString, title);
    ImportExportSettings page(nullptr);
    page.load();
    FileDialogs dialogs({m_workstation.temporaryDirectory()});
    QTest::mouseClick(child<QPushButton>(page, qPrintable(edit + "_browse")), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().first().title, title);
    QCOMPARE(dialogs.seen().first().fileMode, QFileDialog::Directory);
    QCOMPARE(dialogs.seen().first().acceptLabel, QStringLiteral("Select"));
    QCOMPARE(dialogs.seen().first().rejectLabel, QStringLiteral("Cancel"));
    QCOMPARE(child<QLineEdit>(page, qPrintable(edit))->text(),
             QDir::toNativeSeparators(m_workstation.temporaryDirectory()));
}

void TestImportExportSettings::whatIsReadAndSavedUnchangedComesBack()
{
    QRandomGenerator random(57);
    ImportExportSettings page(nullptr);
    for (int round = 0; round < 200; ++round) {
        useEmptySettings(m_workstation);
        QVariantList keys;
        for (const int number : {6, 7, 4, 3, 2, 5, 8, 9}) {
            if (random.bounded(2))
                keys.append(number);
        }
        const auto text = [&random] {
            QString result;
            for (int i = random.bounded(12); i > 0; --i)
                result.append(QChar(random.bounded(0x20, 0x17f)));
            return result;
        };
        const QStringList filters = {"GDT (*.gdt)", "GDT 3.0 (*.gdt)", "SpiroXML2 (*.xml)"};
        const QMap<QString, QVariant> settings = {
            {"his/system", random.bounded(4)},
            {"his/import_mode", random.bounded(2)},
            {"his/force_match_dialog", random.bounded(2) == 1},
            {"his/import_keys", keys.size() == 1 ? keys.first() : QVariant(keys)},
            {"his/input_files", QStringList({text(), text(), text(), text()})},
            {"his/output_files", QStringList({text(), text(), text(), text()})},
            {"his/auto_export_option", random.bounded(3)},
            {"his/export_session_data", random.bounded(2)},
            {"his/proceed_measurement_automatically", random.bounded(2) == 1},
            {"his/exportlocation", text()},
            {"his/importlocation", text()},
            {"his/defaultfilter", filters.at(random.bounded(3))},
        };
        for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
            store()->setValue(setting.key(), *setting);
        page.load();
        page.save();
        for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
            QCOMPARE(store()->value(setting.key(), QVariant()), *setting);
        QCOMPARE(store()->generalSettings()->allKeys(), settings.keys());
    }
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestImportExportSettings test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_importexportsettings.moc"
