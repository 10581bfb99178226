#ifndef PERSONBROWSERSETTINGSVIEW_H
#define PERSONBROWSERSETTINGSVIEW_H

#include "ZephanShared/widgets/baseview.h"

#include <QMap>
#include <QVector>

class ImportExportSettings;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class SelectionPopup;

/// The General page: language, date and time format, units, window size, notification messages, and which
/// personal ID systems and ethnic groups the measurement applications' person forms offer.
class PersonBrowserSettingsView : public BaseView
{
    Q_OBJECT

public:
    /// \param dataPath  the data directory with its trailing separator; its `language.ini` may name the
    /// languages
    explicit PersonBrowserSettingsView(QString dataPath, QWidget *parent = nullptr);

    /// Fills the widgets from the working settings.
    void reloadSettings();
    /// Writes the widgets to the working settings.
    void saveSettings();

    void updateTexts() override;

public slots:
    /// The default personal ID system is always a used one.
    void handleIdSystemChange(int index);
    void handleIdChecked(bool checked);
    void handleSelectedEthnicsChange();
    void showOrHideListWidget();

private:
    QWidget *buildApplication(QWidget *parent);
    void buildGeneral(QBoxLayout *layout);
    void buildIdSystems(QBoxLayout *layout);
    void buildEthnicGroups(QBoxLayout *layout);
    QWidget *buildExchange(QWidget *parent);
    void updateGeneralTexts();
    void updatePersonTexts();
    void fillLanguages();
    QMap<QString, QString> offeredLanguages() const;

    void reloadGeneral();
    void reloadIdSystems();
    void reloadEthnicGroups();
    void saveGeneral();
    void saveIdSystems();
    void saveEthnicGroups();

    QString m_dataPath;

    QLabel *m_applicationTitle;
    QCheckBox *m_settingsUpdating;
    QLabel *m_languageLabel;
    QComboBox *m_language;
    QLabel *m_dateFormatLabel;
    QComboBox *m_dateFormat;
    QCheckBox *m_timeAmPm;
    QLabel *m_unitsLabel;
    QComboBox *m_units;
    QLabel *m_sizeLabel;
    QComboBox *m_size;
    QCheckBox *m_statusbar;
    QCheckBox *m_prefillStudy;

    QLabel *m_idSystemsTitle;
    QLabel *m_usedSystemsLabel;
    QMap<int, QCheckBox *> m_idSystemBoxes;  ///< by the system's number
    QLabel *m_defaultIdSystemLabel;
    QComboBox *m_defaultIdSystem;

    QLabel *m_ethnicGroupsTitle;
    QLabel *m_shownEthnicsLabel;
    QPushButton *m_ethnicsButton;
    SelectionPopup *m_ethnics;
    QLabel *m_defaultEthnicLabel;
    QComboBox *m_defaultEthnic;

    QLabel *m_exchangeTitle;
    ImportExportSettings *m_exchange;
};

#endif
