#ifndef TESTS_AUDITTRAILBENCH_H
#define TESTS_AUDITTRAILBENCH_H

#include "Corvane/views/audittrailview.h"
#include "support/workstation.h"

#include <QAction>
#include <QApplication>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QTableView>
#include <QTimer>

#include <memory>

/// A workstation with an audit trail viewer that is set to read the encrypted file `log()`, which is not
/// made.
class AuditTrailBench
{
public:
    AuditTrailBench();
    ~AuditTrailBench();
    Q_DISABLE_COPY(AuditTrailBench)

    /// The present file's path.
    QString log() const;
    QString path(const QString &name) const;
    QString localCache() const;
    /// Sets the viewer to an SQLite file over ODBC.
    void useOnline(const QString &path) const;

    /// Opens the viewer's window.
    void openView();
    void closeView();
    /// Makes the file with five events, opens the viewer and connects it.
    void connectOffline();
    void clickConnect() const;

    AuditTrailView *view() const
    {
        return m_view.get();
    }
    /// The events of the viewer since it was opened.
    QSignalSpy &actions() const
    {
        return *m_actions;
    }
    QSignalSpy &errors() const
    {
        return *m_errors;
    }
    template<typename T>
    T *find(const char *name) const
    {
        return m_view->findChild<T *>(QLatin1String(name));
    }
    QTableView *table() const;
    /// Rows that the table shows; -1 while it has no model.
    int rows() const;
    QString cell(int row, int column) const;
    QAction *disconnectAction() const;
    /// Types a filter text and finishes it.
    void filterBy(const char *field, const QString &text) const;

private:
    Workstation m_workstation;
    std::unique_ptr<AuditTrailView> m_view;
    std::unique_ptr<QSignalSpy> m_actions;
    std::unique_ptr<QSignalSpy> m_errors;
};

/// A connection of the test's own to an audit log, for making and changing it.
class LogMaker
{
public:
    /// \param driver  of the encrypted files, or of ODBC
    LogMaker(const QString &driver, const QString &databaseName);
    ~LogMaker();
    Q_DISABLE_COPY(LogMaker)

    bool run(const QString &statement);
    /// Makes the table, without any rule for what its columns take.
    bool makeTable();
    /// Makes the table with five events.
    bool makeEvents();
    /// Makes the table with many events, one every 17 minutes from 2014 on.
    bool makeManyEvents(int count);
    QSqlDatabase database() const;

private:
    QString m_name;
};

void makeEncryptedLog(const QString &path);
/// Overwrites the middle of a large log, as a bad disk does.
void damagePages(const QString &path);
void makeOdbcLog(const QString &path);

/// Answers the next dialog of a kind from the event loop.
template<typename Dialog, typename Answer>
void answerNext(Answer answer)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, answer] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer->deleteLater();
        timer->stop();
        answer(dialog);
    });
    timer->start(10);
}

#endif
