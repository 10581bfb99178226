#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/views/connectionoptionsdialog.h"
#include "ZephanShared/widgets/logindialog.h"
#include "audittrailbench.h"
#include "support/messageboxes.h"
#include "support/qtwarnings.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace {

/// The lines of the connect options where none are stored.
const QStringList kDefaultTimeouts{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                   QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2"), QString()};

QLineEdit *editOf(const QDialog *dialog, const char *name)
{
    return dialog->findChild<QLineEdit *>(QLatin1String(name));
}

QList<QLineEdit *> parametersOf(const QDialog *dialog)
{
    return dialog->findChildren<QLineEdit *>(QStringLiteral("audit_parameter"));
}

QStringList textsOf(const QList<QLineEdit *> &edits)
{
    QStringList texts;
    for (const QLineEdit *edit : edits)
        texts.append(edit->text());
    return texts;
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

/// The connection options of the viewer: when they are asked for, where they come from, and what is kept of
/// them.
class TestAuditTrailOptions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aGroupWithoutParametersOpensTheDialogWithTheDefaultTimeouts();
    void anEmptyLocationOpensTheDialogAndIsNoError();
    void withoutCachedOptionsTheStoreGivesThem_data();
    void withoutCachedOptionsTheStoreGivesThem();
    void aRejectedDialogKeepsTheCachedOptions();
    void optionsAreKeptWithoutNameAndPassword();
    void optionsThatWereTakenAwayStayAway();

private:
    std::unique_ptr<AuditTrailBench> m_bench;
};

void TestAuditTrailOptions::init()
{
    m_bench = std::make_unique<AuditTrailBench>();
}

void TestAuditTrailOptions::cleanup()
{
    m_bench.reset();
    QVERIFY(!QSqlDatabase::contains(QStringLiteral("actionlog.actionviewer")));
}

void TestAuditTrailOptions::aGroupWithoutParametersOpensTheDialogWithTheDefaultTimeouts()
{
    SettingsHandler::getInstance()->setDatabaseSettings(
        QStringLiteral("actiondb"), {{QStringLiteral("params"), QVariantMap{{QStringLiteral("Driver"), 1}}}});
    auto cache = openSettingsFile(m_bench->localCache());
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), true);
    cache.reset();
    m_bench->openView();
    QStringList options;
    answerNext<ConnectionOptionsDialog>([&options](QDialog *dialog) {
        options = textsOf(parametersOf(dialog));
        press(dialog, "audit_connection_cancel");
    });
    m_bench->clickConnect();
    QCOMPARE(options, kDefaultTimeouts);
    QCOMPARE(m_bench->actions().count(), 0);
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
}

void TestAuditTrailOptions::anEmptyLocationOpensTheDialogAndIsNoError()
{
    openSettingsFile(m_bench->localCache())->setValue(QStringLiteral("actiondb_offline/location"), QString());
    m_bench->openView();
    const MessageBoxes boxes;
    bool isOffline = false;
    answerNext<ConnectionOptionsDialog>([&isOffline](QDialog *dialog) {
        isOffline = editOf(dialog, "audit_location")->isVisible();
        press(dialog, "audit_connection_cancel");
    });
    m_bench->clickConnect();
    QVERIFY(isOffline);
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(m_bench->errors().count(), 0);
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
}

void TestAuditTrailOptions::withoutCachedOptionsTheStoreGivesThem_data()
{
    QTest::addColumn<QVariant>("folder");
    QTest::addColumn<QVariant>("connectOptions");
    QTest::addColumn<QString>("location");
    QTest::addColumn<QStringList>("lines");

    const QStringList options{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=3")};
    QTest::newRow("a folder that ends in a separator")
        << QVariant(QStringLiteral("/logs/")) << QVariant(options) << QStringLiteral("/logs/actionlog.db")
        << QStringList{options.first(), QString()};
    QTest::newRow("a name without a separator, and an empty text as options")
        << QVariant(QStringLiteral("/logs/ward")) << QVariant(QString(QLatin1String("")))
        << QStringLiteral("/logs/wardactionlog.db") << QStringList{QString()};
    QTest::newRow("no folder stored")
        << QVariant() << QVariant(options) << QStringLiteral("actionlogactionlog.db")
        << QStringList{options.first(), QString()};
    QTest::newRow("no options stored") << QVariant(QStringLiteral("/logs/")) << QVariant()
                                       << QStringLiteral("/logs/actionlog.db") << kDefaultTimeouts;
}

void TestAuditTrailOptions::withoutCachedOptionsTheStoreGivesThem()
{
    QFETCH(QVariant, folder);
    QFETCH(QVariant, connectOptions);
    QFETCH(QString, location);
    QFETCH(QStringList, lines);
    QVERIFY(QFile::remove(m_bench->localCache()));
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setDatabaseSettings(
        QStringLiteral("actiondb"),
        {{QStringLiteral("params"), QVariantMap{{QStringLiteral("Database"), QStringLiteral("log")}}}});
    if (connectOptions.isValid())
        store->setValue(QStringLiteral("actiondb/connectoptions"), connectOptions);
    if (folder.isValid())
        store->setValue(QLatin1String(SettingsKeys::kActionLogLocation), folder);
    m_bench->openView();
    QString mode;
    QString setting;
    QString path;
    QStringList texts;
    bool savable = true;
    answerNext<ConnectionOptionsDialog>([&](QDialog *dialog) {
        mode = dialog->findChild<QComboBox *>(QStringLiteral("audit_connection_mode"))->currentText();
        setting = editOf(dialog, "audit_setting")->text();
        path = editOf(dialog, "audit_location")->text();
        texts = textsOf(parametersOf(dialog));
        QMetaObject::invokeMethod(dialog, "handleSaveButtonState");
        savable = dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_save"))->isEnabled();
        press(dialog, "audit_connection_cancel");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Rejected));
    QCOMPARE(mode, QStringLiteral("online"));
    QCOMPARE(setting, QStringLiteral("Database=log"));
    QCOMPARE(path, location);
    QCOMPARE(texts, lines);
    QVERIFY(!savable);
}

void TestAuditTrailOptions::aRejectedDialogKeepsTheCachedOptions()
{
    const QByteArray before = readFile(m_bench->localCache());
    QVERIFY(!before.isEmpty());
    m_bench->openView();
    answerNext<ConnectionOptionsDialog>([](QDialog *dialog) {
        editOf(dialog, "audit_location")->setText(QStringLiteral("/elsewhere.db"));
        choose(dialog, 0);
        editOf(dialog, "audit_setting")->setText(QStringLiteral("Driver=SQLite3"));
        press(dialog, "audit_connection_cancel");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Rejected));
    m_bench->closeView();
    QCOMPARE(readFile(m_bench->localCache()), before);
}

void TestAuditTrailOptions::optionsAreKeptWithoutNameAndPassword()
{
    m_bench->openView();
    answerNext<ConnectionOptionsDialog>([](QDialog *dialog) {
        choose(dialog, 0);
        editOf(dialog, "audit_username")->setText(QStringLiteral("auditor"));
        editOf(dialog, "audit_password")->setText(QStringLiteral("viewer-secret"));
        auto *setting = editOf(dialog, "audit_setting");
        setting->setText(QStringLiteral("Driver=SQLite3;Database=/x"));
        press(dialog, "audit_connection_save");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Accepted));
    const QByteArray cache = readFile(m_bench->localCache());
    QVERIFY(cache.contains("online_mode=true"));
    QVERIFY(cache.contains("SQLite3"));
    QVERIFY(!cache.contains("auditor"));
    QVERIFY(!cache.contains("viewer-secret"));
}

void TestAuditTrailOptions::optionsThatWereTakenAwayStayAway()
{
    m_bench->openView();
    answerNext<ConnectionOptionsDialog>([](QDialog *dialog) {
        choose(dialog, 0);
        editOf(dialog, "audit_setting")->setText(QStringLiteral("Driver=SQLite3"));
        for (QLineEdit *edit : parametersOf(dialog))
            edit->clear();
        press(dialog, "audit_connection_save");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Accepted));
    m_bench->closeView();
    m_bench->openView();
    QStringList lines;
    answerNext<ConnectionOptionsDialog>([&lines](QDialog *dialog) {
        lines = textsOf(parametersOf(dialog));
        press(dialog, "audit_connection_cancel");
    });
    QCOMPARE(m_bench->view()->launchConnectionDialog(), int(QDialog::Rejected));
    QCOMPARE(lines, QStringList{QString()});
}

QTEST_MAIN(TestAuditTrailOptions)
#include "test_audittrailoptions.moc"
