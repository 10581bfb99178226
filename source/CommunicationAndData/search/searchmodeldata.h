#ifndef SEARCHMODELDATA_H
#define SEARCHMODELDATA_H

#include "CommunicationAndData/search/personmodeldata.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QList>
#include <QMap>
#include <QObject>

/// One search for persons: what is looked for, and afterwards who was found.
///
/// Whoever serves searches reads the parameters, hands in the persons and so makes the model tell its
/// listener.
class SearchModelData : public QObject
{
    Q_OBJECT

public:
    /// What a person is searched by. The numbers are stored in settings.
    enum SearchKey {
        SearchEverything = 0,
        ShowDeleted = 1,
        FirstName = 2,
        MiddleName = 3,
        LastName = 4,
        Birthdate = 5,
        PersonalId = 6,
        PersonCode = 7,
        Gender = 8,
        EthnicGroup = 9,
        CustomFields = 11
    };

    explicit SearchModelData(QObject *parent = nullptr);

    void setSearchMaxAmount(int amount);
    /// At most this many persons are wanted; 0 for no limit.
    int searchMaxAmount() const;
    void addSearchParameter(int key, const QString &text);
    QMap<int, QString> searchParameters() const;
    void setPersonSearchOrder(int key);
    int personSearchOrder() const;

    QList<PersonModel> personSearchResults() const;
    /// Hands in the outcome; `searchResultsUpdated` follows at once.
    void setPersonSearchResults(ZephanError error, const QList<PersonModel> &persons);

signals:
    void searchResultsUpdated(ZephanError errorCode);

private:
    int m_maxAmount = 0;
    int m_order = SearchEverything;
    QMap<int, QString> m_parameters;
    QList<PersonModel> m_persons;
};

using SearchModel = QSharedPointer<SearchModelData>;
Q_DECLARE_METATYPE(SearchModel)

#endif
