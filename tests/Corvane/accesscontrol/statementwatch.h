#ifndef TESTS_STATEMENTWATCH_H
#define TESTS_STATEMENTWATCH_H

#include <QStringList>

/// Stands between the program and its database drivers while it lives, one at a time: it sees every statement
/// that is run, in its order, and lets those fail that a test names.
///
/// It has to exist before a connection is made, and no connection may be left when it goes.
class StatementWatch
{
public:
    enum Stage {
        Preparing,
        Running,
        Reading  ///< the rows after the first
    };

    StatementWatch();
    ~StatementWatch();
    Q_DISABLE_COPY(StatementWatch)

    /// The statements since the last call, each with its bound values as "statement | value | value", a null
    /// as "NULL"; transactions as "BEGIN", "COMMIT" and "ROLLBACK".
    QStringList take();
    /// Lets one statement fail whose text begins so, once that many have passed, unless `allowAll` comes
    /// first.
    void refuse(const QString &beginning, Stage stage = Running, int passing = 0);
    void allowAll();
};

/// What a refused query says, and what its database says.
extern const char *const kQueryError;
extern const char *const kDatabaseError;

#endif
