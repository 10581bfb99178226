#ifndef FIELDSETTINGSVIEW_H
#define FIELDSETTINGSVIEW_H

#include "Corvane/settings/customfields.h"
#include "ZephanShared/widgets/baseview.h"

#include <QMap>
#include <QStringList>
#include <QVector>

class AbstractApplication;
class CustomPersonField;
class PersonFieldBoxes;
class QBoxLayout;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

/// The Person fields page: which standard person fields are mandatory, visible or hidden in the measurement
/// applications, the site's own person fields, the four fields of a person's summary, and the order of the
/// parts of a full name.
class FieldSettingsView : public BaseView
{
    Q_OBJECT

public:
    explicit FieldSettingsView(QWidget *parent = nullptr);
    ~FieldSettingsView() override;

    /// Fills the widgets from the working settings.
    void reloadSettings();
    /// Writes the widgets to the working settings.
    void saveSettings();

    void updateTexts() override;

signals:
    /// The names of the custom fields in their order, whenever they were read from the settings. Adding,
    /// moving or removing a row says nothing yet: a new row does when its name is left.
    void personCustomFieldsUpdated(QStringList customfields);

public slots:
    /// Puts a row into the page, which owns it then. A row without a number gets the next one, and one
    /// without a name is a "New field".
    ///
    /// \param field  a new row is made where it is null
    void addCustomField(CustomPersonField *field = nullptr);
    /// Takes out the rows that are to be removed, or all of them.
    void cleanAddedFields(bool clear = false);
    /// Writes the custom fields, reads them again, and offers them in the summary and to the search page.
    void refreshCustomFieldsInBoxes();
    /// Carries out what the rows ask for.
    void handleCustomFieldChange();

private:
    void loadApplications();
    QWidget *buildStandard(QWidget *parent);
    void buildStandardRow(QGridLayout *grid, int number);
    QWidget *buildChoices(QWidget *parent);
    void buildSummary(QBoxLayout *layout);
    void buildNameOrder(QBoxLayout *layout);
    void buildCustomFields(QBoxLayout *layout);

    void updateRequiredBy();

    void readCustomRows();
    void readMasks();
    void readNameOrder();
    void readSummary();
    void takeTypedNames();
    void saveCustomFields();
    void saveMasks();

    void insertRow(CustomPersonField *row);
    void buildRow(CustomPersonField *row);
    void buildAround(const CustomPersonField *row);
    void placeInTabOrder(CustomPersonField *row);
    /// The keyboard goes on in the row after one that is to be removed, or else before it.
    void passFocusOn(const CustomPersonField *row);
    void removeRow(CustomPersonField *row);
    void moveRow(CustomPersonField *row, int step);
    void bringIntoSight(CustomPersonField *row);
    int positionOf(int id) const;
    QStringList customNames() const;
    void offerCustomFields();

    QMap<QString, AbstractApplication *> m_applications;  ///< of the study plug-ins, not owned

    QScrollArea *m_pageArea;
    QLabel *m_pageTitle;
    QLabel *m_standardTitle;
    QLabel *m_requiredTitle;
    QMap<int, QLabel *> m_fieldLabels;  ///< by the field's number, as the next two
    QMap<int, QComboBox *> m_fieldStates;
    QMap<int, QLabel *> m_requiredBy;

    QLabel *m_summaryTitle;
    PersonFieldBoxes *m_summary;
    QLabel *m_orderTitle;
    QVector<QComboBox *> m_nameOrder;

    QLabel *m_customTitle;
    QPushButton *m_addButton;
    QScrollArea *m_customArea;
    QVBoxLayout *m_customLayout;
    QMap<int, CustomPersonField *> m_rows;  ///< by the field's number
};

#endif
