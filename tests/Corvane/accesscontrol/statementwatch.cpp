#include "Corvane/accesscontrol/statementwatch.h"

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlDriverPlugin>
#include <QSqlError>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlResult>

#include <memory>

const char *const kQueryError = "The query is refused";
const char *const kDatabaseError = "The database refuses";

namespace {

struct Refused
{
    QString beginning;
    StatementWatch::Stage stage;
    int passing;
};

struct Watched
{
    QStringList statements;
    QList<Refused> refused;

    bool isRefused(const QString &statement, StatementWatch::Stage at)
    {
        for (int i = 0; i < refused.size(); ++i) {
            Refused &next = refused[i];
            if (next.stage != at || !statement.startsWith(next.beginning) || next.passing-- > 0)
                continue;
            refused.removeAt(i);
            return true;
        }
        return false;
    }
};

Watched &watched()
{
    static Watched state;
    return state;
}

const QStringList &watchedDrivers()
{
    static const QStringList names{QStringLiteral("QODBC3"), QStringLiteral("QSQLCIPHER")};
    return names;
}

/// The driver itself, from its plug-in.
QSqlDriver *makeDriver(const QString &name)
{
    for (const QString &path : QCoreApplication::libraryPaths()) {
        const QDir folder(path + QStringLiteral("/sqldrivers"));
        for (const QString &file : folder.entryList(QDir::Files)) {
            QPluginLoader loader(folder.filePath(file));
            auto *plugin = qobject_cast<QSqlDriverPlugin *>(loader.instance());
            QSqlDriver *driver = plugin ? plugin->create(name) : nullptr;
            if (driver)
                return driver;
        }
    }
    qFatal("The driver %s is not there", qPrintable(name));
}

class Driver : public QSqlDriver
{
public:
    explicit Driver(const QString &name)
        : m_inner(makeDriver(name))
    {}

    bool hasFeature(DriverFeature feature) const override
    {
        return m_inner->hasFeature(feature);
    }
    bool open(const QString &database, const QString &user, const QString &password, const QString &host,
              int port, const QString &options) override
    {
        const bool done = m_inner->open(database, user, password, host, port, options);
        setOpen(done);
        setOpenError(!done);
        setLastError(m_inner->lastError());
        return done;
    }
    void close() override
    {
        m_inner->close();
        setOpen(false);
        setOpenError(false);
    }
    QSqlResult *createResult() const override;
    bool beginTransaction() override
    {
        return watch(QStringLiteral("BEGIN"), &QSqlDriver::beginTransaction);
    }
    bool commitTransaction() override
    {
        return watch(QStringLiteral("COMMIT"), &QSqlDriver::commitTransaction);
    }
    bool rollbackTransaction() override
    {
        return watch(QStringLiteral("ROLLBACK"), &QSqlDriver::rollbackTransaction);
    }
    QStringList tables(QSql::TableType type) const override
    {
        return m_inner->tables(type);
    }
    QSqlRecord record(const QString &table) const override
    {
        return m_inner->record(table);
    }
    QSqlIndex primaryIndex(const QString &table) const override
    {
        return m_inner->primaryIndex(table);
    }
    QVariant handle() const override
    {
        return m_inner->handle();
    }
    void setRefusal()
    {
        setLastError(QSqlError(QString(), QString::fromLatin1(kDatabaseError), QSqlError::UnknownError));
    }
    QSqlDriver *inner() const
    {
        return m_inner.get();
    }

private:
    bool watch(const QString &name, bool (QSqlDriver::*call)())
    {
        watched().statements.append(name);
        return !watched().isRefused(name, StatementWatch::Running) && (m_inner.get()->*call)();
    }

    std::unique_ptr<QSqlDriver> m_inner;
};

class Result : public QSqlResult
{
public:
    explicit Result(const Driver *driver)
        : QSqlResult(driver)
        , m_query(driver->inner()->createResult())
    {}

protected:
    bool prepare(const QString &statement) override
    {
        m_query.setForwardOnly(isForwardOnly());
        m_statement = statement;
        if (watched().isRefused(statement, StatementWatch::Preparing))
            return fail();
        return told(m_query.prepare(statement));
    }
    bool exec() override
    {
        QString line = lastQuery();
        const QVector<QVariant> values = boundValues();
        for (int i = 0; i < values.size(); ++i) {
            line += QStringLiteral(" | ") +
                    (values.at(i).isNull() ? QStringLiteral("NULL") : values.at(i).toString());
            m_query.bindValue(i, values.at(i));
        }
        watched().statements.append(line);
        if (watched().isRefused(m_statement, StatementWatch::Running))
            return fail();
        return begun(m_query.exec());
    }
    bool reset(const QString &statement) override
    {
        m_query.setForwardOnly(isForwardOnly());
        m_statement = statement;
        return begun(m_query.exec(statement));
    }
    QVariant data(int column) override
    {
        return m_query.value(column);
    }
    bool isNull(int column) override
    {
        return m_query.isNull(column);
    }
    bool fetch(int row) override
    {
        return moved(m_query.seek(row));
    }
    bool fetchFirst() override
    {
        return moved(m_query.first());
    }
    bool fetchLast() override
    {
        return moved(m_query.last());
    }
    bool fetchNext() override
    {
        if (watched().isRefused(m_statement, StatementWatch::Reading))
            return fail();
        return moved(m_query.next());
    }
    int size() override
    {
        return m_query.size();
    }
    int numRowsAffected() override
    {
        return m_query.numRowsAffected();
    }
    QSqlRecord record() const override
    {
        return m_query.record();
    }
    QVariant lastInsertId() const override
    {
        return m_query.lastInsertId();
    }

private:
    bool told(bool done)
    {
        setLastError(m_query.lastError());
        return done;
    }
    bool begun(bool done)
    {
        setActive(done);
        setSelect(m_query.isSelect());
        setAt(QSql::BeforeFirstRow);
        return told(done);
    }
    bool moved(bool done)
    {
        setAt(m_query.at());
        return told(done);
    }
    bool fail()
    {
        setLastError(QSqlError(QString(), QString::fromLatin1(kQueryError), QSqlError::StatementError));
        static_cast<Driver *>(const_cast<QSqlDriver *>(driver()))->setRefusal();
        return false;
    }

    QSqlQuery m_query;
    QString m_statement;
};

QSqlResult *Driver::createResult() const
{
    return new Result(this);
}

class Creator : public QSqlDriverCreatorBase
{
public:
    explicit Creator(QString name)
        : m_name(std::move(name))
    {}
    QSqlDriver *createObject() const override
    {
        return new Driver(m_name);
    }

private:
    QString m_name;
};

}  // namespace

StatementWatch::StatementWatch()
{
    watched() = Watched();
    for (const QString &name : watchedDrivers())
        QSqlDatabase::registerSqlDriver(name, new Creator(name));
}

StatementWatch::~StatementWatch()
{
    for (const QString &name : watchedDrivers())
        QSqlDatabase::registerSqlDriver(name, nullptr);
}

QStringList StatementWatch::take()
{
    QStringList statements;
    statements.swap(watched().statements);
    return statements;
}

void StatementWatch::refuse(const QString &beginning, Stage stage, int passing)
{
    watched().refused.append({beginning, stage, passing});
}

void StatementWatch::allowAll()
{
    watched().refused.clear();
}
