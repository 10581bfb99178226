#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/loginview.h"
#include "Corvane/views/startlanguage.h"
#include "Corvane/views/translationfiles.h"
#include "programfolder.h"
#include "support/userinput.h"
#include "support/workstation.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <memory>

/// The selector on the login view. The test lies in a folder of its own, whose translations it makes and
/// removes.
class TestLanguageSelector : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void emptyDirectoryOfTranslationsGivesAnEmptyCombo();
    void listShowsTranslatedNamesSortedByText();
    void unknownCodeShowsUpUnderThatCode();
    void onlyTranslationFilesAreListed();
    void presentLanguageIsSelectedWithoutBeingChosen_data();
    void presentLanguageIsSelectedWithoutBeingChosen();
    void choosingALanguageChangesTheTextsAtOnceAndIsKept();
    void selectorDoesNotFireWhenItIsRebuilt();
    void keyboardStaysInTheSelectorWhenItIsRebuilt();
    void damagedTranslationLeavesTheLanguageAsItWas();
    void withoutAHandlerTheChoiceIsKeptInTheCurrentDirectory();

private:
    void addTranslations(const QStringList &codes);
    void keep(const QString &language);
    QString kept() const;
    void showView();
    QComboBox *combo() const;
    QStringList texts() const;
    QString heading() const;

    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<QTranslator> m_translator;
    std::unique_ptr<LoginView> m_view;
};

void TestLanguageSelector::initTestCase()
{
    m_workstation = std::make_unique<Workstation>();
}

void TestLanguageSelector::init()
{
    QVERIFY(QDir().mkpath(TranslationFiles::directory()));
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation->dataDirectory(), nullptr);
    m_translator = std::make_unique<QTranslator>();
}

void TestLanguageSelector::cleanup()
{
    m_view.reset();
    m_handler.reset();
    m_translator.reset();
    for (QTranslator *left : QCoreApplication::instance()->findChildren<QTranslator *>())
        delete left;
    QDir(TranslationFiles::directory()).removeRecursively();
    QFile::remove(m_workstation->dataDirectory() + LocalCache::kFileName);
}

void TestLanguageSelector::addTranslations(const QStringList &codes)
{
    for (const QString &code : codes)
        QVERIFY(makeTranslation(TranslationFiles::directory(), code));
}

void TestLanguageSelector::keep(const QString &language)
{
    openSettingsFile(m_workstation->dataDirectory() + LocalCache::kFileName)
        ->setValue(LocalCache::kLanguage, language);
}

QString TestLanguageSelector::kept() const
{
    return openSettingsFile(m_workstation->dataDirectory() + LocalCache::kFileName)
        ->value(LocalCache::kLanguage)
        .toString();
}

/// As the start of the program does it.
void TestLanguageSelector::showView()
{
    const auto localCache = openSettingsFile(m_workstation->dataDirectory() + LocalCache::kFileName);
    installTranslation(*m_translator, startLanguage(*localCache));
    m_view = std::make_unique<LoginView>(m_handler.get(), m_translator.get());
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

QComboBox *TestLanguageSelector::combo() const
{
    return m_view->findChild<QComboBox *>("language_combo");
}

QStringList TestLanguageSelector::texts() const
{
    QStringList texts;
    for (int i = 0; i < combo()->count(); ++i)
        texts.append(combo()->itemText(i));
    return texts;
}

QString TestLanguageSelector::heading() const
{
    return m_view->findChild<QLabel *>("heading_label")->text();
}

void TestLanguageSelector::emptyDirectoryOfTranslationsGivesAnEmptyCombo()
{
    keep("fi");
    showView();
    QCOMPARE(combo()->count(), 0);
    QVERIFY(combo()->isVisible());
    QCOMPARE(combo()->height(), 25);
    QVERIFY(!combo()->accessibleName().isEmpty());
}

void TestLanguageSelector::listShowsTranslatedNamesSortedByText()
{
    addTranslations({"en_GB", "dn", "zh_Hant_TW", "cs", "nb"});
    showView();
    QCOMPARE(texts(), (QStringList{"Chinese (Taiwan trad.)", "Czech", "Danish", "English (UK)",
                                   QString::fromUtf8("Norwegian (Bokmål)")}));
    QCOMPARE(combo()->itemData(0).toString(), QStringLiteral("zh_Hant_TW"));
    QCOMPARE(combo()->itemData(2).toString(), QStringLiteral("dn"));
}

void TestLanguageSelector::unknownCodeShowsUpUnderThatCode()
{
    addTranslations({"en_GB", "tlh_Latn", "EN_gb"});
    showView();
    QCOMPARE(texts(), (QStringList{"EN_gb", "English (UK)", "tlh_Latn"}));
    QCOMPARE(combo()->itemData(2).toString(), QStringLiteral("tlh_Latn"));
}

void TestLanguageSelector::onlyTranslationFilesAreListed()
{
    addTranslations({"fi"});
    const QString folder = TranslationFiles::directory() + '/';
    QVERIFY(writeFile(folder + "Corvane_sv.ts", "source"));
    QVERIFY(writeFile(folder + "Other_et.qm", "another program's"));
    QVERIFY(QDir(folder).mkdir("Corvane_it.qm"));
    showView();
    QCOMPARE(texts().size(), 1);
    QCOMPARE(combo()->itemData(0).toString(), QStringLiteral("fi"));
}

void TestLanguageSelector::presentLanguageIsSelectedWithoutBeingChosen_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("selected");

    QTest::newRow("the kept one") << "fi"
                                  << "fi";
    QTest::newRow("one without a file selects nothing") << "sv" << QString();
    QTest::newRow("letters count") << "FI" << QString();
    QTest::newRow("no part of a code will do") << "en" << QString();
}

void TestLanguageSelector::presentLanguageIsSelectedWithoutBeingChosen()
{
    QFETCH(QString, language);
    QFETCH(QString, selected);
    addTranslations({"en_GB", "fi"});
    keep(language);
    showView();
    QCOMPARE(combo()->currentData().toString(), selected);
    QCOMPARE(kept(), language);
}

void TestLanguageSelector::choosingALanguageChangesTheTextsAtOnceAndIsKept()
{
    addTranslations({"en_GB", "fi"});
    showView();
    QCOMPARE(heading(), "<b>" + translatedText("Select to login as", "en_GB") + ":</b>");
    chooseEntry(combo(), combo()->findData("fi"));
    QTRY_COMPARE(heading(), "<b>" + translatedText("Select to login as", "fi") + ":</b>");
    QCOMPARE(m_view->findChild<QLabel *>("language_label")->text(), translatedText("Language:", "fi"));
    QCOMPARE(m_view->findChild<QLabel *>("authenticated_user_label")->text(),
             translatedText("Authenticated user", "fi") + ':');
    QCOMPARE(combo()->currentText(), translatedText("Finnish", "fi"));
    QCOMPARE(kept(), QStringLiteral("fi"));
    QCOMPARE(m_view->findChildren<QComboBox *>("language_combo").size(), 1);

    chooseEntry(combo(), combo()->findData("en_GB"));
    QTRY_COMPARE(heading(), "<b>" + translatedText("Select to login as", "en_GB") + ":</b>");
    QCOMPARE(kept(), QStringLiteral("en_GB"));
}

void TestLanguageSelector::selectorDoesNotFireWhenItIsRebuilt()
{
    addTranslations({"en_GB", "fi"});
    showView();
    keep("xx");  // a choice would overwrite it
    const QPointer<QComboBox> before = combo();
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_view.get(), &change);
    QVERIFY(!before);
    QCOMPARE(combo()->currentIndex(), -1);
    QCOMPARE(kept(), QStringLiteral("xx"));
    QCOMPARE(QCoreApplication::instance()->findChildren<QTranslator *>().size(), 0);
}

void TestLanguageSelector::keyboardStaysInTheSelectorWhenItIsRebuilt()
{
    addTranslations({"en_GB", "fi"});
    showView();
    combo()->setFocus();
    QTest::keyClick(combo(), Qt::Key_Down);
    QTRY_COMPARE(kept(), QStringLiteral("fi"));
    QTRY_COMPARE(heading(), "<b>" + translatedText("Select to login as", "fi") + ":</b>");
    QTRY_VERIFY(combo()->hasFocus());
}

void TestLanguageSelector::damagedTranslationLeavesTheLanguageAsItWas()
{
    addTranslations({"en_GB"});
    QVERIFY(writeFile(TranslationFiles::directory() + "/Corvane_fi.qm", "no translation"));
    showView();
    const QString before = heading();
    chooseEntry(combo(), combo()->findData("fi"));
    QCoreApplication::processEvents();
    QCOMPARE(heading(), before);
    QCOMPARE(kept(), QStringLiteral("en_GB"));
}

void TestLanguageSelector::withoutAHandlerTheChoiceIsKeptInTheCurrentDirectory()
{
    const QString elsewhere = m_workstation->path("elsewhere");
    QVERIFY(QDir().mkpath(elsewhere));
    const QString before = QDir::currentPath();
    QDir::setCurrent(elsewhere);
    addTranslations({"en_GB", "fi"});
    m_handler.reset();
    m_view = std::make_unique<LoginView>(nullptr, m_translator.get());
    QCOMPARE(combo()->currentData().toString(), QStringLiteral("en_GB"));
    m_view->show();
    chooseEntry(combo(), combo()->findData("fi"));
    QCOMPARE(QSettings(elsewhere + "/local_cache", QSettings::IniFormat).value("language").toString(),
             QStringLiteral("fi"));
    QVERIFY(kept().isEmpty());
    QDir::setCurrent(before);
}

QTEST_MAIN(TestLanguageSelector)
#include "test_languageselector.moc"
