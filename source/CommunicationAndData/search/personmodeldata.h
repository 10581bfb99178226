#ifndef PERSONMODELDATA_H
#define PERSONMODELDATA_H

#include <QDate>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// What a person search tells of one person.
struct PersonModelData
{
    QString firstName;
    QString middleName;
    QString lastName;
    QString personalId;
    QString personCode;
    QDate birthDate;
    int gender = 0;       ///< 1 male, 2 female, others undefined
    int ethnicGroup = 0;  ///< 0 to 15, 0 for no information

    /// The person's text for a key of `SearchModelData::SearchKey` that stands for text; empty for the
    /// others.
    QString text(int searchKey) const;

    /// The parts of the name in the order of a list of standard field numbers, 1 first, 2 middle and 3 last
    /// name. Other numbers and empty parts are passed over, the rest is joined by one blank.
    QString name(const QList<int> &fieldOrder) const;
};

using PersonModel = QSharedPointer<PersonModelData>;
Q_DECLARE_METATYPE(PersonModel)

#endif
