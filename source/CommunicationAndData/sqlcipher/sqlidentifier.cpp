#include "CommunicationAndData/sqlcipher/sqlidentifier.h"

#include <QStringList>

namespace {

/// The character that ends a delimited name, or a null character where \p opening begins none.
QChar closingDelimiter(QChar opening)
{
    if (opening == QLatin1Char('['))
        return QLatin1Char(']');
    return opening == QLatin1Char('"') || opening == QLatin1Char('`') ? opening : QChar();
}

/// The position after the delimited name that begins at \p begin, or -1 where none does or it has no end.
/// A quote that is doubled belongs to the name; brackets know no doubling.
int endOfDelimited(const QString &name, int begin)
{
    const QChar closing = begin < name.size() ? closingDelimiter(name.at(begin)) : QChar();
    if (closing.isNull())
        return -1;
    const bool doubles = closing != QLatin1Char(']');
    for (int i = begin + 1; i < name.size(); ++i) {
        if (name.at(i) != closing)
            continue;
        if (!doubles || i + 1 == name.size() || name.at(i + 1) != closing)
            return i + 1;
        ++i;
    }
    return -1;
}

QString withoutDelimiters(const QString &part)
{
    if (!isDelimitedIdentifier(part))
        return part;
    QString name = part.mid(1, part.size() - 2);
    const QChar closing = part.back();
    if (closing != QLatin1Char(']'))
        name.replace(QString(2, closing), QString(closing));
    return name;
}

QStringList dottedParts(const QString &name)
{
    QStringList parts;
    int begin = 0;
    for (int i = 0; i < name.size();) {
        const int end = endOfDelimited(name, i);
        if (end > 0) {
            i = end;
        } else if (name.at(i) == QLatin1Char('.')) {
            parts.append(name.mid(begin, i - begin));
            begin = ++i;
        } else {
            ++i;
        }
    }
    parts.append(name.mid(begin));
    return parts;
}

}  // namespace

bool isDelimitedIdentifier(const QString &name)
{
    return name.size() > 2 && endOfDelimited(name, 0) == name.size();
}

QString strippedIdentifier(const QString &name)
{
    QStringList parts = dottedParts(name);
    for (QString &part : parts)
        part = withoutDelimiters(part);
    return parts.join(QLatin1Char('.'));
}

QString quotedIdentifier(const QString &name)
{
    if (name.isEmpty() || isDelimitedIdentifier(name))
        return name;
    QString inner = name;
    inner.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

QualifiedName splitTableName(const QString &name)
{
    const QStringList parts = dottedParts(name);
    if (parts.size() != 2)
        return {QString(), withoutDelimiters(name)};
    return {withoutDelimiters(parts.first()), withoutDelimiters(parts.last())};
}
