#include "Corvane/views/connectionoptionsdialog.h"
#include "support/filedialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>

namespace {

QVariantMap onlineMap()
{
    return {{ConnectionOptions::kOnlineMode, true},
            {ConnectionOptions::kParams, QVariantMap{{QStringLiteral("Database"), QStringLiteral("log")},
                                                     {QStringLiteral("Driver"), QStringLiteral("SQLite3")}}},
            {ConnectionOptions::kConnectOptions, QStringList{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2")}},
            {ConnectionOptions::kUsername, QStringLiteral("auditor")},
            {ConnectionOptions::kPassword, QStringLiteral("secret")}};
}

}  // namespace

class TestConnectionOptionsDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void storedOptionsAreShownWithOneSpareLineEach();
    void startsOnCancelWithSaveDisabled();
    void twoPairsOnALineBecomeTwoEntries();
    void aRemovedEntryEnablesSaveThroughTheCount();
    void aRemovedParameterEnablesSaveThroughTheCount();
    void anEmptyTextStoredAsParametersIsNoParameter();
    void whatEnablesSave_data();
    void whatEnablesSave();
    void oneEmptySettingKeepsSaveDisabledWhateverElseChanged();
    void changingTheModeAloneEnablesSave();
    void changingToOnlineWithoutSettingsKeepsSaveDisabled();
    void blanksAreTrimmedWhenALineIsFinished();
    void finishingALineBringsTheNextOneWithTheFocus();
    void anEmptiedNameLeavesTheStoredOne();
    void linesThatAreNoPairAreLeftOut();
    void offlineSavesTheLocationAndKeepsTheParameters();
    void whatIsPastedLosesTheEndOfItsLine();
    void browsingFillsTheLocation();
    void cancelChangesNothing();
    void returnOnCancelCancels_data();
    void returnOnCancelCancels();
    void returnOnBrowseBrowses();
    void returnInALineSaves();
    void tabGoesFromFieldToField_data();
    void tabGoesFromFieldToField();

private:
    void open();
    QList<QLineEdit *> lines(const char *name) const
    {
        return m_dialog->findChildren<QLineEdit *>(QLatin1String(name));
    }
    QStringList texts(const char *name) const;
    QLineEdit *edit(const char *name) const
    {
        return m_dialog->findChild<QLineEdit *>(QLatin1String(name));
    }
    QPushButton *save() const
    {
        return m_dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_save"));
    }
    QComboBox *mode() const
    {
        return m_dialog->findChild<QComboBox *>(QStringLiteral("audit_connection_mode"));
    }
    void type(QLineEdit *line, const QString &text);

    QVariantMap m_online;
    QVariantMap m_offline;
    std::unique_ptr<ConnectionOptionsDialog> m_dialog;
};

void TestConnectionOptionsDialog::init()
{
    m_online = onlineMap();
    m_offline = {{ConnectionOptions::kLocation, QStringLiteral("/logs/actionlog.db")}};
}

void TestConnectionOptionsDialog::cleanup()
{
    m_dialog.reset();
}

void TestConnectionOptionsDialog::open()
{
    m_dialog = std::make_unique<ConnectionOptionsDialog>(&m_online, &m_offline, nullptr);
    m_dialog->show();
    QApplication::setActiveWindow(m_dialog.get());
}

QStringList TestConnectionOptionsDialog::texts(const char *name) const
{
    QStringList texts;
    for (const QLineEdit *line : lines(name)) {
        if (!line->isHidden())
            texts.append(line->text());
    }
    return texts;
}

void TestConnectionOptionsDialog::type(QLineEdit *line, const QString &text)
{
    line->setFocus();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, text);
}

void TestConnectionOptionsDialog::storedOptionsAreShownWithOneSpareLineEach()
{
    open();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Audit trail connection options"));
    QCOMPARE(m_dialog->width(), 480);
    QCOMPARE(mode()->currentIndex(), 0);
    QCOMPARE(texts("audit_setting"),
             QStringList({QStringLiteral("Database=log"), QStringLiteral("Driver=SQLite3"), QString()}));
    QCOMPARE(texts("audit_parameter"), QStringList({QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"), QString()}));
    QCOMPARE(edit("audit_username")->text(), QStringLiteral("auditor"));
    QCOMPARE(edit("audit_password")->echoMode(), QLineEdit::Password);
    QVERIFY(!edit("audit_location")->isVisible());
}

void TestConnectionOptionsDialog::startsOnCancelWithSaveDisabled()
{
    open();
    QVERIFY(!save()->isEnabled());
    QVERIFY(save()->isDefault());
    QCOMPARE(m_dialog->focusWidget()->objectName(), QStringLiteral("audit_connection_cancel"));
    m_online.insert(ConnectionOptions::kOnlineMode, false);
    open();
    QCOMPARE(mode()->currentIndex(), 1);
    QVERIFY(edit("audit_location")->isVisible());
    QVERIFY(!save()->isEnabled());
}

void TestConnectionOptionsDialog::twoPairsOnALineBecomeTwoEntries()
{
    open();
    type(lines("audit_setting").last(), QStringLiteral("A=1;B=2"));
    QVERIFY(save()->isEnabled());
    QTest::mouseClick(save(), Qt::LeftButton);
    const QVariantMap params = m_online.value(ConnectionOptions::kParams).toMap();
    QCOMPARE(params.keys(), QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("Database"),
                                         QStringLiteral("Driver")}));
    open();
    QCOMPARE(texts("audit_setting").size(), 5);
    QCOMPARE(texts("audit_setting").first(), QStringLiteral("A=1"));
}

void TestConnectionOptionsDialog::aRemovedEntryEnablesSaveThroughTheCount()
{
    open();
    type(lines("audit_setting").first(), QString());
    QTest::keyClick(lines("audit_setting").first(), Qt::Key_Tab);
    QTRY_COMPARE(texts("audit_setting"), QStringList({QStringLiteral("Driver=SQLite3"), QString()}));
    QVERIFY(save()->isEnabled());
    QTest::mouseClick(save(), Qt::LeftButton);
    QCOMPARE(m_online.value(ConnectionOptions::kParams).toMap().keys(),
             QStringList{QStringLiteral("Driver")});
}

void TestConnectionOptionsDialog::aRemovedParameterEnablesSaveThroughTheCount()
{
    open();
    QLineEdit *parameter = lines("audit_parameter").first();
    type(parameter, QString());
    QTest::keyClick(parameter, Qt::Key_Tab);
    QTRY_COMPARE(texts("audit_parameter"), QStringList{QString()});
    QVERIFY(save()->isEnabled());
    QTest::mouseClick(save(), Qt::LeftButton);
    QCOMPARE(m_online.value(ConnectionOptions::kConnectOptions), QVariant(QStringList()));
}

void TestConnectionOptionsDialog::anEmptyTextStoredAsParametersIsNoParameter()
{
    m_online.insert(ConnectionOptions::kConnectOptions, QString(QLatin1String("")));
    open();
    QCOMPARE(texts("audit_parameter"), QStringList{QString()});
    QMetaObject::invokeMethod(m_dialog.get(), "handleSaveButtonState");
    QVERIFY(!save()->isEnabled());
}

void TestConnectionOptionsDialog::whatEnablesSave_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("another value of a setting") << "audit_setting"
                                                << "Database=other" << true;
    QTest::newRow("the same value") << "audit_setting"
                                    << "Database=log" << false;
    QTest::newRow("another parameter") << "audit_parameter"
                                       << "X=1" << true;
    QTest::newRow("another user name") << "audit_username"
                                       << "someone" << true;
    QTest::newRow("another password") << "audit_password"
                                      << "other" << true;
    QTest::newRow("an emptied password") << "audit_password"
                                         << "" << true;
}

void TestConnectionOptionsDialog::whatEnablesSave()
{
    QFETCH(QString, field);
    QFETCH(QString, text);
    QFETCH(bool, enabled);
    open();
    type(edit(field.toLatin1().constData()), text);
    QCOMPARE(save()->isEnabled(), enabled);
}

void TestConnectionOptionsDialog::oneEmptySettingKeepsSaveDisabledWhateverElseChanged()
{
    m_online.insert(ConnectionOptions::kParams, QVariantMap());
    open();
    QCOMPARE(texts("audit_setting"), QStringList{QString()});
    type(edit("audit_username"), QStringLiteral("someone"));
    QVERIFY(!save()->isEnabled());
    mode()->setCurrentIndex(1);
    QVERIFY(save()->isEnabled());
    mode()->setCurrentIndex(0);
    QVERIFY(!save()->isEnabled());
}

void TestConnectionOptionsDialog::changingTheModeAloneEnablesSave()
{
    open();
    mode()->setCurrentIndex(1);
    QVERIFY(save()->isEnabled());
    QVERIFY(edit("audit_location")->isVisible());
    QVERIFY(!edit("audit_username")->isVisible());
    mode()->setCurrentIndex(0);
    QVERIFY(!save()->isEnabled());
}

void TestConnectionOptionsDialog::changingToOnlineWithoutSettingsKeepsSaveDisabled()
{
    m_online.insert(ConnectionOptions::kOnlineMode, false);
    m_online.insert(ConnectionOptions::kParams, QVariantMap());
    open();
    mode()->setCurrentIndex(0);
    QVERIFY(!save()->isEnabled());
    type(lines("audit_setting").first(), QStringLiteral("Driver=SQLite3"));
    QVERIFY(save()->isEnabled());
}

void TestConnectionOptionsDialog::blanksAreTrimmedWhenALineIsFinished()
{
    open();
    QLineEdit *line = lines("audit_setting").first();
    type(line, QStringLiteral("Database=log "));
    QCOMPARE(line->text(), QStringLiteral("Database=log "));
    QTest::keyClick(line, Qt::Key_Tab);
    QCOMPARE(line->text(), QStringLiteral("Database=log"));
}

void TestConnectionOptionsDialog::finishingALineBringsTheNextOneWithTheFocus()
{
    open();
    QLineEdit *spare = lines("audit_setting").last();
    type(spare, QStringLiteral("Port=1"));
    emit spare->editingFinished();
    QTRY_COMPARE(texts("audit_setting").size(), 4);
    QTRY_COMPARE(m_dialog->focusWidget(), lines("audit_setting").last());
}

void TestConnectionOptionsDialog::anEmptiedNameLeavesTheStoredOne()
{
    open();
    type(edit("audit_username"), QString());
    type(edit("audit_password"), QStringLiteral("new"));
    QTest::mouseClick(save(), Qt::LeftButton);
    QCOMPARE(m_online.value(ConnectionOptions::kUsername).toString(), QStringLiteral("auditor"));
    QCOMPARE(m_online.value(ConnectionOptions::kPassword).toString(), QStringLiteral("new"));
}

void TestConnectionOptionsDialog::linesThatAreNoPairAreLeftOut()
{
    open();
    type(lines("audit_setting").last(), QStringLiteral("A=1=2;B;C=3"));
    QTest::mouseClick(save(), Qt::LeftButton);
    const QVariantMap params = m_online.value(ConnectionOptions::kParams).toMap();
    QVERIFY(!params.contains(QStringLiteral("A")));
    QVERIFY(!params.contains(QStringLiteral("B")));
    QCOMPARE(params.value(QStringLiteral("C")).toString(), QStringLiteral("3"));
}

void TestConnectionOptionsDialog::offlineSavesTheLocationAndKeepsTheParameters()
{
    open();
    mode()->setCurrentIndex(1);
    type(edit("audit_location"), QStringLiteral("/elsewhere.db"));
    QTest::mouseClick(save(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_online.value(ConnectionOptions::kOnlineMode).toBool(), false);
    QCOMPARE(m_offline.value(ConnectionOptions::kLocation).toString(), QStringLiteral("/elsewhere.db"));
    QCOMPARE(m_online.value(ConnectionOptions::kParams), onlineMap().value(ConnectionOptions::kParams));
}

void TestConnectionOptionsDialog::whatIsPastedLosesTheEndOfItsLine()
{
    open();
    QApplication::clipboard()->setText(QStringLiteral("auditor\r\n"));
    for (const char *name : {"audit_username", "audit_password", "audit_location"}) {
        auto *edit = m_dialog->findChild<QLineEdit *>(QLatin1String(name));
        QVERIFY2(edit, name);
        edit->selectAll();
        edit->paste();
        QCOMPARE(edit->text(), QStringLiteral("auditor"));
    }
}

void TestConnectionOptionsDialog::browsingFillsTheLocation()
{
    m_online.insert(ConnectionOptions::kOnlineMode, false);
    open();
    QTemporaryDir folder;
    const QString file = folder.path() + QStringLiteral("/audit.db");
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    const FileDialogs dialogs({file});
    QTest::mouseClick(m_dialog->findChild<QPushButton *>(QStringLiteral("audit_browse")), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().first().title, QStringLiteral("Choose database file"));
    QCOMPARE(dialogs.seen().first().nameFilters, QStringList{QStringLiteral("DB (*.db)")});
    QCOMPARE(edit("audit_location")->text(), file);
    QVERIFY(save()->isEnabled());
}

void TestConnectionOptionsDialog::cancelChangesNothing()
{
    open();
    type(edit("audit_username"), QStringLiteral("someone"));
    QTest::mouseClick(m_dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_cancel")),
                      Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(m_online, onlineMap());
}

void TestConnectionOptionsDialog::returnOnCancelCancels_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("isChanged");
    QTest::newRow("Return before anything was changed") << Qt::Key_Return << false;
    QTest::newRow("Return after a change") << Qt::Key_Return << true;
    QTest::newRow("Enter after a change") << Qt::Key_Enter << true;
}

void TestConnectionOptionsDialog::returnOnCancelCancels()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, isChanged);
    open();
    auto *cancel = m_dialog->findChild<QPushButton *>(QStringLiteral("audit_connection_cancel"));
    if (isChanged) {
        type(edit("audit_username"), QStringLiteral("someone"));
        QVERIFY(save()->isEnabled());
        cancel->setFocus();
    }
    QTest::keyClick(cancel, key);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(m_online, onlineMap());
}

void TestConnectionOptionsDialog::returnOnBrowseBrowses()
{
    m_online.insert(ConnectionOptions::kOnlineMode, false);
    open();
    type(edit("audit_location"), QStringLiteral("/typed.db"));
    QVERIFY(save()->isEnabled());
    auto *browse = m_dialog->findChild<QPushButton *>(QStringLiteral("audit_browse"));
    browse->setFocus();
    const FileDialogs dialogs({QString()});
    QTest::keyClick(browse, Qt::Key_Return);
    QCOMPARE(dialogs.seen().size(), 1);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(edit("audit_location")->text(), QStringLiteral("/typed.db"));
}

void TestConnectionOptionsDialog::returnInALineSaves()
{
    open();
    type(edit("audit_username"), QStringLiteral("someone"));
    QTest::keyClick(edit("audit_username"), Qt::Key_Return);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_online.value(ConnectionOptions::kUsername).toString(), QStringLiteral("someone"));
}

void TestConnectionOptionsDialog::tabGoesFromFieldToField_data()
{
    QTest::addColumn<bool>("online");
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("through the lines of the online connection")
        << true << QStringList{QStringLiteral("audit_username"),  QStringLiteral("audit_password"),
                               QStringLiteral("audit_setting"),   QStringLiteral("audit_setting"),
                               QStringLiteral("audit_setting"),   QStringLiteral("audit_parameter"),
                               QStringLiteral("audit_parameter"), QStringLiteral("audit_connection_cancel")};
    QTest::newRow("through the offline file")
        << false
        << QStringList{QStringLiteral("audit_location"), QStringLiteral("audit_browse"),
                       QStringLiteral("audit_connection_cancel")};
}

void TestConnectionOptionsDialog::tabGoesFromFieldToField()
{
    QFETCH(bool, online);
    QFETCH(QStringList, fields);
    m_online.insert(ConnectionOptions::kOnlineMode, online);
    open();
    mode()->setFocus();
    QStringList visited;
    for (int i = 0; i < fields.size(); ++i) {
        QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Tab);
        visited.append(m_dialog->focusWidget()->objectName());
    }
    QCOMPARE(visited, fields);
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestConnectionOptionsDialog test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_connectionoptionsdialog.moc"
