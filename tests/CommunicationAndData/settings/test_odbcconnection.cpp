#include "CommunicationAndData/settings/odbcconnection.h"
#include "support/workstation.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QSqlDatabase>
#include <QTest>

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

}  // namespace

class TestOdbcConnection : public QObject
{
    Q_OBJECT

private slots:
    void parametersAreJoinedInTheOrderOfTheirNames();
    void passwordsAmongTheParametersAreHidden_data();
    void passwordsAmongTheParametersAreHidden();
    void openingLeavesTheNameAsItIs();
    void parametersComeBackFromAFile();
    void fewerParametersLeaveNoneBehind();
    void aClaimedSizeIsNotBelieved();

private:
    Workstation m_workstation;
};

void TestOdbcConnection::parametersAreJoinedInTheOrderOfTheirNames()
{
    QCOMPARE(OdbcConnection::databaseName({{text("Server"), text("käypä")}, {text("Driver"), text("X Y")}}),
             text("Driver=X Y;Server=käypä"));
    QCOMPARE(OdbcConnection::databaseName({}), QString());
    QCOMPARE(OdbcConnection::defaultConnectOptions(),
             (QStringList{text("SQL_ATTR_LOGIN_TIMEOUT=2"), text("SQL_ATTR_CONNECTION_TIMEOUT=2")}));
}

void TestOdbcConnection::passwordsAmongTheParametersAreHidden_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");

    QTest::newRow("none") << text("Driver=X;Server=y") << text("Driver=X;Server=y");
    QTest::newRow("PWD in any case") << text("A=1;pWd=secret;B=2") << text("A=1;pWd=*****;B=2");
    QTest::newRow("at the start") << text("PASSWORD=secret") << text("PASSWORD=*****");
    QTest::newRow("blanks around the name") << text("A=1; pwd =secret") << text("A=1; pwd =*****");
    QTest::newRow("a \";\" in braces") << text("PWD={se;cr}}et};A=1") << text("PWD=*****;A=1");
    QTest::newRow("braces left open") << text("PWD={se;cret") << text("PWD=*****");
    QTest::newRow("two of them") << text("PWD=a;Password=b") << text("PWD=*****;Password=*****");
    QTest::newRow("a name that only ends so") << text("SHOWPWD=1") << text("SHOWPWD=1");
    QTest::newRow("an empty one") << text("PWD=;A=1") << text("PWD=*****;A=1");
    QTest::newRow("nothing at all") << QString() << QString();
}

void TestOdbcConnection::passwordsAmongTheParametersAreHidden()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    QCOMPARE(OdbcConnection::withoutSecrets(name), shown);
}

void TestOdbcConnection::openingLeavesTheNameAsItIs()
{
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver), text("test"));
        const QString name = text("Driver=") + QString(5000, QLatin1Char('x')) + text(" mariadb;A=1");
        database.setDatabaseName(name);
        QVERIFY(!OdbcConnection::open(database, text("SQL_ATTR_LOGIN_TIMEOUT=2;A"), text("a;b"), text("{c")));
        QCOMPARE(database.databaseName(), name);
        QCOMPARE(database.connectOptions(), text("SQL_ATTR_LOGIN_TIMEOUT=2;A"));
    }
    QSqlDatabase::removeDatabase(text("test"));
}

void TestOdbcConnection::parametersComeBackFromAFile()
{
    const QVariantMap parameters{{text("Driver"), text("MariaDB Unicode")},
                                 {text("Nimi"), text("Ääkköset, ελληνικά; ไทย \"中文\"")},
                                 {text("Empty"), QString()}};
    const QString path = m_workstation.path(text("parameters.ini"));
    {
        QSettings file(path, QSettings::IniFormat);
        file.setIniCodec("UTF-8");
        OdbcConnection::writeParameters(file, parameters);
    }
    QSettings file(path, QSettings::IniFormat);
    file.setIniCodec("UTF-8");
    QCOMPARE(OdbcConnection::readParameters(file), parameters);
}

void TestOdbcConnection::fewerParametersLeaveNoneBehind()
{
    QSettings file(m_workstation.path(text("fewer.ini")), QSettings::IniFormat);
    OdbcConnection::writeParameters(file, {{text("A"), 1}, {text("B"), 2}, {text("C"), 3}});
    OdbcConnection::writeParameters(file, {{text("B"), text("4")}});
    QCOMPARE(file.allKeys(),
             (QStringList{text("params/1/key"), text("params/1/value"), text("params/size")}));
    OdbcConnection::writeParameters(file, {});
    QCOMPARE(file.value(text("params/size")), QVariant(0));
    QVERIFY(OdbcConnection::readParameters(file).isEmpty());
}

void TestOdbcConnection::aClaimedSizeIsNotBelieved()
{
    const QString path = m_workstation.path(text("claimed.ini"));
    QVERIFY(writeFile(path, "[params]\nsize=2147483647\n3\\key=A\n3\\value=1\nx\\key=B\n2\\value=lost\n"));
    QSettings file(path, QSettings::IniFormat);
    QElapsedTimer time;
    time.start();
    QCOMPARE(OdbcConnection::readParameters(file), (QVariantMap{{text("A"), text("1")}}));
    QVERIFY(time.elapsed() < 1000);

    QVERIFY(writeFile(path, "[params]\nsize=-5\n1\\key=A\n1\\value=1\n"));
    file.sync();
    QVERIFY(OdbcConnection::readParameters(file).isEmpty());
}

QTEST_MAIN(TestOdbcConnection)
#include "test_odbcconnection.moc"
