#include "Corvane/settings/studyentries.h"

#include <cstddef>
#include <cstdint>

namespace {

void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

void checkFields(const QStringList &entries, const QString &application)
{
    const QStringList fields = StudyEntries::fields(entries, application);
    const QStringList replaced = StudyEntries::withFields(entries, application, fields);
    require(StudyEntries::withFields(replaced, application, fields) == replaced);
    require(fields.isEmpty() || StudyEntries::fields(replaced, application) == fields);
}

void checkReferenceSets(const QStringList &entries, const QString &application,
                        const QMap<QString, QString> &names)
{
    const StudyEntries::ReferenceChoice choice = StudyEntries::referenceChoice(entries, application);
    const QStringList written = StudyEntries::withReferenceChoice(entries, application, choice, names);
    const StudyEntries::ReferenceChoice again = StudyEntries::referenceChoice(written, application);
    require(again.hidden == choice.hidden && again.preset == choice.preset);
}

}  // namespace

/// An entry a line; the first line is the value of a measurement plug-in's own reference sets.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QStringList entries = text.split(QLatin1Char('\n'));
    const QString own = entries.takeFirst();
    const auto names = StudyEntries::namedReferenceSets(own);
    require(names.has_value() == StudyEntries::namedReferenceSets(own.split(QLatin1Char(','))).has_value());
    for (const QString &application :
         {QStringLiteral("Ruvenka"), QStringLiteral("exe-id"), QStringLiteral("a=b")})
        checkFields(entries, application);
    checkReferenceSets(entries, QStringLiteral("Ruvenka"), names.value_or(QMap<QString, QString>()));
    return 0;
}
