#ifndef REFERENCESETS_H
#define REFERENCESETS_H

#include <QVector>

/// The application that the reference sets belong to, installed as a plug-in or not.
constexpr char kSpirometryApplication[] = "Ruvenka";

/// A set of spirometry reference values that the measurement application offers.
struct ReferenceSet
{
    const char *id;           ///< a number as text, may be negative
    const char *name;         ///< source text in the context of `QObject`
    const char *description;  ///< the same
};

/// The sets that a site has unless its measurement plug-in names others, in the order of the measurement
/// application.
const QVector<ReferenceSet> &builtInReferenceSets();

#endif
