#ifndef STUDYSETTINGSVIEW_H
#define STUDYSETTINGSVIEW_H

#include "Corvane/settings/studyentries.h"
#include "ZephanShared/toolkit/abstractapplicationfactory.h"
#include "ZephanShared/widgets/baseview.h"

#include <QList>
#include <QMap>
#include <QString>

#include <optional>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class SelectionPopup;

/// The Study fields page: for each study application of the suite the columns of its study list and the field
/// editors that are hidden, and for the spirometry application the reference sets that are hidden and the one
/// it begins with.
///
/// The applications and their fields come from the study plug-ins of this workstation. Without any the page
/// shows the reference sets alone.
class StudySettingsView : public BaseView
{
    Q_OBJECT

public:
    /// Loads the plug-ins. What fails is reported by `logError` from the event loop, when there can be
    /// somebody who listens.
    ///
    /// \param dataPath  the data directory with its trailing separator
    explicit StudySettingsView(const QString &dataPath, QWidget *parent = nullptr);

public slots:
    void updateTexts() override;
    /// Fills the widgets from the working settings.
    void reloadSettings();
    /// Writes the widgets to the working settings.
    void saveSettings();
    /// Shows another application's fields.
    ///
    /// \param index  in the box of applications
    /// \param save   whether the fields shown before are written first
    void resetStudyFields(int index, bool save = true);
    void showOrHideListWidget();
    /// A hidden set is no longer the default one.
    void handleSelectedRefsetChange();
    /// The default set is no longer hidden.
    void handleSelectedDefaultRefsetChange(int index);

private:
    void loadApplications(const QString &dataPath);
    void fillReferenceSets();
    void select(const StudyEntries::ReferenceChoice &choice);

    void buildHead(QBoxLayout *layout);
    void fillApplications();
    QWidget *buildReferenceSets(QWidget *parent);
    QWidget *buildFields(QWidget *parent);

    /// The current application; null without a plug-in, which spirometry can do without.
    AbstractApplication *application() const;
    QString applicationText(const QString &id) const;
    void clearFields();
    void showFields();
    void addFieldBox(const QString &id, const QString &text);
    void updateFieldTexts();
    /// The field whose check box the keyboard is at; empty when it is elsewhere.
    QString focusedField() const;
    void focusField(const QString &id);

    void readReferenceChoice();
    void writeReferenceChoice();
    void readListFields();
    void writeListFields();
    void readHiddenFields();
    void writeHiddenFields();

    QMap<QString, AbstractApplication *> m_applications;  ///< by id; of the plug-ins
    QString m_application;                                ///< id of the current one; empty when there is none
    QMap<QString, QString> m_referenceSetNames;           ///< by id
    QMap<QString, QString> m_referenceSetDescriptions;
    std::optional<QMap<QString, QString>> m_namedReferenceSets;  ///< the measurement plug-in's own, if any

    QLabel *m_applicationLabel;
    QComboBox *m_applicationBox;
    QLabel *m_noPluginsLabel;
    QWidget *m_referenceSection;
    QLabel *m_hiddenSetsLabel;
    QPushButton *m_hiddenSetsButton;
    SelectionPopup *m_hiddenSets;
    QLabel *m_defaultSetLabel;
    QComboBox *m_defaultSet;
    QWidget *m_fieldsSection = nullptr;  ///< null without plug-ins
    QLabel *m_listFieldsLabel = nullptr;
    QList<QComboBox *> m_listFields;
    QLabel *m_hiddenFieldsLabel = nullptr;
    QGridLayout *m_fieldBoxGrid = nullptr;
    QMap<QString, QCheckBox *> m_fieldBoxes;  ///< by field id, of the current application
};

#endif
