#ifndef STORENAMES_H
#define STORENAMES_H

#include <QString>

// Names that the stores of the access tables have in common.

constexpr char kStoreKey[] = "access.supportdb";
constexpr char kProgram[] = "Corvane";

/// "_deleted" and a random number: what frees the name of a deleted row.
QString deletedSuffix();

#endif
