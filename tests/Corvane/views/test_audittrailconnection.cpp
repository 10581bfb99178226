#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/views/connectionoptionsdialog.h"
#include "ZephanShared/widgets/logindialog.h"
#include "audittrailbench.h"
#include "support/messageboxes.h"
#include "support/qtwarnings.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QTest>

namespace {

const QString kOnlineName = QStringLiteral("actionlog.actionviewer");

/// Opens an encrypted log under the name that the viewer gives its connection.
bool openAsOwner(const QString &log)
{
    QSqlDatabase owner = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), log);
    owner.setDatabaseName(log);
    if (!owner.open())
        return false;
    QSqlQuery query(owner);
    for (const QString &statement : databaseKeyStatements())
        query.exec(statement);
    return query.exec(QStringLiteral("SELECT count(*) FROM action_log"));
}

QLineEdit *editOf(const QDialog *dialog, const char *name)
{
    return dialog->findChild<QLineEdit *>(QLatin1String(name));
}

void choose(const QDialog *dialog, int mode)
{
    dialog->findChild<QComboBox *>(QStringLiteral("audit_connection_mode"))->setCurrentIndex(mode);
}

void press(const QDialog *dialog, const char *button)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
}

}  // namespace

class TestAuditTrailConnection : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void offlineLogIsShownWithWordsAndHeaders();
    void missingFileIsToldAndNotMade();
    void fileThatIsNoLogIsTold_data();
    void fileThatIsNoLogIsTold();
    void yesInTheBoxOpensTheOptionsAndTriesAgain();
    void connectingTwiceOnlineReplacesTheFormerConnection();
    void aReconnectionAsksForThePasswordAgain();
    void aCancelledLoginLeavesTheViewConnectedToNothing();
    void aBorrowedConnectionStaysOpen();
    void aBorrowedFileThenOnlineIsDisconnectedFromTheServer_data();
    void aBorrowedFileThenOnlineIsDisconnectedFromTheServer();
    void aFailedReconnectionLeavesNothingToDoWithTheRows();
    void aFailedReconnectionToADamagedFileLeavesNoEmptyRows();
    void changingFromOnlineToAFileAndBackLeavesNothingBehind();
    void filtersSurviveADisconnection();
    void theSortSurvivesADisconnection();

private:
    std::unique_ptr<AuditTrailBench> m_bench;
};

void TestAuditTrailConnection::init()
{
    m_bench = std::make_unique<AuditTrailBench>();
}

void TestAuditTrailConnection::cleanup()
{
    m_bench.reset();
    QVERIFY(!QSqlDatabase::contains(QStringLiteral("actionlog.actionviewer")));
}

void TestAuditTrailConnection::offlineLogIsShownWithWordsAndHeaders()
{
    makeEncryptedLog(m_bench->log());
    m_bench->openView();
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
    QSignalSpy connected(m_bench->view(), &AuditTrailView::connected);
    m_bench->clickConnect();
    QCOMPARE(connected.count(), 1);
    QVERIFY(m_bench->disconnectAction()->isEnabled());
    QAbstractItemModel *model = m_bench->table()->model();
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Time (UTC)"));
    QCOMPARE(model->headerData(11, Qt::Horizontal).toString(), QStringLiteral("Target Server"));
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("01.01.2016 10:00:00"));
    QCOMPARE(model->index(0, 1).data().toString(), QStringLiteral("Access"));
    QCOMPARE(model->index(0, 3).data().toString(), QStringLiteral("Login"));

    QSignalSpy disconnected(m_bench->view(), &AuditTrailView::disconnected);
    m_bench->disconnectAction()->trigger();
    QCOMPARE(disconnected.count(), 1);
    QVERIFY(!m_bench->table()->model());
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
    QVERIFY(!QSqlDatabase::contains(m_bench->log()));
}

void TestAuditTrailConnection::missingFileIsToldAndNotMade()
{
    m_bench->openView();
    QSignalSpy errors(m_bench->view(), &AuditTrailView::logError);
    MessageBoxes boxes({QStringLiteral("No")});
    m_bench->clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Connection failed\nError code: 338690048"));
    QCOMPARE(boxes.seen().first().informativeText,
             QStringLiteral("Do you want to edit connection settings?"));
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Question);
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.first().at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(errors.first().at(1).value<ZephanError>(), ZephanErrors::kAuditDatabaseNotOpened);
    QCOMPARE(errors.first().at(2).toString(), QStringLiteral("Connection failed"));
    QVERIFY(!QFile::exists(m_bench->log()));
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
}

void TestAuditTrailConnection::fileThatIsNoLogIsTold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("a text") << QByteArray("no database").repeated(500);
    QTest::newRow("random bytes") << QByteArray("\x01\x7f\x80\xff").repeated(5000);
}

void TestAuditTrailConnection::fileThatIsNoLogIsTold()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(m_bench->log(), bytes));
    m_bench->openView();
    MessageBoxes boxes({QStringLiteral("No")});
    m_bench->clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(readFile(m_bench->log()), bytes);
    QVERIFY(!m_bench->table()->model());
}

void TestAuditTrailConnection::yesInTheBoxOpensTheOptionsAndTriesAgain()
{
    const QString elsewhere = m_bench->path(QStringLiteral("elsewhere.db"));
    makeEncryptedLog(elsewhere);
    m_bench->openView();
    MessageBoxes boxes({QStringLiteral("Yes")});
    answerNext<ConnectionOptionsDialog>([elsewhere](QDialog *dialog) {
        auto *location = editOf(dialog, "audit_location");
        location->setText(elsewhere);
        press(dialog, "audit_connection_save");
    });
    m_bench->clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(m_bench->rows(), 5);
}

void TestAuditTrailConnection::connectingTwiceOnlineReplacesTheFormerConnection()
{
    const QString database = m_bench->path(QStringLiteral("online.db"));
    makeOdbcLog(database);
    m_bench->useOnline(database);
    m_bench->openView();
    QSignalSpy disconnected(m_bench->view(), &AuditTrailView::disconnected);
    int logins = 0;
    for (int i = 0; i < 2; ++i) {
        answerNext<LoginDialog>([&logins](QDialog *dialog) {
            ++logins;
            const auto fields = dialog->findChildren<QLineEdit *>();
            fields.at(0)->setText(QStringLiteral("auditor"));
            fields.at(1)->setText(QStringLiteral("secret"));
            dialog->accept();
        });
        m_bench->clickConnect();
        QCOMPARE(m_bench->rows(), 5);
        QVERIFY(QSqlDatabase::contains(kOnlineName));
    }
    QCOMPARE(logins, 2);
    QCOMPARE(disconnected.count(), 1);
    m_bench->disconnectAction()->trigger();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
}

void TestAuditTrailConnection::aReconnectionAsksForThePasswordAgain()
{
    const QString database = m_bench->path(QStringLiteral("online.db"));
    makeOdbcLog(database);
    m_bench->useOnline(database);
    m_bench->openView();
    int asked = 0;
    for (int i = 0; i < 2; ++i) {
        answerNext<LoginDialog>([&asked](QDialog *dialog) {
            ++asked;
            const auto fields = dialog->findChildren<QLineEdit *>();
            QVERIFY(fields.at(0)->text().isEmpty());
            QVERIFY(fields.at(1)->text().isEmpty());
            fields.at(0)->setText(QStringLiteral("auditor"));
            fields.at(1)->setText(QStringLiteral("viewer-secret"));
            dialog->accept();
        });
        m_bench->clickConnect();
        m_bench->disconnectAction()->trigger();
    }
    QCOMPARE(asked, 2);
    m_bench->closeView();
    QVERIFY(!readFile(m_bench->localCache()).contains("viewer-secret"));
}

void TestAuditTrailConnection::aCancelledLoginLeavesTheViewConnectedToNothing()
{
    m_bench->useOnline(m_bench->path(QStringLiteral("online.db")));
    m_bench->openView();
    QSignalSpy connected(m_bench->view(), &AuditTrailView::connected);
    QSignalSpy errors(m_bench->view(), &AuditTrailView::logError);
    answerNext<LoginDialog>([](QDialog *dialog) { dialog->reject(); });
    m_bench->clickConnect();
    QCOMPARE(connected.count(), 1);
    QCOMPARE(errors.count(), 0);
    QVERIFY(m_bench->disconnectAction()->isEnabled());
    QCOMPARE(m_bench->actions().count(), 1);
    QCOMPARE(m_bench->rows(), 0);
    m_bench->disconnectAction()->trigger();
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
}

void TestAuditTrailConnection::aBorrowedConnectionStaysOpen()
{
    makeEncryptedLog(m_bench->log());
    QVERIFY(openAsOwner(m_bench->log()));
    m_bench->openView();
    m_bench->clickConnect();
    QCOMPARE(m_bench->rows(), 5);
    m_bench->disconnectAction()->trigger();
    QVERIFY(QSqlDatabase::contains(m_bench->log()));
    {
        QSqlQuery query(QSqlDatabase::database(m_bench->log()));
        QVERIFY(query.exec(QStringLiteral("SELECT count(*) FROM action_log")));
    }
    m_bench->closeView();
    QVERIFY(QSqlDatabase::contains(m_bench->log()));
    QSqlDatabase::removeDatabase(m_bench->log());
}

void TestAuditTrailConnection::aBorrowedFileThenOnlineIsDisconnectedFromTheServer_data()
{
    QTest::addColumn<bool>("closes");
    QTest::newRow("by Disconnect") << false;
    QTest::newRow("by closing the view") << true;
}

void TestAuditTrailConnection::aBorrowedFileThenOnlineIsDisconnectedFromTheServer()
{
    QFETCH(bool, closes);
    const QString database = m_bench->path(QStringLiteral("online.db"));
    makeOdbcLog(database);
    makeEncryptedLog(m_bench->log());
    m_bench->useOnline(database);
    {
        const auto cache = openSettingsFile(m_bench->localCache());
        cache->setValue(QStringLiteral("actiondb_online/online_mode"), false);
    }
    QVERIFY(openAsOwner(m_bench->log()));
    m_bench->openView();
    const QtWarnings warnings;
    m_bench->clickConnect();
    QCOMPARE(m_bench->rows(), 5);
    answerNext<ConnectionOptionsDialog>([](QDialog *dialog) {
        choose(dialog, 0);
        editOf(dialog, "audit_username")->setText(QStringLiteral("auditor"));
        editOf(dialog, "audit_password")->setText(QStringLiteral("secret"));
        press(dialog, "audit_connection_save");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Accepted));
    m_bench->clickConnect();
    QCOMPARE(m_bench->rows(), 5);
    QVERIFY(QSqlDatabase::contains(kOnlineName));
    if (closes)
        m_bench->closeView();
    else
        m_bench->disconnectAction()->trigger();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QVERIFY(QSqlDatabase::database(m_bench->log(), false).isOpen());
    m_bench->closeView();
    QSqlDatabase::removeDatabase(m_bench->log());
    QVERIFY2(warnings.seen().isEmpty(), qPrintable(warnings.seen().join(QLatin1Char('\n'))));
}

void TestAuditTrailConnection::aFailedReconnectionLeavesNothingToDoWithTheRows()
{
    m_bench->connectOffline();
    const auto *save = m_bench->find<QAction>("audit_save_csv");
    QVERIFY(save->isEnabled());
    const QString missing = m_bench->path(QStringLiteral("missing.db"));
    answerNext<ConnectionOptionsDialog>([missing](QDialog *dialog) {
        editOf(dialog, "audit_location")->setText(missing);
        press(dialog, "audit_connection_save");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Accepted));
    const MessageBoxes boxes({QStringLiteral("No")});
    m_bench->clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    for (const char *name : {"audit_copy_rows", "audit_copy_cell", "audit_save_csv", "audit_chart"})
        QVERIFY2(!m_bench->find<QAction>(name)->isEnabled(), name);
    m_bench->closeView();
    QSqlDatabase::removeDatabase(m_bench->log());
}

void TestAuditTrailConnection::aFailedReconnectionToADamagedFileLeavesNoEmptyRows()
{
    m_bench->connectOffline();
    QFile file(m_bench->log());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("no database").repeated(500));
    file.close();
    const MessageBoxes boxes({QStringLiteral("No")});
    m_bench->clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QVERIFY2(m_bench->rows() == 0, qPrintable(m_bench->cell(0, 0)));
    m_bench->closeView();
    QSqlDatabase::removeDatabase(m_bench->log());
}

void TestAuditTrailConnection::changingFromOnlineToAFileAndBackLeavesNothingBehind()
{
    const QString database = m_bench->path(QStringLiteral("online.db"));
    makeOdbcLog(database);
    makeEncryptedLog(m_bench->log());
    m_bench->useOnline(database);
    m_bench->openView();
    const QtWarnings warnings;
    for (const int mode : {0, 1, 0, 1}) {
        answerNext<ConnectionOptionsDialog>([mode](QDialog *dialog) {
            choose(dialog, mode);
            editOf(dialog, "audit_username")->setText(QStringLiteral("auditor"));
            editOf(dialog, "audit_password")->setText(QStringLiteral("secret"));
            press(dialog, "audit_connection_save");
        });
        QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Accepted));
        m_bench->clickConnect();
        QCOMPARE(m_bench->rows(), 5);
    }
    m_bench->closeView();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QVERIFY(!QSqlDatabase::contains(m_bench->log()));
    QVERIFY2(warnings.seen().isEmpty(), qPrintable(warnings.seen().join(QLatin1Char('\n'))));
}

void TestAuditTrailConnection::filtersSurviveADisconnection()
{
    m_bench->connectOffline();
    m_bench->find<QComboBox>("audit_category")->setCurrentText(QStringLiteral("Database"));
    QCOMPARE(m_bench->rows(), 2);
    m_bench->disconnectAction()->trigger();
    m_bench->clickConnect();
    QCOMPARE(m_bench->rows(), 2);
}

void TestAuditTrailConnection::theSortSurvivesADisconnection()
{
    m_bench->connectOffline();
    m_bench->table()->horizontalHeader()->setSortIndicator(6, Qt::DescendingOrder);
    m_bench->disconnectAction()->trigger();
    m_bench->clickConnect();
    QCOMPARE(m_bench->cell(0, 6), QStringLiteral("cleo"));
    QVERIFY(
        m_bench->actions().last().last().toString().endsWith(QStringLiteral("ORDER BY operator_name DESC;")));
}

QTEST_MAIN(TestAuditTrailConnection)
#include "test_audittrailconnection.moc"
