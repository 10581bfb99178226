#include "CommunicationAndData/settings/odbctext.h"

namespace {

bool goesAsBytes(QSqlDriver::DbmsType server)
{
    return server == QSqlDriver::MySqlServer;
}

}  // namespace

QVariant OdbcText::toBind(QSqlDriver::DbmsType server, const QString &text)
{
    if (goesAsBytes(server)) {
        const QByteArray bytes = text.toUtf8();
        return bytes.isNull() ? QByteArray("") : bytes;
    }
    return text.isNull() ? QLatin1String("") : text;
}

QString OdbcText::column(QSqlDriver::DbmsType server, const QString &name)
{
    return goesAsBytes(server) ? QStringLiteral("CAST(%1 AS BINARY)").arg(name) : name;
}

QString OdbcText::read(const QVariant &value)
{
    if (value.userType() != QMetaType::QByteArray)
        return value.toString();
    const QByteArray bytes = value.toByteArray();
    return QString::fromUtf8(bytes.constData(), bytes.size());
}
