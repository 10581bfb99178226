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
    void changingFromOnlineToAFileAndBackLeavesNothingBehind();
    void aGroupWithoutParametersOpensTheDialog();
    void optionsAreKeptWithoutNameAndPassword();
    void filtersSurviveADisconnection();

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
        auto *location = dialog->findChild<QLineEdit *>(QStringLiteral("audit_location"));
        location->setText(elsewhere);
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_save")),
                          Qt::LeftButton);
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
    for (int i = 0; i < 2; ++i) {
        answerNext<LoginDialog>([](QDialog *dialog) {
            const auto fields = dialog->findChildren<QLineEdit *>();
            fields.at(0)->setText(QStringLiteral("auditor"));
            fields.at(1)->setText(QStringLiteral("secret"));
            dialog->accept();
        });
        m_bench->clickConnect();
        QCOMPARE(m_bench->rows(), 5);
        QVERIFY(QSqlDatabase::contains(kOnlineName));
    }
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
    {
        QSqlDatabase owner = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), m_bench->log());
        owner.setDatabaseName(m_bench->log());
        QVERIFY(owner.open());
        QSqlQuery query(owner);
        for (const QString &statement : databaseKeyStatements())
            query.exec(statement);
        QVERIFY(query.exec(QStringLiteral("SELECT count(*) FROM action_log")));
    }
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
            dialog->findChild<QComboBox *>(QStringLiteral("audit_connection_mode"))->setCurrentIndex(mode);
            dialog->findChild<QLineEdit *>(QStringLiteral("audit_username"))
                ->setText(QStringLiteral("auditor"));
            dialog->findChild<QLineEdit *>(QStringLiteral("audit_password"))
                ->setText(QStringLiteral("secret"));
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_save")),
                              Qt::LeftButton);
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

void TestAuditTrailConnection::aGroupWithoutParametersOpensTheDialog()
{
    SettingsHandler::getInstance()->setDatabaseSettings(
        QStringLiteral("actiondb"), {{QStringLiteral("params"), QVariantMap{{QStringLiteral("Driver"), 1}}}});
    auto cache = openSettingsFile(m_bench->localCache());
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), true);
    cache.reset();
    m_bench->openView();
    bool opened = false;
    answerNext<ConnectionOptionsDialog>([&opened](QDialog *dialog) {
        opened = true;
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_cancel")),
                          Qt::LeftButton);
    });
    m_bench->clickConnect();
    QVERIFY(opened);
    QCOMPARE(m_bench->actions().count(), 0);
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
}

void TestAuditTrailConnection::optionsAreKeptWithoutNameAndPassword()
{
    m_bench->openView();
    answerNext<ConnectionOptionsDialog>([](QDialog *dialog) {
        dialog->findChild<QComboBox *>(QStringLiteral("audit_connection_mode"))->setCurrentIndex(0);
        dialog->findChild<QLineEdit *>(QStringLiteral("audit_username"))->setText(QStringLiteral("auditor"));
        dialog->findChild<QLineEdit *>(QStringLiteral("audit_password"))
            ->setText(QStringLiteral("viewer-secret"));
        auto *setting = dialog->findChild<QLineEdit *>(QStringLiteral("audit_setting"));
        setting->setText(QStringLiteral("Driver=SQLite3;Database=/x"));
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_save")),
                          Qt::LeftButton);
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Accepted));
    const QByteArray cache = readFile(m_bench->localCache());
    QVERIFY(cache.contains("online_mode=true"));
    QVERIFY(cache.contains("SQLite3"));
    QVERIFY(!cache.contains("auditor"));
    QVERIFY(!cache.contains("viewer-secret"));
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

QTEST_MAIN(TestAuditTrailConnection)
#include "test_audittrailconnection.moc"
