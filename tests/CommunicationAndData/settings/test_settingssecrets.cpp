#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "storechecks.h"
#include "support/workstation.h"

#include <QSettings>
#include <QTest>

namespace {

const QString kPassword = QStringLiteral("persondb/password");

}  // namespace

/// Safe values of the store: in the file, in copies of it, in the image of all settings, and in the log.
class TestSettingsSecrets : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aSafeValueComesBackAndAgainAfterItsFormWasCopied();
    void aSafeValueCannotBeReadInTheFile();
    void aSafeValueSavedAgainIsNoDifference();
    void anUnreadableSafeValueCountsAsAbsent_data();
    void anUnreadableSafeValueCountsAsAbsent();
    void anUnreadableSafeValueIsReportedAgainInAnotherFile();

    void aSafeValueInTheImageHasBytesAndNoText();

    void noSecretIsInTheLog();

private:
    QString file(const QString &name) const
    {
        return m_workstation.dataDirectory() + name;
    }
    QString parking() const
    {
        return file(QStringLiteral("parking.ini"));
    }

    Workstation m_workstation;
    QString m_working;
    int m_count = 0;
};

void TestSettingsSecrets::init()
{
    m_working = file(QStringLiteral("working_%1.ini").arg(++m_count));
    store()->changeSettingsFile(m_working);
}

void TestSettingsSecrets::aSafeValueComesBackAndAgainAfterItsFormWasCopied()
{
    const QVariant secret = QString::fromUtf8("pässword, \"quoted\"=1");
    store()->setSafeValue(kPassword, secret);
    QCOMPARE(store()->safeValue(kPassword), secret);

    const QString path = file(QStringLiteral("between.ini"));
    {
        QSettings between(path, QSettings::IniFormat);
        between.setValue(kPassword, store()->generalSettings()->value(kPassword));
    }
    store()->changeSettingsFile(file(QStringLiteral("other.ini")));
    {
        const QSettings between(path, QSettings::IniFormat);
        store()->generalSettings()->setValue(kPassword, between.value(kPassword));
    }
    QCOMPARE(store()->safeValue(kPassword), secret);
    store()->changeSettingsFile(parking());
    store()->changeSettingsFile(file(QStringLiteral("other.ini")));
    QCOMPARE(store()->safeValue(kPassword), secret);
}

void TestSettingsSecrets::aSafeValueCannotBeReadInTheFile()
{
    const QByteArray secret = "correct horse battery staple";
    store()->setSafeValue(kPassword, QString::fromLatin1(secret));
    store()->changeSettingsFile(parking());
    const QByteArray bytes = readFile(m_working);
    QVERIFY(bytes.contains("password="));
    QVERIFY(!bytes.contains(secret));
    QVERIFY(!bytes.contains(secret.toHex()));
    QVERIFY(!bytes.contains(secret.toBase64().left(16)));
}

void TestSettingsSecrets::aSafeValueSavedAgainIsNoDifference()
{
    store()->setSafeValue(kPassword, QStringLiteral("secret"));
    const QMap<QString, QVariant> before = stashed();
    store()->setSafeValue(kPassword, QStringLiteral("secret"));
    QCOMPARE(stashed(), before);
    store()->setSafeValue(kPassword, QStringLiteral("Secret"));
    QVERIFY(stashed() != before);
}

void TestSettingsSecrets::anUnreadableSafeValueCountsAsAbsent_data()
{
    QTest::addColumn<QVariant>("stored");

    store()->changeSettingsFile(file(QStringLiteral("forms.ini")));
    store()->setSafeValue(kPassword, QStringLiteral("secret"));
    const QByteArray form = store()->value(kPassword).toByteArray();
    QByteArray flipped = form;
    flipped[form.size() - 1] = form.endsWith('0') ? '1' : '0';

    QTest::newRow("a plain text is foreign") << QVariant(QStringLiteral("admin"));
    QTest::newRow("one digit changed") << QVariant(flipped);
    QTest::newRow("the last two digits missing") << QVariant(form.left(form.size() - 2));
    QTest::newRow("only the mark left") << QVariant(QByteArray(1, '\0'));
    QTest::newRow("no bytes left") << QVariant(QByteArray());
    QTest::newRow("the mark missing") << QVariant(form.mid(1));
    QTest::newRow("a list in its place") << QVariant(QStringList{QStringLiteral("a"), QStringLiteral("b")});
}

void TestSettingsSecrets::anUnreadableSafeValueCountsAsAbsent()
{
    QFETCH(QVariant, stored);
    store()->generalSettings()->setValue(kPassword, stored);
    const int before = linesWith(m_workstation.runtimeLog(), kPassword).size();
    QCOMPARE(store()->safeValue(kPassword, QStringLiteral("default")).toString(), QStringLiteral("default"));
    QCOMPARE(store()->safeValue(kPassword, QStringLiteral("default")).toString(), QStringLiteral("default"));

    const QStringList lines = linesWith(m_workstation.runtimeLog(), kPassword);
    QCOMPARE(lines.size(), before + 1);
    QVERIFY(lines.last().startsWith(QLatin1String("WRN CV: ")));
    QCOMPARE(store()->generalSettings()->value(kPassword), stored);
}

void TestSettingsSecrets::anUnreadableSafeValueIsReportedAgainInAnotherFile()
{
    const auto reported = [this] {
        return linesWith(m_workstation.runtimeLog(), kPassword).size();
    };
    const int before = reported();
    for (int i = 1; i <= 2; ++i) {
        store()->changeSettingsFile(file(QStringLiteral("foreign_%1.ini").arg(i)));
        store()->setValue(kPassword, QStringLiteral("admin"));
        store()->safeValue(kPassword);
        QCOMPARE(reported(), before + i);
    }
}

void TestSettingsSecrets::aSafeValueInTheImageHasBytesAndNoText()
{
    store()->setSafeValue(kPassword, QStringLiteral("secret"));
    const QByteArray form = store()->value(kPassword).toByteArray();
    QCOMPARE(stashed().value(kPassword).toString(), QString());
    QCOMPARE(stashed().value(kPassword).toByteArray(), form);
    QVERIFY(!form.isEmpty());

    store()->setValue(kPassword, QString::fromLatin1(form.constData(), form.size()));
    QCOMPARE(stashed().value(kPassword).toString(), QString());
    QCOMPARE(stashed().value(kPassword).toByteArray(), form);

    store()->changeSettingsFile(parking());
    store()->changeSettingsFile(m_working);
    QCOMPARE(stashed().value(kPassword).toString(), QString());
    QCOMPARE(stashed().value(kPassword).toByteArray(), form);
    QCOMPARE(store()->safeValue(kPassword).toString(), QStringLiteral("secret"));
}

void TestSettingsSecrets::noSecretIsInTheLog()
{
    const QString secret = QStringLiteral("correct horse battery staple");
    store()->setSafeValue(kPassword, secret);
    QByteArray form = store()->value(kPassword).toByteArray();
    form[form.size() - 1] = form.endsWith('0') ? '1' : '0';
    store()->setValue(kPassword, form);
    store()->safeValue(kPassword);
    store()->setValue(kPassword, secret);
    store()->safeValue(kPassword);
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QVERIFY(log.contains("persondb/password"));
    QVERIFY(!log.contains(secret.toUtf8()));
    QVERIFY(!log.contains(form.mid(1, 16)));
}

QTEST_GUILESS_MAIN(TestSettingsSecrets)
#include "test_settingssecrets.moc"
