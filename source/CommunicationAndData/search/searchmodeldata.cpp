#include "CommunicationAndData/search/searchmodeldata.h"

SearchModelData::SearchModelData(QObject *parent)
    : QObject(parent)
{}

void SearchModelData::setSearchMaxAmount(int amount)
{
    m_maxAmount = amount;
}

int SearchModelData::searchMaxAmount() const
{
    return m_maxAmount;
}

void SearchModelData::addSearchParameter(int key, const QString &text)
{
    m_parameters.insert(key, text);
}

QMap<int, QString> SearchModelData::searchParameters() const
{
    return m_parameters;
}

void SearchModelData::setPersonSearchOrder(int key)
{
    m_order = key;
}

int SearchModelData::personSearchOrder() const
{
    return m_order;
}

QList<PersonModel> SearchModelData::personSearchResults() const
{
    return m_persons;
}

void SearchModelData::setPersonSearchResults(ZephanError error, const QList<PersonModel> &persons)
{
    m_persons = persons;
    emit searchResultsUpdated(error);
}
