#include "Corvane/settings/studyentries.h"

namespace {

constexpr QChar kEntrySeparator = u'=';
constexpr QChar kItemSeparator = u',';

const QString kHiddenKind = QStringLiteral("hidden");
const QString kDefaultKind = QStringLiteral("default");
constexpr int kKindPart = 1;
constexpr int kContentPart = 2;
constexpr int kPiecesOfNamedSet = 2;

bool belongsTo(const QString &entry, const QString &application)
{
    return entry == application || entry.startsWith(application + kEntrySeparator);
}

QString joined(const QStringList &parts)
{
    return parts.join(kEntrySeparator);
}

QStringList idsOf(const QString &items)
{
    QStringList ids;
    const QStringList parts = items.split(kItemSeparator);
    for (const QString &part : parts)
        ids.append(part.section(kEntrySeparator, 0, 0));
    return ids;
}

}  // namespace

QStringList StudyEntries::fields(const QStringList &entries, const QString &application)
{
    for (const QString &entry : entries) {
        if (belongsTo(entry, application))
            return entry.mid(application.size() + 1).split(kItemSeparator);
    }
    return {};
}

QStringList StudyEntries::withFields(const QStringList &entries, const QString &application,
                                     const QStringList &fields)
{
    // At the place of the old one, so that saving what was read is no change.
    const QString replacement = joined({application, fields.join(kItemSeparator)});
    QStringList result;
    bool isReplaced = false;
    for (const QString &entry : entries) {
        if (!belongsTo(entry, application)) {
            result.append(entry);
        } else if (!isReplaced) {
            result.append(replacement);
            isReplaced = true;
        }
    }
    if (!isReplaced)
        result.append(replacement);
    return result;
}

StudyEntries::ReferenceChoice StudyEntries::referenceChoice(const QStringList &entries,
                                                            const QString &application)
{
    ReferenceChoice choice;
    for (const QString &entry : entries) {
        const QStringList parts = entry.split(kEntrySeparator);
        if (parts.size() <= kContentPart || parts.constFirst().isEmpty() || parts.constFirst() != application)
            continue;
        if (parts.at(kKindPart) == kHiddenKind)
            choice.hidden = idsOf(joined(parts.mid(kContentPart)));
        else if (parts.at(kKindPart) == kDefaultKind)
            choice.preset = parts.at(kContentPart);
    }
    return choice;
}

QStringList StudyEntries::withReferenceChoice(const QStringList &entries, const QString &application,
                                              const ReferenceChoice &choice,
                                              const QMap<QString, QString> &names)
{
    QStringList result;
    for (const QString &entry : entries) {
        if (!entry.contains(application))
            result.append(entry);
    }
    QStringList hidden;
    for (const QString &id : choice.hidden)
        hidden.append(joined({id, names.value(id)}));
    if (!hidden.isEmpty())
        result.append(joined({application, kHiddenKind, hidden.join(kItemSeparator)}));
    if (!choice.preset.isEmpty())
        result.append(joined({application, kDefaultKind, choice.preset, names.value(choice.preset)}));
    return result;
}

std::optional<QMap<QString, QString>> StudyEntries::namedReferenceSets(const QVariant &value)
{
    const QString text = value.toStringList().join(kItemSeparator);
    const QStringList parts = text.split(kItemSeparator, Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return std::nullopt;
    QMap<QString, QString> names;
    for (const QString &part : parts) {
        const QStringList pieces = part.split(kEntrySeparator, Qt::SkipEmptyParts);
        if (pieces.size() == kPiecesOfNamedSet)
            names.insert(pieces.constFirst(), pieces.constLast());
    }
    return names;
}
