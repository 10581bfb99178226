#ifndef SQLIDENTIFIER_H
#define SQLIDENTIFIER_H

#include <QString>

/// Names of tables and columns as SQLite writes them: "name", [name] or `name`, with a schema before a dot.

/// Whether the whole name stands in one pair of delimiters.
bool isDelimitedIdentifier(const QString &name);
/// The name without delimiters and with doubled ones made single. In a name of several parts every part is
/// stripped, and the dots between them stay.
QString strippedIdentifier(const QString &name);
/// The name between double quotes, its own quotes doubled; unchanged where empty or delimited already.
QString quotedIdentifier(const QString &name);

/// A table's name, split at the dot between its schema and itself; neither has delimiters any more.
struct QualifiedName
{
    QString schema;  ///< empty when none was given
    QString table;
};
QualifiedName splitTableName(const QString &name);

#endif
