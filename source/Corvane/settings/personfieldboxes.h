#ifndef PERSONFIELDBOXES_H
#define PERSONFIELDBOXES_H

#include <QObject>
#include <QStringList>
#include <QVector>

class QComboBox;
class QStringListModel;
class QWidget;

/// Four combo boxes that each choose a person field to show: the standard fields, "(empty)", then the custom
/// fields. They share their items.
class PersonFieldBoxes : public QObject
{
    Q_OBJECT

public:
    static constexpr int kCount = 4;

    /// \param name  the boxes' object name; a number from 1 follows it
    PersonFieldBoxes(const QString &name, QWidget *parent);

    const QVector<QComboBox *> &boxes() const
    {
        return m_boxes;
    }

    /// Sets the standard items' texts, and the boxes' accessible names: a number follows `name`.
    void updateTexts(const QString &name);

    /// Offers these custom fields. A box keeps the field that it shows as long as one of this name is there,
    /// and goes to "(empty)" otherwise.
    void setCustomNames(const QStringList &names);
    /// Takes one custom field away; the boxes that show it go to "(empty)".
    void removeCustomName(int position);
    const QStringList &customNames() const
    {
        return m_customNames;
    }

    /// What the boxes show, in the stored form.
    QStringList entries() const;
    /// Sets the boxes to what is stored; a box without an entry goes to "(empty)".
    ///
    /// \param indexOf  gives an entry's index among the items
    void setEntries(const QStringList &entries,
                    int (*indexOf)(const QString &entry, const QStringList &customNames));

private:
    QStringList m_customNames;
    QStringListModel *m_items;
    QVector<QComboBox *> m_boxes;
};

#endif
