#ifndef SQLCIPHERPLUGIN_H
#define SQLCIPHERPLUGIN_H

#include <QSqlDriverPlugin>

/// Makes the driver `QSQLCIPHER` known to Qt, which loads it from the folder "sqldrivers" beside the
/// executable.
class SqlCipherPlugin : public QSqlDriverPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QSqlDriverFactoryInterface_iid FILE "sqlcipher.json")

public:
    QSqlDriver *create(const QString &name) override;
};

#endif
