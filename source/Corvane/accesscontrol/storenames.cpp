#include "Corvane/accesscontrol/storenames.h"

#include <QRandomGenerator>

#include <limits>

QString deletedSuffix()
{
    const int number = QRandomGenerator::system()->bounded(std::numeric_limits<int>::max());
    return QStringLiteral("_deleted") + QString::number(number);
}
