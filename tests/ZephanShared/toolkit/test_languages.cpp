#include "ZephanShared/toolkit/languages.h"

#include <QTest>

class TestLanguages : public QObject
{
    Q_OBJECT

private slots:
    void tableHasAllLanguagesInOrder();
    void findsByExactCode_data();
    void findsByExactCode();
    void systemLanguage_data();
    void systemLanguage();
};

void TestLanguages::tableHasAllLanguagesInOrder()
{
    const QStringList expected = {
        QStringLiteral("cs Czech"),
        QStringLiteral("de_AT German (Austria)"),
        QStringLiteral("de_DE German"),
        QStringLiteral("dn Danish"),
        QStringLiteral("el Greek"),
        QStringLiteral("en_GB English (UK)"),
        QStringLiteral("en_US English (US)"),
        QStringLiteral("et Estonian"),
        QStringLiteral("fi Finnish"),
        QStringLiteral("fr French"),
        QStringLiteral("hu Hungarian"),
        QStringLiteral("it Italian"),
        QStringLiteral("ja Japanese"),
        QStringLiteral("nb Norwegian (Bokmål)"),
        QStringLiteral("nl Dutch"),
        QStringLiteral("nl_BE Flemish"),
        QStringLiteral("pl Polish"),
        QStringLiteral("pt Portuguese"),
        QStringLiteral("pt_BR Portuguese (Brazil)"),
        QStringLiteral("ru Russian"),
        QStringLiteral("es Spanish"),
        QStringLiteral("sv Swedish"),
        QStringLiteral("tr Turkish"),
        QStringLiteral("th Thai"),
        QStringLiteral("zh_Hans_CN Chinese (PRC Simpl.)"),
        QStringLiteral("zh_Hans_HK Chinese (Hong Kong Simpl.)"),
        QStringLiteral("zh_Hans_TW Chinese (Taiwan Simpl.)"),
        QStringLiteral("zh_Hant_CN Chinese (PRC Trad.)"),
        QStringLiteral("zh_Hant_HK Chinese (Hong Kong trad.)"),
        QStringLiteral("zh_Hant_TW Chinese (Taiwan trad.)"),
    };
    QStringList actual;
    for (const Language &language : languages())
        actual.append(QLatin1String(language.code) + QLatin1Char(' ') + QString::fromUtf8(language.name));
    QCOMPARE(actual, expected);
}

void TestLanguages::findsByExactCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");

    QTest::newRow("a code of the table") << "ja"
                                         << "Japanese";
    QTest::newRow("the last code of the table") << "zh_Hant_TW"
                                                << "Chinese (Taiwan trad.)";
    QTest::newRow("an unknown code is not found") << "xx" << QString();
    QTest::newRow("a code in other case is not found") << "JA" << QString();
    QTest::newRow("a code with a hyphen is not found") << "de-DE" << QString();
    QTest::newRow("a beginning of a code is not found") << "zh" << QString();
    QTest::newRow("an empty code is not found") << QString() << QString();
}

void TestLanguages::findsByExactCode()
{
    QFETCH(QString, code);
    QFETCH(QString, name);
    const Language *language = findLanguage(code);
    QCOMPARE(language ? QString::fromUtf8(language->name) : QString(), name);
}

void TestLanguages::systemLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("code");

    QTest::newRow("British English") << "en-GB"
                                     << "en_GB";
    QTest::newRow("English alone is American") << "en"
                                               << "en_US";
    QTest::newRow("Hong Kong is traditional") << "zh-HK"
                                              << "zh_Hant_HK";
    QTest::newRow("Chinese alone is the simplified one of the PRC") << "zh"
                                                                    << "zh_Hans_CN";
    QTest::newRow("Taiwan is traditional") << "zh-TW"
                                           << "zh_Hant_TW";
    QTest::newRow("Danish has the code of its file, dn") << "da"
                                                         << "dn";
    QTest::newRow("Flemish") << "nl-BE"
                             << "nl_BE";
    QTest::newRow("Austrian German") << "de-AT"
                                     << "de_AT";
    QTest::newRow("German gets a hyphen, which names no file") << "de"
                                                               << "de-DE";
    QTest::newRow("Portuguese of Portugal") << "pt-PT"
                                            << "pt";
    QTest::newRow("Portuguese of Brazil") << "pt-BR"
                                          << "pt_BR";
    QTest::newRow("any other name stays") << "fi"
                                          << "fi";
    QTest::newRow("any other name with a country stays") << "en-AU"
                                                         << "en-AU";
    QTest::newRow("other case is another name") << "EN-GB"
                                                << "EN-GB";
    QTest::newRow("a code of the suite is no locale name and stays") << "en_GB"
                                                                     << "en_GB";
    QTest::newRow("an empty name stays empty") << QString() << QString();
}

void TestLanguages::systemLanguage()
{
    QFETCH(QString, locale);
    QFETCH(QString, code);
    QCOMPARE(systemLanguageCode(locale), code);
}

QTEST_GUILESS_MAIN(TestLanguages)
#include "test_languages.moc"
