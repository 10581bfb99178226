#include "Corvane/views/translationfiles.h"

#include "ZephanShared/toolkit/nativepath.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

namespace {

const auto kPrefix = QLatin1String("Corvane_");
const auto kSuffix = QLatin1String(".qm");

}  // namespace

QString TranslationFiles::directory()
{
    return nativePath(QCoreApplication::applicationDirPath() + QStringLiteral("/translations"));
}

QStringList TranslationFiles::codes()
{
    const QStringList filter(kPrefix + QLatin1Char('*') + kSuffix);
    QStringList codes;
    for (const QString &name : QDir(directory()).entryList(filter, QDir::Files, QDir::Name))
        codes.append(name.chopped(kSuffix.size()).mid(kPrefix.size()));
    return codes;
}

bool TranslationFiles::load(QTranslator &translator, const QString &code)
{
    return translator.load(kPrefix + code, directory());
}
