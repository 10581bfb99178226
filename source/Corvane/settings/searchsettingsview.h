#ifndef SEARCHSETTINGSVIEW_H
#define SEARCHSETTINGSVIEW_H

#include "ZephanShared/widgets/baseview.h"

#include <QMap>
#include <QStringList>
#include <QVector>

class PersonFieldBoxes;
class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;

/// The Search page: from how many characters on the measurement applications search for persons, which fields
/// they search, and which four fields a search result shows.
class SearchSettingsView : public BaseView
{
    Q_OBJECT

public:
    explicit SearchSettingsView(QWidget *parent = nullptr);

    void updateTexts() override;

public slots:
    /// Offers these custom fields for the result and for searching. When none of what was searched is left,
    /// all parameters are searched, as where nothing is stored.
    void personCustomFieldsChanged(QStringList customfields);
    /// Fills the widgets from the working settings.
    void reloadSettings();
    /// Writes the widgets to the working settings.
    void saveSettings();
    /// Counts the checked parameters; the last checked one can't be unchecked.
    void monitorSearchParamChecks(bool checked);
    /// Lays the result's boxes out as the result will look: in a single row or in two.
    void toggleSearchResultsFieldsRows(bool single);

private:
    void buildGeneral(QBoxLayout *layout);
    void buildResult(QBoxLayout *layout);
    void buildParameters(QBoxLayout *layout);
    QGroupBox *addGroup(QBoxLayout *layout);
    QCheckBox *makeParameter(const QString &name);

    void reloadParameters();
    void saveParameters();
    void setCustomBoxes(const QStringList &names);
    void checkStoredCustomBoxes();
    void checkAllParameters();
    void countChecks();
    QStringList checkedCustomNames() const;

    QLabel *m_minimumLabel;
    QLineEdit *m_minimum;
    QCheckBox *m_singleLine;
    QGroupBox *m_resultGroup;
    PersonFieldBoxes *m_result;
    QGridLayout *m_resultGrid;
    QGroupBox *m_parametersGroup;
    QMap<int, QCheckBox *> m_parameters;  ///< by `SearchModelData::SearchKey`, which is also their order
    QLabel *m_customLabel;
    QGridLayout *m_customGrid;
    QStringList m_customNames;
    QVector<QCheckBox *> m_customBoxes;  ///< one a custom name
    int m_checkedCount = 0;              ///< of the parameters, standard and custom together
};

#endif
