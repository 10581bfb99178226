#ifndef IMPORTEXPORTSETTINGS_H
#define IMPORTEXPORTSETTINGS_H

#include <QStringList>
#include <QWidget>

class IdentificationBoxes;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// How the measurement applications exchange persons and studies with a hospital information system, and
/// where the files of the exchange lie. Stands inside the General page.
class ImportExportSettings : public QWidget
{
    Q_OBJECT

public:
    explicit ImportExportSettings(QWidget *parent);

    /// Fills the widgets from the working settings.
    void load();
    /// Writes the widgets to the working settings.
    void save();

public slots:
    /// Enables what depends on the exchange and shows the paths of the format; "None" is index 0.
    void handleHISSystemChanged(int index);
    void handleInputFileChanged();
    void handleOutputFileChanged();
    void handleBrowseInputFile();
    void handleBrowseOutputFile();
    void handleBrowseDefaultImportLocation();
    void handleBrowseDefaultExportLocation();

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildExchange(QBoxLayout *layout);
    void buildDefaults(QBoxLayout *layout);
    void connectWidgets();
    void updateTexts();
    void rememberShownPaths();
    bool browseFile(const QString &title, QLineEdit *edit);
    void browseDirectory(const QString &title, QLineEdit *edit);

    QLabel *m_exchangeTitle;
    QLabel *m_systemLabel;
    QComboBox *m_system;
    QLabel *m_importModeLabel;
    QComboBox *m_importMode;
    QCheckBox *m_forceMatchDialog;
    QLabel *m_identificationTitle;
    QLabel *m_identificationLabel;
    IdentificationBoxes *m_importKeys;
    QLabel *m_inputFileLabel;
    QLineEdit *m_inputFile;
    QPushButton *m_browseInputFile;
    QLabel *m_outputFileLabel;
    QLineEdit *m_outputFile;
    QPushButton *m_browseOutputFile;
    QLabel *m_autoExportLabel;
    QComboBox *m_autoExport;
    QLabel *m_exportSessionLabel;
    QComboBox *m_exportSession;
    QCheckBox *m_proceed;
    QLabel *m_defaultsTitle;
    QLabel *m_importLocationLabel;
    QLineEdit *m_importLocation;
    QPushButton *m_browseImportLocation;
    QLabel *m_exportLocationLabel;
    QLineEdit *m_exportLocation;
    QPushButton *m_browseExportLocation;
    QLabel *m_defaultFilterLabel;
    QComboBox *m_defaultFilter;

    QStringList m_inputFiles;   ///< one path a format, at the format's index
    QStringList m_outputFiles;  ///< the same
    int m_shownFormat;          ///< whose paths the edits show; -1 for none
};

#endif
