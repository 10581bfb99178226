#include "Corvane/settings/personbrowsersettingsview.h"
#include "settingstest.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

using namespace SettingsTest;

namespace {

constexpr char kLanguage[] = "language";
constexpr char kEthnicsList[] = "ethnic_groups_list";
constexpr char kEthnicsButton[] = "ethnic_groups";

bool hasLabel(const QWidget &page, const QString &text)
{
    for (const QLabel *label : page.findChildren<QLabel *>()) {
        if (label->text() == text)
            return true;
    }
    return false;
}

/// Turns every text of the page round, as any language would replace it.
class Reverser : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (QByteArray(context) != "PersonBrowserSettingsView")
            return QString();
        QString text = QString::fromUtf8(source);
        std::reverse(text.begin(), text.end());
        return text.replace(QLatin1String("1%"), QLatin1String("%1"));
    }
    bool isEmpty() const override
    {
        return false;
    }
};

}  // namespace

/// The languages of the General page: where they come from, their order, and the one that is selected.
class TestPersonBrowserLanguages : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aLanguageFileWithoutLanguagesGivesTheBuiltInOnes_data();
    void aLanguageFileWithoutLanguagesGivesTheBuiltInOnes();
    void theLanguageFileReplacesTheBuiltInLanguages();
    void aLanguagesTextMayHaveCommas();
    void languagesAreSortedByTheirTexts();
    void aStoredLanguageThatIsNotOfferedSelectsTheSystemLocaleAndIsSavedSo_data();
    void aStoredLanguageThatIsNotOfferedSelectsTheSystemLocaleAndIsSavedSo();
    void theTextsFollowTheLanguageAndTheSelectionStays();

private:
    QString languageFile() const
    {
        return m_workstation.dataDirectory() + QStringLiteral("language.ini");
    }

    Workstation m_workstation;
};

void TestPersonBrowserLanguages::init()
{
    useEmptySettings(m_workstation);
    QFile::remove(languageFile());
}

void TestPersonBrowserLanguages::aLanguageFileWithoutLanguagesGivesTheBuiltInOnes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("empty") << QByteArray("\n");
    QTest::newRow("with empty values only") << QByteArray("[General]\nfi=\nsv=\n");
    QTest::newRow("that is no ini file") << QByteArray("\0\xff\xfe no ini", 10);
}

void TestPersonBrowserLanguages::aLanguageFileWithoutLanguagesGivesTheBuiltInOnes()
{
    QFETCH(QByteArray, file);
    if (!file.isEmpty())
        QVERIFY(writeFile(languageFile(), file));
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    const auto *box = child<QComboBox>(page, kLanguage);
    QCOMPARE(box->count(), 31);
    QVERIFY(box->findData("dn") >= 0);
    QCOMPARE(box->itemText(box->findData("dn")), QStringLiteral("Danish"));
    QCOMPARE(box->itemText(30), QStringLiteral("System locale"));
    QCOMPARE(box->itemData(30).toString(), QStringLiteral("system"));
}

void TestPersonBrowserLanguages::theLanguageFileReplacesTheBuiltInLanguages()
{
    QVERIFY(writeFile(languageFile(),
                      "[General]\nxx=Zulu\nsv=Svenska \xc3\xa5\xc3\xa4\xc3\xb6\nfi=\nyy=Afrikaans\n"));
    setStored("application/language", "sv");
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    const auto *box = child<QComboBox>(page, kLanguage);
    QCOMPARE(items(box), QStringList({"Afrikaans", QStringLiteral("Svenska åäö"), "Zulu", "System locale"}));
    QCOMPARE(box->itemData(0).toString(), QStringLiteral("yy"));
    QCOMPARE(box->currentData().toString(), QStringLiteral("sv"));
}

void TestPersonBrowserLanguages::aLanguagesTextMayHaveCommas()
{
    QVERIFY(writeFile(languageFile(), "[General]\nxx=Zulu, northern, spoken\nyy=\"Zulu, southern\"\n"));
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QCOMPARE(items(child<QComboBox>(page, kLanguage)),
             QStringList({"Zulu, northern, spoken", "Zulu, southern", "System locale"}));
}

void TestPersonBrowserLanguages::languagesAreSortedByTheirTexts()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QStringList texts = items(child<QComboBox>(page, kLanguage));
    texts.removeLast();
    QStringList sorted = texts;
    std::sort(sorted.begin(), sorted.end());
    QCOMPARE(texts, sorted);
}

void TestPersonBrowserLanguages::aStoredLanguageThatIsNotOfferedSelectsTheSystemLocaleAndIsSavedSo_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("unknown") << "tlh";
    QTest::newRow("empty") << "";
    QTest::newRow("another case") << "EN_gb";
    QTest::newRow("the system's") << "system";
}

void TestPersonBrowserLanguages::aStoredLanguageThatIsNotOfferedSelectsTheSystemLocaleAndIsSavedSo()
{
    QFETCH(QString, language);
    setStored("application/language", language);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.reloadSettings();
    QCOMPARE(child<QComboBox>(page, kLanguage)->currentText(), QStringLiteral("System locale"));
    page.saveSettings();
    QCOMPARE(stored("application/language"), QVariant("system"));
}

void TestPersonBrowserLanguages::theTextsFollowTheLanguageAndTheSelectionStays()
{
    setStored("application/language", "sv");
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    Reverser reverser;
    QCoreApplication::installTranslator(&reverser);
    QCoreApplication::processEvents();
    QCOMPARE(child<QComboBox>(page, kLanguage)->currentText(), QStringLiteral("hsidewS"));
    QCOMPARE(child<QComboBox>(page, kLanguage)->currentData().toString(), QStringLiteral("sv"));
    QVERIFY(hasLabel(page, QStringLiteral("sgnittes noitacilppA")));
    QCOMPARE(child<QPushButton>(page, kEthnicsButton)->text(), QStringLiteral("tceleS (3)"));
    QCOMPARE(child<QListWidget>(page, kEthnicsList)->item(2)->text(), QStringLiteral("naisA"));
    QCoreApplication::removeTranslator(&reverser);
    QCoreApplication::processEvents();
    QCOMPARE(child<QComboBox>(page, kLanguage)->currentText(), QStringLiteral("Swedish"));
}

QTEST_MAIN(TestPersonBrowserLanguages)
#include "test_personbrowserlanguages.moc"
