#ifndef IDENTIFICATIONBOXES_H
#define IDENTIFICATIONBOXES_H

#include <QList>
#include <QVector>
#include <QWidget>

class QCheckBox;

/// The eight check boxes of the person fields by which two persons are taken for the same one.
///
/// In the settings the fields are the numbers of `SearchModelData::SearchKey`, always in the order of the
/// boxes.
class IdentificationBoxes : public QWidget
{
    Q_OBJECT

public:
    /// \param columns  columns of the grid in which the boxes stand
    IdentificationBoxes(int columns, QWidget *parent);

    void updateTexts();

    /// Checks the boxes of these numbers and unchecks the others. A number without a box is ignored. The
    /// boxes signal nothing.
    void setNumbers(const QList<int> &numbers);
    /// The numbers of the checked boxes in the order of the boxes.
    QList<int> numbers() const;
    bool isAnyChecked() const;

    const QVector<QCheckBox *> &boxes() const
    {
        return m_boxes;
    }

protected:
    void changeEvent(QEvent *event) override;

private:
    QVector<QCheckBox *> m_boxes;
};

#endif
