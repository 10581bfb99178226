#ifndef TESTS_HANDLERFIXTURE_H
#define TESTS_HANDLERFIXTURE_H

#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>

extern const QString kOnlineName;
extern const QString kOfflineName;
extern const QString kInfo;
extern const QString kConnectedText;
extern const QString kNoConnectionText;
extern const QStringList kDefaultOptions;

QString text(const char *utf8);
SettingsHandler *store();

/// Runs steps on the open options dialog, one after the other from a timer.
class DialogSteps : public QObject
{
    Q_OBJECT

public:
    using Step = std::function<void(QDialog &dialog)>;

    explicit DialogSteps(QList<Step> steps);

    bool areDone() const
    {
        return m_steps.isEmpty();
    }

private slots:
    void runNext();

private:
    QList<Step> m_steps;
    QTimer m_timer;
};

template<typename Widget>
Widget *find(QDialog &dialog, const char *name)
{
    return dialog.findChild<Widget *>(text(name));
}

// Steps
void pressConnect(QDialog &dialog);
void pressCancel(QDialog &dialog);
DialogSteps::Step chooseOffline(const QString &location);

/// One row of the audit trail, as a signal told it.
struct Event
{
    int action;
    int type;
    QString key;
    QString database;
    QString info;

    friend bool operator==(const Event &a, const Event &b)
    {
        return a.action == b.action && a.type == b.type && a.key == b.key && a.database == b.database &&
               a.info == b.info;
    }
};

char *toString(const Event &event);
Event started(const QString &database);
Event stopping(const QString &key, const QString &database);

/// A handler on a workstation of its own, with access databases behind the ODBC driver of SQLite.
///
/// After each test no connection may be left, and Qt must not have warned of one.
class HandlerFixture : public QObject
{
    Q_OBJECT

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    QString localCache() const
    {
        return m_workstation.dataDirectory() + text("local_cache");
    }
    QString database(const QString &name) const
    {
        return m_workstation.path(QStringLiteral("%1_%2.db").arg(name).arg(m_count));
    }
    QString makeDatabase(const QString &name, const QStringList &missing = {},
                         const QStringList &statements = {}) const;
    static QVariantMap sqlite(const QString &file)
    {
        return {{text("Driver"), text("SQLite3")}, {text("Database"), file}};
    }
    static QString sqliteName(const QString &file)
    {
        return QStringLiteral("Database=%1;Driver=SQLite3").arg(file);
    }
    void writeLocalCache(const QVariantMap &params, const QStringList &options = kDefaultOptions) const;
    void makeHandler();
    QStringList shownRows(const char *prefix);
    QList<Event> events() const;
    QStringList errors() const;
    static QStringList lines(QDialog &dialog, const QString &prefix);

    Workstation m_workstation;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<QSignalSpy> m_actions;
    std::unique_ptr<QSignalSpy> m_errors;
    std::unique_ptr<QSignalSpy> m_reconnected;
    int m_count = 0;
};

#endif
