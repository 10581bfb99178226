#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/views/audittrailview.h"
#include "Corvane/views/connectionoptionsdialog.h"
#include "ZephanShared/widgets/logindialog.h"
#include "ZephanShared/widgets/selectionpopup.h"
#include "support/messageboxes.h"
#include "support/workstation.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlError>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace {

const QString kOnlineName = QStringLiteral("actionlog.actionviewer");

/// Makes a log of five events through the given connection.
bool makeLog(QSqlDatabase &database)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral(
            "CREATE TABLE action_log (timestamp_action VARCHAR(19), category INTEGER, action_level INTEGER, "
            "action INTEGER, action_type INTEGER, operator VARCHAR(36), operator_name TEXT, system TEXT, "
            "database_key VARCHAR(36), info TEXT, target_database TEXT, target_server TEXT)")))
        return false;
    const char *rows[] = {
        "('2016-01-01 10:00:00', 4096, 768, 4864, 1, 'id-1', 'anna', 'WS1', 'k1', 'in', '', '')",
        "('2016-01-02 10:00:00', 8192, 512, 8718, 1, 'id-1', 'anna', 'WS1', 'k2', 'save', '', '')",
        "('2016-01-03 00:00:00', 8192, 512, 8717, 0, 'id-2', 'bert', 'WS2', 'k3', 'load', '', '')",
        "('2016-01-04 10:00:00', 20480, 256, 20736, 0, 'id-2', 'bert', 'WS2', 'k4', 'start', '', '')",
        "('2016-01-05 10:00:00', 24576, 256, 20738, 0, 'id-3', 'cleo', 'XS3', 'x5', 'fault', '', '')"};
    for (const char *row : rows) {
        if (!query.exec(QStringLiteral("INSERT INTO action_log VALUES ") + QLatin1String(row)))
            return false;
    }
    return true;
}

void makeEncryptedLog(const QString &path)
{
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), QStringLiteral("maker"));
        database.setDatabaseName(path);
        QVERIFY2(database.open(), qPrintable(database.lastError().text()));
        QSqlQuery query(database);
        for (const QString &statement : databaseKeyStatements())
            query.exec(statement);
        QVERIFY(makeLog(database));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("maker"));
}

void makeOdbcLog(const QString &path)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QODBC3"), QStringLiteral("maker"));
        database.setDatabaseName(QStringLiteral("Driver=SQLite3;Database=") + path);
        QVERIFY2(database.open(), qPrintable(database.lastError().text()));
        QVERIFY(makeLog(database));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("maker"));
}

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

}  // namespace

class TestAuditTrailView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutAConnectionFiltersRaiseNoQueryAndNoEvent();
    void offlineLogIsShownWithWordsAndHeaders();
    void filters_data();
    void filters();
    void choicesCanBeTakenBack();
    void actionListFollowsTheVocabulary();
    void listOpensAndClosesByItsButton();
    void typingGivesOneDelayedRefreshAndOneMoreWhenTheFieldIsLeft();
    void sortingAsksTheDatabase();
    void everyQueryIsRecordedBeforeItRuns();
    void missingFileIsToldAndNotMade();
    void fileThatIsNoLogIsTold_data();
    void fileThatIsNoLogIsTold();
    void yesInTheBoxOpensTheOptionsAndTriesAgain();
    void connectingTwiceOnlineReplacesTheFormerConnection();
    void aReconnectionAsksForThePasswordAgain();
    void aCancelledLoginLeavesTheViewConnectedToNothing();
    void aBorrowedConnectionStaysOpen();
    void aGroupWithoutParametersOpensTheDialog();
    void optionsAreKeptWithoutNameAndPassword();
    void filtersSurviveADisconnection();
    void aRefusedQueryGivesAnEmptyTable();
    void languageChangeKeepsTheFiltersInForce();

private:
    void openView();
    void connectOffline();
    template<typename T>
    T *find(const char *name) const
    {
        return m_view->findChild<T *>(QLatin1String(name));
    }
    QTableView *table() const
    {
        return find<QTableView>("audit_table");
    }
    int rows() const
    {
        return table()->model() ? table()->model()->rowCount() : -1;
    }
    void clickConnect()
    {
        QTest::mouseClick(find<QToolButton>("audit_connect_button"), Qt::LeftButton);
    }
    QAction *disconnectAction() const
    {
        return find<QToolButton>("audit_connect_button")->menu()->actions().last();
    }
    void writeOnlineGroup(const QString &database);

    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<AuditTrailView> m_view;
    std::unique_ptr<QSignalSpy> m_actions;
    QString m_log;
};

void TestAuditTrailView::init()
{
    m_workstation = std::make_unique<Workstation>();
    m_log = m_workstation->path(QStringLiteral("actionlog.db"));
    SettingsHandler *store = SettingsHandler::getInstance();
    store->changeSettingsFile(m_workstation->dataDirectory() + QLatin1String(kSettingsFileName));
    auto cache = openSettingsFile(m_workstation->dataDirectory() + QLatin1String(LocalCache::kFileName));
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), false);
    cache->setValue(QStringLiteral("actiondb_offline/location"), m_log);
}

void TestAuditTrailView::cleanup()
{
    m_view.reset();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    m_workstation.reset();
}

void TestAuditTrailView::openView()
{
    m_view = std::make_unique<AuditTrailView>(m_workstation->dataDirectory());
    m_actions = std::make_unique<QSignalSpy>(m_view.get(), &AuditTrailView::logAction);
    m_view->resize(800, 600);
    m_view->show();
    QApplication::setActiveWindow(m_view.get());
}

void TestAuditTrailView::connectOffline()
{
    makeEncryptedLog(m_log);
    openView();
    clickConnect();
    QCOMPARE(rows(), 5);
}

void TestAuditTrailView::writeOnlineGroup(const QString &database)
{
    auto cache = openSettingsFile(m_workstation->dataDirectory() + QLatin1String(LocalCache::kFileName));
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), true);
    cache->setValue(QStringLiteral("actiondb_online/params/size"), 2);
    cache->setValue(QStringLiteral("actiondb_online/params/1/key"), QStringLiteral("Database"));
    cache->setValue(QStringLiteral("actiondb_online/params/1/value"), database);
    cache->setValue(QStringLiteral("actiondb_online/params/2/key"), QStringLiteral("Driver"));
    cache->setValue(QStringLiteral("actiondb_online/params/2/value"), QStringLiteral("SQLite3"));
}

void TestAuditTrailView::withoutAConnectionFiltersRaiseNoQueryAndNoEvent()
{
    openView();
    find<QComboBox>("audit_type")->setCurrentIndex(1);
    QTest::keyClicks(find<QLineEdit>("audit_text_4"), QStringLiteral("anna"));
    QTest::keyClick(find<QLineEdit>("audit_text_4"), Qt::Key_Return);
    table()->horizontalHeader()->setSortIndicator(3, Qt::DescendingOrder);
    QCOMPARE(m_actions->count(), 0);
    QVERIFY(!table()->model());

    // What was set is in force as soon as there is a connection.
    makeEncryptedLog(m_log);
    clickConnect();
    QCOMPARE(rows(), 2);
    QVERIFY(m_actions->last().last().toString().endsWith(QStringLiteral("ORDER BY action DESC;")));
}

void TestAuditTrailView::offlineLogIsShownWithWordsAndHeaders()
{
    makeEncryptedLog(m_log);
    openView();
    QVERIFY(!disconnectAction()->isEnabled());
    QSignalSpy connected(m_view.get(), &AuditTrailView::connected);
    clickConnect();
    QCOMPARE(connected.count(), 1);
    QVERIFY(disconnectAction()->isEnabled());
    QAbstractItemModel *model = table()->model();
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Time (UTC)"));
    QCOMPARE(model->headerData(11, Qt::Horizontal).toString(), QStringLiteral("Target Server"));
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("01.01.2016 10:00:00"));
    QCOMPARE(model->index(0, 1).data().toString(), QStringLiteral("Access"));
    QCOMPARE(model->index(0, 3).data().toString(), QStringLiteral("Login"));

    QSignalSpy disconnected(m_view.get(), &AuditTrailView::disconnected);
    disconnectAction()->trigger();
    QCOMPARE(disconnected.count(), 1);
    QVERIFY(!table()->model());
    QVERIFY(!disconnectAction()->isEnabled());
    QVERIFY(!QSqlDatabase::contains(m_log));
}

void TestAuditTrailView::filters_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("rows");

    const auto row = [](const char *name, const char *field, const char *value, int count) {
        QTest::newRow(name) << QString::fromLatin1(field) << QString::fromLatin1(value) << count;
    };
    row("human events", "audit_type", "Human", 2);
    row("automatic events", "audit_type", "Automatic", 3);
    row("a category", "audit_category", "Database", 2);
    row("the category of errors", "audit_category", "Error", 1);
    row("an operator by name", "audit_text_4", "an", 2);
    row("operators by id and by name", "audit_text_4", "id-3, bert", 3);
    row("a system by its beginning", "audit_text_5", "WS", 4);
    row("a term in the middle matches nothing", "audit_text_5", "S1", 0);
    row("a database key", "audit_text_8", "x5", 1);
    row("a level", "audit_level_list", "Low", 2);
    row("an action", "audit_action_list", "SaveSettings", 1);
    row("from a day on", "audit_date_from", "03.01.2016", 3);
    row("up to the midnight behind a day", "audit_date_to", "02.01.2016", 3);
    row("a date that is none filters nothing", "audit_date_from", "31.02.2016", 5);
}

void TestAuditTrailView::filters()
{
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(int, rows);
    connectOffline();
    QWidget *widget = m_view->findChild<QWidget *>(field);
    QVERIFY(widget);
    if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        combo->setCurrentText(value);
    } else if (auto *list = qobject_cast<SelectionPopup *>(widget)) {
        list->findItems(value, Qt::MatchExactly).first()->setSelected(true);
    } else {
        QTest::keyClicks(widget, value);
        QTest::keyClick(widget, Qt::Key_Return);
    }
    QTRY_COMPARE(this->rows(), rows);
}

void TestAuditTrailView::choicesCanBeTakenBack()
{
    connectOffline();
    auto *combo = find<QComboBox>("audit_type");
    QCOMPARE(combo->currentText(), QStringLiteral("Select"));
    QVERIFY(!(combo->model()->flags(combo->model()->index(0, 0)) & Qt::ItemIsSelectable) ||
            !(combo->model()->flags(combo->model()->index(0, 0)) & Qt::ItemIsEnabled));
    combo->setCurrentIndex(1);
    QCOMPARE(combo->itemText(0), QStringLiteral("Deselect"));
    QVERIFY(combo->model()->flags(combo->model()->index(0, 0)) & Qt::ItemIsEnabled);
    QCOMPARE(rows(), 2);
    combo->setCurrentIndex(0);
    QCOMPARE(combo->itemText(0), QStringLiteral("Select"));
    QCOMPARE(rows(), 5);

    auto *list = find<SelectionPopup>("audit_level_list");
    auto *button = find<QPushButton>("audit_level");
    list->item(0)->setSelected(true);
    list->item(2)->setSelected(true);
    QCOMPARE(button->text(), QStringLiteral("Select (2)"));
    QCOMPARE(rows(), 3);
    list->clearSelection();
    QCOMPARE(button->text(), QStringLiteral("Select"));
    QCOMPARE(rows(), 5);
}

void TestAuditTrailView::actionListFollowsTheVocabulary()
{
    openView();
    auto *list = find<SelectionPopup>("audit_action_list");
    const QVector<Actions::Action> &actions = Actions::allActions();
    QCOMPARE(list->count(), actions.size());
    for (int i = 0; i < actions.size(); ++i) {
        QCOMPARE(list->item(i)->data(Qt::UserRole).toInt(), int(actions.at(i)));
        QCOMPARE(list->item(i)->text(), Actions::name(actions.at(i)));
    }
    QCOMPARE(find<SelectionPopup>("audit_level_list")->count(), 3);
}

void TestAuditTrailView::listOpensAndClosesByItsButton()
{
    openView();
    auto *button = find<QPushButton>("audit_action");
    auto *list = find<SelectionPopup>("audit_action_list");
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(list->isVisible());
    QVERIFY(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!list->isVisible());
    QTest::mouseClick(find<QPushButton>("audit_level"), Qt::LeftButton);
    QVERIFY(find<SelectionPopup>("audit_level_list")->isVisible());
    QTest::mouseClick(find<QPushButton>("audit_level"), Qt::LeftButton);
    QVERIFY(!find<SelectionPopup>("audit_level_list")->isVisible());
}

void TestAuditTrailView::typingGivesOneDelayedRefreshAndOneMoreWhenTheFieldIsLeft()
{
    connectOffline();
    const int before = m_actions->count();
    auto *edit = find<QLineEdit>("audit_text_4");
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("anna"));
    QCOMPARE(m_actions->count(), before);
    QTRY_COMPARE(m_actions->count(), before + 1);
    QCOMPARE(rows(), 2);
    find<QLineEdit>("audit_text_5")->setFocus();
    QTRY_COMPARE(m_actions->count(), before + 2);
}

void TestAuditTrailView::sortingAsksTheDatabase()
{
    connectOffline();
    QVERIFY(m_actions->last().last().toString().endsWith(QStringLiteral("ORDER BY timestamp_action ASC;")));
    table()->horizontalHeader()->setSortIndicator(6, Qt::DescendingOrder);
    QCOMPARE(table()->model()->index(0, 6).data().toString(), QStringLiteral("cleo"));
    QVERIFY(m_actions->last().last().toString().endsWith(QStringLiteral("ORDER BY operator_name DESC;")));
}

void TestAuditTrailView::everyQueryIsRecordedBeforeItRuns()
{
    connectOffline();
    QCOMPARE(m_actions->count(), 1);
    const QList<QVariant> event = m_actions->first();
    QCOMPARE(event.at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(event.at(1).value<Actions::ActionType>(), Actions::Human);
    QVERIFY(event.at(2).value<UuidString>().isNull());
    QCOMPARE(event.at(3).toString(), QStringLiteral("actiondb"));
    QCOMPARE(event.at(4).toString(), m_log);
    QCOMPARE(event.at(5).toString(), AuditTrailQueryString::statement({}, {0, Qt::AscendingOrder}));
    find<QComboBox>("audit_category")->setCurrentIndex(2);
    QCOMPARE(m_actions->count(), 2);
}

void TestAuditTrailView::missingFileIsToldAndNotMade()
{
    openView();
    QSignalSpy errors(m_view.get(), &AuditTrailView::logError);
    MessageBoxes boxes({QStringLiteral("No")});
    clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Connection failed\nError code: 338690048"));
    QCOMPARE(boxes.seen().first().informativeText,
             QStringLiteral("Do you want to edit connection settings?"));
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Question);
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.first().at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(errors.first().at(1).value<ZephanError>(), ZephanErrors::kAuditDatabaseNotOpened);
    QCOMPARE(errors.first().at(2).toString(), QStringLiteral("Connection failed"));
    QVERIFY(!QFile::exists(m_log));
    QVERIFY(!disconnectAction()->isEnabled());
}

void TestAuditTrailView::fileThatIsNoLogIsTold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("a text") << QByteArray("no database").repeated(500);
    QTest::newRow("random bytes") << QByteArray("\x01\x7f\x80\xff").repeated(5000);
}

void TestAuditTrailView::fileThatIsNoLogIsTold()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(m_log, bytes));
    openView();
    MessageBoxes boxes({QStringLiteral("No")});
    clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(readFile(m_log), bytes);
    QVERIFY(!table()->model());
}

void TestAuditTrailView::yesInTheBoxOpensTheOptionsAndTriesAgain()
{
    const QString elsewhere = m_workstation->path(QStringLiteral("elsewhere.db"));
    makeEncryptedLog(elsewhere);
    openView();
    MessageBoxes boxes({QStringLiteral("Yes")});
    answerNext<ConnectionOptionsDialog>([elsewhere](QDialog *dialog) {
        auto *location = dialog->findChild<QLineEdit *>(QStringLiteral("audit_location"));
        location->setText(elsewhere);
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_save")),
                          Qt::LeftButton);
    });
    clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(rows(), 5);
}

void TestAuditTrailView::connectingTwiceOnlineReplacesTheFormerConnection()
{
    const QString database = m_workstation->path(QStringLiteral("online.db"));
    makeOdbcLog(database);
    writeOnlineGroup(database);
    openView();
    for (int i = 0; i < 2; ++i) {
        answerNext<LoginDialog>([](QDialog *dialog) {
            const auto fields = dialog->findChildren<QLineEdit *>();
            fields.at(0)->setText(QStringLiteral("auditor"));
            fields.at(1)->setText(QStringLiteral("secret"));
            dialog->accept();
        });
        clickConnect();
        QCOMPARE(rows(), 5);
        QVERIFY(QSqlDatabase::contains(kOnlineName));
    }
    disconnectAction()->trigger();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
}

void TestAuditTrailView::aReconnectionAsksForThePasswordAgain()
{
    const QString database = m_workstation->path(QStringLiteral("online.db"));
    makeOdbcLog(database);
    writeOnlineGroup(database);
    openView();
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
        clickConnect();
        disconnectAction()->trigger();
    }
    QCOMPARE(asked, 2);
    m_view.reset();
    QVERIFY(
        !readFile(m_workstation->dataDirectory() + QStringLiteral("local_cache")).contains("viewer-secret"));
}

void TestAuditTrailView::aCancelledLoginLeavesTheViewConnectedToNothing()
{
    writeOnlineGroup(m_workstation->path(QStringLiteral("online.db")));
    openView();
    QSignalSpy connected(m_view.get(), &AuditTrailView::connected);
    QSignalSpy errors(m_view.get(), &AuditTrailView::logError);
    answerNext<LoginDialog>([](QDialog *dialog) { dialog->reject(); });
    clickConnect();
    QCOMPARE(connected.count(), 1);
    QCOMPARE(errors.count(), 0);
    QVERIFY(disconnectAction()->isEnabled());
    QCOMPARE(m_actions->count(), 1);
    QCOMPARE(rows(), 0);
    disconnectAction()->trigger();
    QVERIFY(!disconnectAction()->isEnabled());
}

void TestAuditTrailView::aBorrowedConnectionStaysOpen()
{
    makeEncryptedLog(m_log);
    {
        QSqlDatabase owner = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), m_log);
        owner.setDatabaseName(m_log);
        QVERIFY(owner.open());
        QSqlQuery query(owner);
        for (const QString &statement : databaseKeyStatements())
            query.exec(statement);
        QVERIFY(query.exec(QStringLiteral("SELECT count(*) FROM action_log")));
    }
    openView();
    clickConnect();
    QCOMPARE(rows(), 5);
    disconnectAction()->trigger();
    QVERIFY(QSqlDatabase::contains(m_log));
    {
        QSqlQuery query(QSqlDatabase::database(m_log));
        QVERIFY(query.exec(QStringLiteral("SELECT count(*) FROM action_log")));
    }
    m_view.reset();
    QVERIFY(QSqlDatabase::contains(m_log));
    QSqlDatabase::removeDatabase(m_log);
}

void TestAuditTrailView::aGroupWithoutParametersOpensTheDialog()
{
    SettingsHandler::getInstance()->setDatabaseSettings(
        QStringLiteral("actiondb"), {{QStringLiteral("params"), QVariantMap{{QStringLiteral("Driver"), 1}}}});
    auto cache = openSettingsFile(m_workstation->dataDirectory() + QLatin1String(LocalCache::kFileName));
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), true);
    cache.reset();
    openView();
    bool opened = false;
    answerNext<ConnectionOptionsDialog>([&opened](QDialog *dialog) {
        opened = true;
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_cancel")),
                          Qt::LeftButton);
    });
    clickConnect();
    QVERIFY(opened);
    QCOMPARE(m_actions->count(), 0);
    QVERIFY(!disconnectAction()->isEnabled());
}

void TestAuditTrailView::optionsAreKeptWithoutNameAndPassword()
{
    openView();
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
    QCOMPARE(m_view->launchConnectionDialog(), int(QDialog::Accepted));
    const QByteArray cache = readFile(m_workstation->dataDirectory() + QStringLiteral("local_cache"));
    QVERIFY(cache.contains("online_mode=true"));
    QVERIFY(cache.contains("SQLite3"));
    QVERIFY(!cache.contains("auditor"));
    QVERIFY(!cache.contains("viewer-secret"));
}

void TestAuditTrailView::filtersSurviveADisconnection()
{
    connectOffline();
    find<QComboBox>("audit_category")->setCurrentText(QStringLiteral("Database"));
    QCOMPARE(rows(), 2);
    disconnectAction()->trigger();
    clickConnect();
    QCOMPARE(rows(), 2);
}

void TestAuditTrailView::aRefusedQueryGivesAnEmptyTable()
{
    connectOffline();
    const MessageBoxes boxes;
    auto *edit = find<QLineEdit>("audit_text_5");
    QTest::keyClicks(edit, QStringLiteral("o'"));
    QTest::keyClick(edit, Qt::Key_Return);
    QTRY_COMPARE(rows(), 0);
    edit->clear();
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(rows(), 5);
    QVERIFY(boxes.seen().isEmpty());
}

void TestAuditTrailView::languageChangeKeepsTheFiltersInForce()
{
    connectOffline();
    find<QComboBox>("audit_category")->setCurrentText(QStringLiteral("Database"));
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(m_view.get(), &change);
    QCOMPARE(find<QComboBox>("audit_category")->currentIndex(), 0);
    QCOMPARE(find<QComboBox>("audit_category")->itemText(0), QStringLiteral("Select"));
    find<QComboBox>("audit_type")->setCurrentText(QStringLiteral("Human"));
    QCOMPARE(rows(), 1);
}

QTEST_MAIN(TestAuditTrailView)
#include "test_audittrailview.moc"
