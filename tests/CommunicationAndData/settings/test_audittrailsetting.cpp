#include "CommunicationAndData/settings/audittrailsetting.h"

#include <QTest>

namespace {

const QString kMine = QStringLiteral("0c9f5b1e");
const QString kOther = QStringLiteral("0c9f5b1f");

}  // namespace

class TestAuditTrailSetting : public QObject
{
    Q_OBJECT

private slots:
    void nothingRecordedIsOff();
    void theStateIsKeptForTheHashAlone();
    void switchingOneDatabaseLeavesTheOther();
    void theTextCarriesTheRecord();
    void theTextSurvivesFoldingAndTellsNothing();
    void theStateOffIsRecordedToo();
    void hashesAreTakenLetterByLetter_data();
    void hashesAreTakenLetterByLetter();
    void unknownTextIsNoRecord_data();
    void unknownTextIsNoRecord();
};

void TestAuditTrailSetting::nothingRecordedIsOff()
{
    QVERIFY(!AuditTrailSetting().isEnabled(kMine));
    QCOMPARE(AuditTrailSetting().toText(), QString());
    bool readable = false;
    AuditTrailSetting::fromText(QString(), &readable);
    QVERIFY(readable);
}

void TestAuditTrailSetting::theStateIsKeptForTheHashAlone()
{
    AuditTrailSetting setting;
    setting.setEnabled(kMine, true);
    QVERIFY(setting.isEnabled(kMine));
    QVERIFY(!setting.isEnabled(kOther));
    setting.setEnabled(kMine, false);
    QVERIFY(!setting.isEnabled(kMine));
}

void TestAuditTrailSetting::switchingOneDatabaseLeavesTheOther()
{
    AuditTrailSetting setting;
    setting.setEnabled(kMine, true);
    setting.setEnabled(kOther, true);
    setting.setEnabled(kOther, false);
    QVERIFY(setting.isEnabled(kMine));
    QVERIFY(!setting.isEnabled(kOther));
}

void TestAuditTrailSetting::theTextCarriesTheRecord()
{
    AuditTrailSetting setting;
    setting.setEnabled(kMine, true);
    setting.setEnabled(kOther, false);
    bool readable = false;
    const AuditTrailSetting back = AuditTrailSetting::fromText(setting.toText(), &readable);
    QVERIFY(readable);
    QVERIFY(back.isEnabled(kMine));
    QVERIFY(!back.isEnabled(kOther));
    QCOMPARE(back.toText(), setting.toText());
}

void TestAuditTrailSetting::theTextSurvivesFoldingAndTellsNothing()
{
    AuditTrailSetting setting;
    setting.setEnabled(kMine, true);
    const QString text = setting.toText();
    QCOMPARE(text.toLower(), text);
    QVERIFY(!text.contains(kMine));
    QVERIFY(!text.contains(QLatin1Char('=')));
    QVERIFY(!text.contains(QLatin1Char(',')));
}

void TestAuditTrailSetting::theStateOffIsRecordedToo()
{
    AuditTrailSetting on;
    AuditTrailSetting off;
    on.setEnabled(kMine, true);
    off.setEnabled(kMine, false);
    QVERIFY(!off.toText().isEmpty());
    QVERIFY(off.toText() != on.toText());
}

void TestAuditTrailSetting::hashesAreTakenLetterByLetter_data()
{
    QTest::addColumn<QString>("other");

    QTest::newRow("in capitals") << kMine.toUpper();
    QTest::newRow("with a blank") << kMine + QLatin1Char(' ');
    QTest::newRow("cut short") << kMine.left(7);
    QTest::newRow("empty") << QString();
}

void TestAuditTrailSetting::hashesAreTakenLetterByLetter()
{
    QFETCH(QString, other);
    AuditTrailSetting setting;
    setting.setEnabled(kMine, true);
    QVERIFY(!setting.isEnabled(other));
}

void TestAuditTrailSetting::unknownTextIsNoRecord_data()
{
    QTest::addColumn<QString>("text");

    AuditTrailSetting setting;
    setting.setEnabled(kMine, true);
    const QString text = setting.toText();
    QTest::newRow("a truth value") << QStringLiteral("true");
    QTest::newRow("the version alone") << QStringLiteral("1");
    QTest::newRow("another version") << QLatin1Char('2') + text.mid(1);
    QTest::newRow("a digit missing") << text.left(text.size() - 1);
    QTest::newRow("a digit more") << text + QLatin1Char('0');
    QTest::newRow("an empty entry") << text + QLatin1Char('.');
    QTest::newRow("in capitals") << text.toUpper();
    QTest::newRow("the hash itself") << kMine;
}

void TestAuditTrailSetting::unknownTextIsNoRecord()
{
    QFETCH(QString, text);
    bool readable = true;
    const AuditTrailSetting setting = AuditTrailSetting::fromText(text, &readable);
    QVERIFY(!readable);
    QVERIFY(!setting.isEnabled(kMine));
}

QTEST_GUILESS_MAIN(TestAuditTrailSetting)
#include "test_audittrailsetting.moc"
