#ifndef STORENAMES_H
#define STORENAMES_H

#include <QString>

class QSqlQuery;

// What the stores of the access tables have in common.

constexpr char kStoreKey[] = "access.supportdb";
constexpr char kProgram[] = "Corvane";

/// "_deleted" and a random number: what frees the name of a deleted row.
QString deletedSuffix();

/// Whether the rows ended because there are no more; a connection may be lost between two of them.
bool isReadToTheEnd(const QSqlQuery &query);

#endif
