// Connection parameters as people type them: the text that goes to logs shows no password among them.

#include "CommunicationAndData/settings/odbcconnection.h"

#include <QStringList>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString line = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    OdbcConnection::withoutSecrets(line);

    QVariantMap parameters;
    const QStringList parts = line.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const QStringList pieces = part.split(QLatin1Char('='));
        if (pieces.size() == 2)
            parameters.insert(pieces.first(), pieces.last());
    }
    const QString secret = QStringLiteral("thisIsTheSecretOfThisRun");
    parameters.insert(QStringLiteral("PWD"), secret);
    const QString name = OdbcConnection::databaseName(parameters);
    if (!name.contains(secret) || OdbcConnection::withoutSecrets(name).contains(secret))
        std::abort();
    return 0;
}
