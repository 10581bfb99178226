#include "CommunicationAndData/sqlcipher/sqlcipherplugin.h"

#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "CommunicationAndData/sqlcipher/sqlcipherdriver.h"

QSqlDriver *SqlCipherPlugin::create(const QString &name)
{
    return name == QLatin1String(kEncryptedDriver) ? new SqlCipherDriver : nullptr;
}
