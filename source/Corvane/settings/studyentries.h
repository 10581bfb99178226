#ifndef STUDYENTRIES_H
#define STUDYENTRIES_H

#include <QMap>
#include <QStringList>
#include <QVariant>

#include <optional>

/// The lists of texts in which the settings hold what belongs to the suite's study applications. An entry is
/// an application's id, "=" and its content; a malformed entry is passed over when a list is read and stays
/// in it when an application's entry is replaced.
namespace StudyEntries {

/// Which spirometry reference sets an application hides, and which it begins with.
struct ReferenceChoice
{
    QStringList hidden;  ///< ids, in stored order
    QString preset;      ///< the default set's id; empty for none
};

/// The fields of an application's entry: its content, split at ",", empty ones kept. Empty when there is
/// none.
QStringList fields(const QStringList &entries, const QString &application);

/// The list with an application's entry replaced by one of these fields, or with that entry at its end.
QStringList withFields(const QStringList &entries, const QString &application, const QStringList &fields);

/// Reads "<id>=hidden=<set>=<name>,..." and "<id>=default=<set>=<name>". Of several of a kind the last one
/// counts.
ReferenceChoice referenceChoice(const QStringList &entries, const QString &application);

/// The list without any entry that has the application's id anywhere in it, and with a choice's entries at
/// its end. What is not chosen has no entry.
///
/// \param names  of the reference sets, by id
QStringList withReferenceChoice(const QStringList &entries, const QString &application,
                                const ReferenceChoice &choice, const QMap<QString, QString> &names);

/// The reference sets that a measurement plug-in names as "<id>=<name>,...", by id. A part that has not
/// exactly these two pieces is passed over.
///
/// \param value  as an ini file gives it: one text, or a list where the text has commas and no quotes
/// \return       nothing when the value names none, not even malformed ones: the built-in sets are in force
/// then
std::optional<QMap<QString, QString>> namedReferenceSets(const QVariant &value);

}  // namespace StudyEntries

#endif
