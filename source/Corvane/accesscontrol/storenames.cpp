#include "Corvane/accesscontrol/storenames.h"

#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>

#include <limits>

QString deletedSuffix()
{
    const int number = QRandomGenerator::system()->bounded(std::numeric_limits<int>::max());
    return QStringLiteral("_deleted") + QString::number(number);
}

bool isReadToTheEnd(const QSqlQuery &query)
{
    return query.lastError().type() == QSqlError::NoError;
}
