#include "Corvane/views/loginview.h"
#include "servers/serverfixture.h"
#include "support/userinput.h"
#include "support/wire.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>

#ifdef Q_OS_LINUX
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace {

constexpr int kInternalUser = 1;   // the entry of the box
constexpr int kAnswerTime = 2000;  // milliseconds that the default options allow

const QString kUser = QStringLiteral("Aino");
const QString kUserPassword = QStringLiteral("kolme sanaa");
const QString kFailed = QStringLiteral("Sign in failed!");

/// The time limits, in milliseconds, of this process' connections to a port.
QList<int> hostTimeLimits(int port)
{
    QList<int> limits;
#ifdef Q_OS_LINUX
    constexpr int kHighestDescriptor = 256;
    for (int descriptor = 0; descriptor < kHighestDescriptor; ++descriptor) {
        sockaddr_in peer{};
        socklen_t size = sizeof peer;
        if (getpeername(descriptor, reinterpret_cast<sockaddr *>(&peer), &size) != 0 ||
            peer.sin_family != AF_INET || ntohs(peer.sin_port) != port)
            continue;
        int limit = 0;
        size = sizeof limit;
        getsockopt(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT, &limit, &size);
        limits.append(limit);
    }
#else
    Q_UNUSED(port)
#endif
    return limits;
}

}  // namespace

/// The access connection while its server stops to answer, or is restarted between two uses.
class TestAccessOutages : public ServerFixture
{
    Q_OBJECT

private slots:
    void aServerThatFreezesIsGivenUpAndFoundAgain();
    void searchesMayTakeLongerThanAnAnswer();
    void aHostOutOfReachIsGivenUp();
    void aTimeAmongTheParametersGoesFirst_data();
    void aTimeAmongTheParametersGoesFirst();
    void aStatementThatFailsDropsTheConnectionAndTheNextConnectsAgain_data();
    void aStatementThatFailsDropsTheConnectionAndTheNextConnectsAgain();
    void aSignInAfterTheServerWasRestartedWorksAtTheSecondTry_data();
    void aSignInAfterTheServerWasRestartedWorksAtTheSecondTry();
    void aSignInAtAServerThatFreezesFailsInTime();

private:
    bool addUser();
    static void fillIn(LoginView &view);
    static void signIn(LoginView &view);
    static QString status(const LoginView &view);
    bool choose(DatabaseServer::Kind kind);
    QVariantMap through(const Wire &wire);
    int port()
    {
        return server().parameters(kDatabase).value(text("Port")).toInt();
    }
    QSharedPointer<AccessRoleModelData> newRole(const QString &title) const
    {
        return QSharedPointer<AccessRoleModelData>::create(0u, title, 0x1000);
    }
};

/// Sets the server of a test that is about one server alone.
bool TestAccessOutages::choose(DatabaseServer::Kind kind)
{
    m_kind = kind;
    return prepare();
}

QVariantMap TestAccessOutages::through(const Wire &wire)
{
    QVariantMap params = server().parameters(kDatabase);
    params.insert(text("Port"), QString::number(wire.port()));
    return params;
}

void TestAccessOutages::aServerThatFreezesIsGivenUpAndFoundAgain()
{
    if (!m_servers.at(DatabaseServer::MariaDb)->missing().isEmpty())
        QSKIP(qPrintable(m_servers.at(DatabaseServer::MariaDb)->missing()));
    QVERIFY(choose(DatabaseServer::MariaDb));
    Wire wire(static_cast<quint16>(port()));
    QVERIFY(connectAs(kConsole, kPassword, through(wire)));
    QVERIFY(!m_handler->getRoles().isEmpty());

    wire.hold();
    QElapsedTimer time;
    time.start();
    QVERIFY(m_handler->getRoles().isEmpty());
    QVERIFY2(time.elapsed() < kPatience, qPrintable(QString::number(time.elapsed())));
    QVERIFY(time.elapsed() >= kAnswerTime - 100);
    QCOMPARE(m_errors->size(), 1);
    QVERIFY(!m_handler->isConnected());
    time.restart();
    QVERIFY(!m_handler->saveRole(newRole(text("Jaatynyt"))));
    QVERIFY2(time.elapsed() < kPatience, qPrintable(QString::number(time.elapsed())));

    wire.mend();
    QVERIFY(m_handler->saveRole(newRole(text("Sulanut"))));
    QVERIFY(m_handler->isConnected());
    QCOMPARE(database().userName(), kConsole);
}

void TestAccessOutages::searchesMayTakeLongerThanAnAnswer()
{
    if (!m_servers.at(DatabaseServer::MariaDb)->missing().isEmpty())
        QSKIP(qPrintable(m_servers.at(DatabaseServer::MariaDb)->missing()));
    QVERIFY(choose(DatabaseServer::MariaDb));
    for (const bool isLimited : {false, true}) {
        {
            QSqlDatabase connection = QSqlDatabase::addDatabase(text("QODBC3"), text("search"));
            connection.setDatabaseName(OdbcConnection::databaseName(server().parameters(kDatabase)));
            QVERIFY(OdbcConnection::open(connection, OdbcConnection::defaultConnectOptions(), kAuditor,
                                         kPassword,
                                         isLimited ? OdbcConnection::AsOptionsSay : OdbcConnection::AnyTime));
            QSqlQuery query(connection);
            QCOMPARE(query.exec(text("SELECT SLEEP(3)")), !isLimited);
        }
        QSqlDatabase::removeDatabase(text("search"));
    }
}

void TestAccessOutages::aHostOutOfReachIsGivenUp()
{
#ifndef Q_OS_LINUX
    QSKIP("Only Linux knows the time after which a host counts as lost");
#endif
    if (!m_servers.at(DatabaseServer::PostgreSql)->missing().isEmpty())
        QSKIP(qPrintable(m_servers.at(DatabaseServer::PostgreSql)->missing()));
    QVERIFY(choose(DatabaseServer::PostgreSql));
    QVERIFY2(connectAs(kConsole, kPassword), qPrintable(errorText()));
    QCOMPARE(hostTimeLimits(port()), QList<int>{kAnswerTime});
}

void TestAccessOutages::aTimeAmongTheParametersGoesFirst_data()
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::addColumn<QVariantMap>("params");
    QTest::addColumn<QString>("slow");

    QTest::newRow("MariaDB: an answer may take ten seconds")
        << DatabaseServer::MariaDb << QVariantMap{{text("Read_Timeout"), text("10")}}
        << text("SELECT SLEEP(3)");
    QTest::newRow("PostgreSQL: a host may be silent for ten seconds")
        << DatabaseServer::PostgreSql << QVariantMap{{text("PQOPT"), text("{tcp_user_timeout=10000}")}}
        << text("SELECT 1");
}

void TestAccessOutages::aTimeAmongTheParametersGoesFirst()
{
    QFETCH(QVariantMap, params);
    QFETCH(QString, slow);
    QVariantMap all = server().parameters(kDatabase);
    for (auto it = params.begin(); it != params.end(); ++it)
        all.insert(it.key(), it.value());
    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(text("QODBC3"), text("slow"));
        connection.setDatabaseName(OdbcConnection::databaseName(all));
        QVERIFY(OdbcConnection::open(connection, OdbcConnection::defaultConnectOptions(), kConsole, kPassword,
                                     OdbcConnection::AsOptionsSay));
        QVERIFY(QSqlQuery(connection).exec(slow));
#ifdef Q_OS_LINUX
        if (m_kind == DatabaseServer::PostgreSql)
            QCOMPARE(hostTimeLimits(port()), QList<int>{10000});
#endif
    }
    QSqlDatabase::removeDatabase(text("slow"));
}

void TestAccessOutages::aStatementThatFailsDropsTheConnectionAndTheNextConnectsAgain_data()
{
    addServersProper();
}

void TestAccessOutages::aStatementThatFailsDropsTheConnectionAndTheNextConnectsAgain()
{
    QVERIFY(connectAs(kConsole, kPassword));
    QVERIFY2(server().endConnections(kConsole), qPrintable(server().errorText()));
    const QString title = QStringLiteral("Rooli %1").arg(m_kind);
    QVERIFY(!m_handler->saveRole(newRole(title)));
    QVERIFY(!m_errors->isEmpty());
    QCOMPARE(m_errors->last().at(1).toUInt(), ZephanErrors::kStatementFailed);
    QVERIFY(!m_handler->isConnected());

    QVERIFY(m_handler->saveRole(newRole(title)));
    QCOMPARE(database().userName(), kConsole);
    QCOMPARE(column(text("SELECT COUNT(*) FROM roles WHERE title = ?"), {title}), QStringList{text("1")});
}

void TestAccessOutages::aSignInAfterTheServerWasRestartedWorksAtTheSecondTry_data()
{
    addServersProper();
}

void TestAccessOutages::aSignInAfterTheServerWasRestartedWorksAtTheSecondTry()
{
    QVERIFY(connectAs(kConsole, kPassword));
    QVERIFY(addUser());
    LoginView view(m_handler.get(), nullptr);
    QSignalSpy loggedIn(&view, SIGNAL(loggedIn(AccessControl *)));
    QSignalSpy failures(&view, SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    fillIn(view);
    QVERIFY2(server().endConnections(kConsole), qPrintable(server().errorText()));

    signIn(view);
    QTRY_COMPARE(status(view), kFailed);
    QCOMPARE(failures.size(), 1);
    QVERIFY(!m_handler->isConnected());

    signIn(view);
    QTRY_COMPARE(loggedIn.size(), 1);
    QVERIFY(m_handler->isConnected());
}

void TestAccessOutages::aSignInAtAServerThatFreezesFailsInTime()
{
    if (!m_servers.at(DatabaseServer::MariaDb)->missing().isEmpty())
        QSKIP(qPrintable(m_servers.at(DatabaseServer::MariaDb)->missing()));
    QVERIFY(choose(DatabaseServer::MariaDb));
    Wire wire(static_cast<quint16>(port()));
    QVERIFY(connectAs(kConsole, kPassword, through(wire)));
    QVERIFY(addUser());
    LoginView view(m_handler.get(), nullptr);
    QSignalSpy loggedIn(&view, SIGNAL(loggedIn(AccessControl *)));
    QSignalSpy failures(&view, SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    fillIn(view);
    for (int attempt = 1; attempt <= 2; ++attempt) {
        wire.hold();
        QElapsedTimer time;
        time.start();
        signIn(view);
        QTRY_COMPARE(failures.size(), attempt);
        QCOMPARE(status(view), kFailed);
        QVERIFY2(time.elapsed() < kPatience, qPrintable(QString::number(time.elapsed())));
        QVERIFY(!m_handler->isConnected());
    }
    wire.mend();
    signIn(view);
    QTRY_COMPARE(loggedIn.size(), 1);
}

/// An internal user in place of the one that a former test has made.
bool TestAccessOutages::addUser()
{
    static int number = 400;
    return isUnderstood(text("UPDATE operator SET deleted = 1 WHERE username = ?"), {kUser}) &&
           insertRow(database(), text("operator"), operatorRow(idOf(++number), kUser, 1, kUserPassword));
}

/// Shows the page of an internal user, filled in.
void TestAccessOutages::fillIn(LoginView &view)
{
    view.show();
    chooseEntry(view.findChild<QComboBox *>(text("authenticated_user_combo")), kInternalUser);
    view.findChild<QLineEdit *>(text("username_edit"))->setText(kUser);
    view.findChild<QLineEdit *>(text("password_edit"))->setText(kUserPassword);
}

void TestAccessOutages::signIn(LoginView &view)
{
    QTest::mouseClick(view.findChild<QPushButton *>(text("sign_in_button")), Qt::LeftButton);
}

QString TestAccessOutages::status(const LoginView &view)
{
    return view.findChild<QLabel *>(text("status_label"))->text();
}

QTEST_MAIN(TestAccessOutages)
#include "test_accessoutages.moc"
