#include "Corvane/views/versiontext.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr qint64 kVersionBytes = 10;  // with the zero byte that the device ends a line with
constexpr int kMaximumParts = 3;

const auto kZero = QLatin1String("0");

/// A part of a version, or "0" where it is no such thing.
QString versionPart(const QString &text)
{
    static const QRegularExpression number(
        QRegularExpression::anchoredPattern(QStringLiteral("\\d{1,2}(p\\d{1,2})?")));
    return number.match(text).hasMatch() ? text : kZero;
}

}  // namespace

QString readVersionLine(const QString &path)
{
    QFile file(path);
    if (!file.exists() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    return QString::fromUtf8(file.readLine(kVersionBytes));
}

QString formatVersion(const QString &text)
{
    if (text.isEmpty())
        return QString();
    QStringList left = text.split(QLatin1Char('.'));
    QStringList shown;
    while (!left.isEmpty() && shown.size() < kMaximumParts) {
        shown.append(versionPart(left.takeFirst()));
        const bool zeroEnds = left.size() == 1 && shown.last() == kZero && versionPart(left.first()) == kZero;
        if (zeroEnds)
            break;
    }
    return shown.join(QLatin1Char('.'));
}

bool isPreRelease(const QString &formattedVersion)
{
    return formattedVersion.contains(QLatin1Char('p'));
}
