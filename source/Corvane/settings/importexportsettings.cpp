#include "Corvane/settings/importexportsettings.h"

#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/formparts.h"
#include "Corvane/settings/identificationboxes.h"
#include "Corvane/settings/plainsettings.h"
#include "Corvane/settings/settingslists.h"
#include "ZephanShared/toolkit/nativepath.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using PlainSettings::read;
using PlainSettings::write;

namespace {

enum HisSystem { NoSystem, Gdt, Gdt30, Xml, HisSystemCount };

constexpr int kNoFormat = -1;
constexpr int kImportModeLimit = 3;  // of the measurement applications; this page offers two
constexpr int kDefaultImportMode = 1;
constexpr int kDefaultImportKey = 6;  // Personal ID
constexpr int kIdentificationColumns = 2;

const char *const kDefaultLocation = "C:\\Halvorn\\Datatransfer";
const char *const kDefaultFilter = "SpiroXML2 (*.xml)";

QStringList defaultFiles(const QString &name)
{
    const QString path = QLatin1String(kDefaultLocation) + QLatin1Char('\\') + name;
    return {QString(), path + QStringLiteral(".gdt"), path + QStringLiteral(".gdt"),
            path + QStringLiteral(".xml")};
}

QStringList defaultInputFiles()
{
    return defaultFiles(QStringLiteral("Input"));
}

QStringList defaultOutputFiles()
{
    return defaultFiles(QStringLiteral("Output"));
}

/// A number from 0 up to `limit`, 0 for all others.
int readIndex(const char *key, int defaultValue, int limit)
{
    const int index = read(key, defaultValue).toInt();
    return index >= 0 && index < limit ? index : 0;
}

/// A box without a current item counts as its first one.
int indexOf(const QComboBox *box)
{
    return qMax(0, box->currentIndex());
}

void rememberPath(QStringList &paths, int format, const QLineEdit *edit)
{
    if (format >= 0 && format < paths.size())
        paths[format] = edit->text();
}

void setItems(QComboBox *box, const QStringList &texts)
{
    for (int i = 0; i < texts.size(); ++i) {
        if (i < box->count())
            box->setItemText(i, texts.at(i));
        else
            box->addItem(texts.at(i));
    }
}

}  // namespace

ImportExportSettings::ImportExportSettings(QWidget *parent)
    : QWidget(parent)
    , m_inputFiles(defaultInputFiles())
    , m_outputFiles(defaultOutputFiles())
    , m_shownFormat(kNoFormat)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    buildExchange(layout);
    buildDefaults(layout);
    layout->addStretch();
    updateTexts();
    connectWidgets();
}

void ImportExportSettings::buildExchange(QBoxLayout *layout)
{
    m_exchangeTitle = FormParts::addTitle(layout);
    m_systemLabel = FormParts::addLabel(layout);
    m_system = FormParts::addComboBox(layout, QStringLiteral("his_system"));
    m_importModeLabel = FormParts::addLabel(layout);
    m_importMode = FormParts::addComboBox(layout, QStringLiteral("his_import_mode"));
    m_forceMatchDialog = FormParts::addCheckBox(layout, QStringLiteral("his_force_match_dialog"));

    m_identificationTitle = FormParts::addTitle(layout);
    m_identificationLabel = FormParts::addLabel(layout);
    m_importKeys = new IdentificationBoxes(kIdentificationColumns, this);
    m_importKeys->setObjectName(QStringLiteral("his_import_keys"));
    layout->addWidget(m_importKeys);

    m_inputFileLabel = FormParts::addLabel(layout);
    m_inputFile = FormParts::addEditWithButton(layout, QStringLiteral("his_input_file"), m_browseInputFile);
    m_outputFileLabel = FormParts::addLabel(layout);
    m_outputFile =
        FormParts::addEditWithButton(layout, QStringLiteral("his_output_file"), m_browseOutputFile);
    m_autoExportLabel = FormParts::addLabel(layout);
    m_autoExport = FormParts::addComboBox(layout, QStringLiteral("his_auto_export_option"));
    m_exportSessionLabel = FormParts::addLabel(layout);
    m_exportSession = FormParts::addComboBox(layout, QStringLiteral("his_export_session_data"));
    m_proceed = FormParts::addCheckBox(layout, QStringLiteral("his_proceed_measurement_automatically"));
}

void ImportExportSettings::buildDefaults(QBoxLayout *layout)
{
    m_defaultsTitle = FormParts::addTitle(layout);
    m_exportLocationLabel = FormParts::addLabel(layout);
    m_exportLocation =
        FormParts::addEditWithButton(layout, QStringLiteral("his_export_location"), m_browseExportLocation);
    m_importLocationLabel = FormParts::addLabel(layout);
    m_importLocation =
        FormParts::addEditWithButton(layout, QStringLiteral("his_import_location"), m_browseImportLocation);
    m_defaultFilterLabel = FormParts::addLabel(layout);
    m_defaultFilter = FormParts::addComboBox(layout, QStringLiteral("his_default_filter"));
    // The stored value is the item's text, so the texts are not translated.
    m_defaultFilter->addItems({QStringLiteral("GDT (*.gdt)"), QStringLiteral("GDT 3.0 (*.gdt)"),
                               QStringLiteral("SpiroXML2 (*.xml)")});
}

void ImportExportSettings::connectWidgets()
{
    connect(m_system, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ImportExportSettings::handleHISSystemChanged);
    connect(m_inputFile, &QLineEdit::editingFinished, this, &ImportExportSettings::handleInputFileChanged);
    connect(m_outputFile, &QLineEdit::editingFinished, this, &ImportExportSettings::handleOutputFileChanged);
    connect(m_browseInputFile, &QPushButton::clicked, this, &ImportExportSettings::handleBrowseInputFile);
    connect(m_browseOutputFile, &QPushButton::clicked, this, &ImportExportSettings::handleBrowseOutputFile);
    connect(m_browseImportLocation, &QPushButton::clicked, this,
            &ImportExportSettings::handleBrowseDefaultImportLocation);
    connect(m_browseExportLocation, &QPushButton::clicked, this,
            &ImportExportSettings::handleBrowseDefaultExportLocation);
}

void ImportExportSettings::updateTexts()
{
    m_exchangeTitle->setText(tr("Automatic Import/Export"));
    FormParts::setLabelText(m_systemLabel, m_system, tr("HIS system file format"));
    setItems(m_system, {tr("None"), tr("GDT"), tr("GDT 3.0"), tr("XML")});
    FormParts::setLabelText(m_importModeLabel, m_importMode, tr("Import mode"));
    setItems(m_importMode, {tr("Insert"), tr("Update")});
    m_forceMatchDialog->setText(tr("Show dialogue if single matching person found"));
    m_identificationTitle->setText(tr("Person identification"));
    m_identificationLabel->setText(tr("Identification criteria"));
    FormParts::setLabelText(m_inputFileLabel, m_inputFile, tr("Input file"));
    FormParts::setLabelText(m_outputFileLabel, m_outputFile, tr("Output file"));
    FormParts::setLabelText(m_autoExportLabel, m_autoExport, tr("Export options"));
    setItems(m_autoExport, {tr("Autoexport"), tr("No autoexport"), tr("No Export")});
    FormParts::setLabelText(m_exportSessionLabel, m_exportSession, tr("Export Study Data"));
    setItems(m_exportSession, {tr("Current study"), tr("All studies")});
    m_proceed->setText(tr("Proceed into measurement automatically"));

    m_defaultsTitle->setText(tr("Default locations:"));
    FormParts::setLabelText(m_exportLocationLabel, m_exportLocation, tr("Export"));
    FormParts::setLabelText(m_importLocationLabel, m_importLocation, tr("Import"));
    FormParts::setLabelText(m_defaultFilterLabel, m_defaultFilter, tr("Default file format"));
    for (QPushButton *button :
         {m_browseInputFile, m_browseOutputFile, m_browseImportLocation, m_browseExportLocation})
        button->setText(tr("Browse..."));
}

void ImportExportSettings::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}

void ImportExportSettings::load()
{
    m_shownFormat = kNoFormat;
    m_inputFiles = overlayTexts(defaultInputFiles(), read(SettingsKeys::kHisInputFiles, defaultInputFiles()));
    m_outputFiles =
        overlayTexts(defaultOutputFiles(), read(SettingsKeys::kHisOutputFiles, defaultOutputFiles()));
    m_system->setCurrentIndex(readIndex(SettingsKeys::kHisSystem, NoSystem, HisSystemCount));
    m_importMode->setCurrentIndex(
        readIndex(SettingsKeys::kHisImportMode, kDefaultImportMode, kImportModeLimit));
    m_forceMatchDialog->setChecked(read(SettingsKeys::kHisForceMatchDialog, true).toBool());
    m_importKeys->setNumbers(readNumbers(read(SettingsKeys::kHisImportKeys, kDefaultImportKey)));
    handleHISSystemChanged(m_system->currentIndex());
    m_autoExport->setCurrentIndex(read(SettingsKeys::kHisAutoExportOption, 0).toInt());
    m_exportSession->setCurrentIndex(read(SettingsKeys::kHisExportSessionData, 0).toInt());
    m_proceed->setChecked(read(SettingsKeys::kHisProceedMeasurementAutomatically, true).toBool());
    const QString location = QLatin1String(kDefaultLocation);
    m_exportLocation->setText(read(SettingsKeys::kHisExportLocation, location).toString());
    m_importLocation->setText(read(SettingsKeys::kHisImportLocation, location).toString());
    m_defaultFilter->setCurrentIndex(-1);
    m_defaultFilter->setCurrentIndex(m_defaultFilter->findText(
        read(SettingsKeys::kHisDefaultFilter, QLatin1String(kDefaultFilter)).toString(), Qt::MatchExactly));
}

void ImportExportSettings::save()
{
    // What was typed counts even while the edit still has the focus.
    handleInputFileChanged();
    handleOutputFileChanged();

    write(SettingsKeys::kHisSystem, indexOf(m_system));
    write(SettingsKeys::kHisImportMode, indexOf(m_importMode));
    write(SettingsKeys::kHisForceMatchDialog, m_forceMatchDialog->isChecked());
    const QList<int> keys = m_importKeys->numbers();
    write(SettingsKeys::kHisImportKeys, keys.size() == 1 ? QVariant(keys.first()) : numbersToSetting(keys));
    write(SettingsKeys::kHisInputFiles, m_inputFiles);
    write(SettingsKeys::kHisOutputFiles, m_outputFiles);
    write(SettingsKeys::kHisAutoExportOption, indexOf(m_autoExport));
    write(SettingsKeys::kHisExportSessionData, indexOf(m_exportSession));
    write(SettingsKeys::kHisProceedMeasurementAutomatically, m_proceed->isChecked());
    write(SettingsKeys::kHisExportLocation, m_exportLocation->text());
    write(SettingsKeys::kHisImportLocation, m_importLocation->text());
    if (m_defaultFilter->currentIndex() >= 0)
        write(SettingsKeys::kHisDefaultFilter, m_defaultFilter->currentText());
}

void ImportExportSettings::handleHISSystemChanged(int index)
{
    rememberShownPaths();
    const bool exchanging = index != NoSystem;
    const QList<QWidget *> dependents = {m_inputFile,        m_browseInputFile, m_outputFile,
                                         m_browseOutputFile, m_importModeLabel, m_importMode,
                                         m_forceMatchDialog, m_importKeys,      m_autoExport};
    for (QWidget *dependent : dependents)
        dependent->setEnabled(exchanging);
    if (index < 0)
        return;
    m_shownFormat = index;
    m_inputFile->setText(m_inputFiles.value(index));
    m_outputFile->setText(m_outputFiles.value(index));
}

/// What was dropped on an edit or came from assistive technology ends no editing.
void ImportExportSettings::rememberShownPaths()
{
    rememberPath(m_inputFiles, m_shownFormat, m_inputFile);
    rememberPath(m_outputFiles, m_shownFormat, m_outputFile);
}

void ImportExportSettings::handleInputFileChanged()
{
    rememberPath(m_inputFiles, m_system->currentIndex(), m_inputFile);
}

void ImportExportSettings::handleOutputFileChanged()
{
    rememberPath(m_outputFiles, m_system->currentIndex(), m_outputFile);
}

void ImportExportSettings::handleBrowseInputFile()
{
    if (browseFile(tr("Input file"), m_inputFile))
        handleInputFileChanged();
}

void ImportExportSettings::handleBrowseOutputFile()
{
    if (browseFile(tr("Output file"), m_outputFile))
        handleOutputFileChanged();
}

void ImportExportSettings::handleBrowseDefaultImportLocation()
{
    browseDirectory(tr("Select default import location"), m_importLocation);
}

void ImportExportSettings::handleBrowseDefaultExportLocation()
{
    browseDirectory(tr("Select default export location"), m_exportLocation);
}

bool ImportExportSettings::browseFile(const QString &title, QLineEdit *edit)
{
    const int system = m_system->currentIndex();
    QFileDialog dialog(this, title);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(system == Gdt || system == Gdt30 ? tr("GDT File (*.gdt);;Any file (*.*)")
                                                          : tr("XML File (*.xml);;Any file (*.*)"));
    return FormParts::chooseFile(dialog, edit);
}

void ImportExportSettings::browseDirectory(const QString &title, QLineEdit *edit)
{
    QFileDialog dialog(this, title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    FormParts::chooseFile(dialog, edit);
}
