#include "ZephanShared/toolkit/applicationhelper.h"
#include "support/pluginfolder.h"
#include "support/workstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPluginLoader>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace {

const auto kLoadMode = QLatin1String("--load-plugins-of");
constexpr int kChildPatience = 60000;  // milliseconds

const QString kAlpha = QStringLiteral("Alpha");
const QString kBeta = QStringLiteral("Beta");

QString fileIn(const PluginFolder &folder, const QString &name)
{
    return folder.path() + QLatin1Char('/') + name;
}

QVariant told(AbstractApplication *application, const char *property)
{
    const auto *object = dynamic_cast<QObject *>(application);
    return object ? object->property(property) : QVariant();
}

bool isLoaded(const QString &file)
{
    return QPluginLoader(file).isLoaded();
}

/// A run of a program that does nothing but load the plug-ins of a folder.
int loadAsChild(const QStringList &arguments)
{
    QCoreApplication::setLibraryPaths({arguments.constLast()});
    ApplicationHelper helper;
    return helper.applications(QString()).size();
}

}  // namespace

/// The search for plug-ins, on real ones in real folders.
class TestApplicationHelper : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void aPathThatEndsInPluginsIsSearchedDirectly_data();
    void aPathThatEndsInPluginsIsSearchedDirectly();
    void anotherPathIsSearchedInItsPluginsSubfolder();
    void aPathWithoutAPluginsFolderIsSkipped_data();
    void aPathWithoutAPluginsFolderIsSkipped();
    void foldersBelowAreNotSearched();
    void allPathsAreSearchedInTheirOrder();

    void anEmptyMapLoadsAgainAtTheNextRequest();
    void aFilledMapIsNotFilledAgain();
    void eachHelperFindsTheSameObjects();
    void noPluginsIsANormalState();

    void aFileThatIsNoPluginLeavesNoTrace_data();
    void aFileThatIsNoPluginLeavesNoTrace();
    void aPluginThatCanNotBeLoadedIsNotReportedAndTheOthersGoOn();
    void aPluginWithoutAnInstanceIsReportedAndTheOthersGoOn();
    void aPluginOfAnotherInterfaceIsUnloaded_data();
    void aPluginOfAnotherInterfaceIsUnloaded();

    void aLaterPluginOfTheSameNameReplacesTheEarlier();
    void namesThatContainOthersStandSideBySide();
    void anApplicationLearnsItsPluginsFolder();
    void anApplicationIsAskedForItsObjectEachTime();
    void withASettingsFileTheTranslatorOfItsLanguageIsInstalled_data();
    void withASettingsFileTheTranslatorOfItsLanguageIsInstalled();
    void withoutASettingsFileNoTranslatorIsAskedFor();
    void theSamplesBringTheirTranslations();

    void aPluginThatCrashesIsTheLastThatTheRuntimeLogNames();
    void thousandsOfFilesAreGoneThrough();

private:
    Workstation m_workstation;
};

void TestApplicationHelper::initTestCase()
{
    qRegisterMetaType<Actions::Action>("Actions::Action");
    qRegisterMetaType<ZephanError>("ZephanError");
}

void TestApplicationHelper::aPathThatEndsInPluginsIsSearchedDirectly_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plugins") << QStringLiteral("plugins");
    QTest::newRow("a capital letter") << QStringLiteral("Plugins");
    QTest::newRow("all capitals") << QStringLiteral("PLUGINS");
    QTest::newRow("a longer name") << QStringLiteral("site-pluGins");
    QTest::newRow("a letter outside Latin 1") << QStringLiteral("機器plugins");
}

void TestApplicationHelper::aPathThatEndsInPluginsIsSearchedDirectly()
{
    QFETCH(QString, name);
    PluginFolder folder(name);
    QCOMPARE(folder.path(), folder.libraryPath());
    QVERIFY(folder.add(QStringLiteral("alpha")));
    ApplicationHelper helper;
    QCOMPARE(helper.applications(QString()).keys(), QStringList{kAlpha});
}

void TestApplicationHelper::anotherPathIsSearchedInItsPluginsSubfolder()
{
    PluginFolder folder(QStringLiteral("bin"));
    QVERIFY(folder.add(QStringLiteral("alpha")));
    QVERIFY(QFile::copy(fileIn(folder, QStringLiteral("alpha.plugin")),
                        folder.libraryPath() + QStringLiteral("/beside.plugin")));
    ApplicationHelper helper;
    QCOMPARE(helper.applications(QString()).size(), 1);
    QVERIFY(!isLoaded(folder.libraryPath() + QStringLiteral("/beside.plugin")));
}

void TestApplicationHelper::aPathWithoutAPluginsFolderIsSkipped_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a folder without a subfolder") << m_workstation.temporaryDirectory();
    QTest::newRow("a folder that is not there") << QStringLiteral("/there/is/nothing/here");
    QTest::newRow("plugins that are not there") << QStringLiteral("/there/is/nothing/plugins");
    QTest::newRow("an empty path") << QString();
}

void TestApplicationHelper::aPathWithoutAPluginsFolderIsSkipped()
{
    QFETCH(QString, path);
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    QCoreApplication::setLibraryPaths({path, folder.path()});
    ApplicationHelper helper;
    QCOMPARE(helper.applications(QString()).keys(), QStringList{kAlpha});
}

void TestApplicationHelper::foldersBelowAreNotSearched()
{
    const PluginFolder folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("deeper")));
    QVERIFY(QFile::copy(PluginFolder::trialFile(QStringLiteral("alpha")),
                        fileIn(folder, QStringLiteral("deeper/alpha.plugin"))));
    ApplicationHelper helper;
    QVERIFY(helper.applications(QString()).isEmpty());
}

void TestApplicationHelper::allPathsAreSearchedInTheirOrder()
{
    PluginFolder first;
    PluginFolder second(QStringLiteral("bin"));
    QVERIFY(first.add(QStringLiteral("alpha_later")));
    QVERIFY(first.add(QStringLiteral("beta")));
    QVERIFY(second.add(QStringLiteral("alpha")));
    for (const bool isSecondLast : {true, false}) {
        QCoreApplication::setLibraryPaths(isSecondLast
                                              ? QStringList{first.libraryPath(), second.libraryPath()}
                                              : QStringList{second.libraryPath(), first.libraryPath()});
        ApplicationHelper helper;
        const auto applications = helper.applications(QString());
        QCOMPARE(applications.keys(), (QStringList{kAlpha, kBeta}));
        QCOMPARE(applications.value(kAlpha)->displayName(),
                 isSecondLast ? QStringLiteral("Alpha study") : QStringLiteral("Alpha study, later"));
    }
}

void TestApplicationHelper::anEmptyMapLoadsAgainAtTheNextRequest()
{
    PluginFolder folder;
    ApplicationHelper helper;
    QVERIFY(helper.applications(QString()).isEmpty());
    QVERIFY(folder.add(QStringLiteral("alpha")));
    QCOMPARE(helper.applications(QString()).keys(), QStringList{kAlpha});
}

void TestApplicationHelper::aFilledMapIsNotFilledAgain()
{
    PluginFolder folder;
    ApplicationHelper helper;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    QCOMPARE(helper.applications(QString()).size(), 1);
    QVERIFY(folder.add(QStringLiteral("beta")));
    QCOMPARE(helper.applications(QString()).size(), 1);
    QVERIFY(!isLoaded(fileIn(folder, QStringLiteral("beta.plugin"))));
    helper.loadPlugins(QString());
    QCOMPARE(helper.applications(QString()).size(), 2);
}

void TestApplicationHelper::eachHelperFindsTheSameObjects()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    AbstractApplication *first = ApplicationHelper().applications(QString()).value(kAlpha);
    AbstractApplication *second = ApplicationHelper().applications(QString()).value(kAlpha);
    QVERIFY(first);
    QCOMPARE(first, second);
    QCOMPARE(first->displayName(), QStringLiteral("Alpha study"));
    QVERIFY(ApplicationHelper().replacedApplications().isEmpty());
}

void TestApplicationHelper::noPluginsIsANormalState()
{
    const PluginFolder folder;
    ApplicationHelper helper;
    QSignalSpy errors(&helper, &ApplicationHelper::logError);
    QVERIFY(helper.applications(m_workstation.dataDirectory() + QStringLiteral("local_cache")).isEmpty());
    QVERIFY(errors.isEmpty());
}

void TestApplicationHelper::aFileThatIsNoPluginLeavesNoTrace_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray plugin = readFile(PluginFolder::trialFile(QStringLiteral("alpha")));
    QTest::newRow("a text") << QByteArray("Copy the plug-ins into this folder.\n");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a plug-in that was copied halfway") << plugin.left(plugin.size() / 2);
    QTest::newRow("the beginning of a plug-in") << plugin.left(64);
    QTest::newRow("a plug-in without its beginning") << plugin.mid(64);
    QTest::newRow("a plug-in's description of itself alone")
        << QByteArray("QTMETADATA !\x01\x02\xff\x00", 16);
    QTest::newRow("a library that is no plug-in")
        << readFile(PluginFolder::trialFile(QStringLiteral("plainlibrary")));
}

void TestApplicationHelper::aFileThatIsNoPluginLeavesNoTrace()
{
    QFETCH(QByteArray, content);
    PluginFolder folder;
    QVERIFY(writeFile(fileIn(folder, QStringLiteral("stray.plugin")), content));
    QVERIFY(folder.add(QStringLiteral("beta")));
    QVERIFY(QFile::link(QStringLiteral("/there/is/nothing"), fileIn(folder, QStringLiteral("link.plugin"))));
    ApplicationHelper helper;
    QSignalSpy errors(&helper, &ApplicationHelper::logError);
    QCOMPARE(helper.applications(QString()).keys(), QStringList{kBeta});
    QVERIFY(errors.isEmpty());
    QVERIFY(!readFile(m_workstation.runtimeLog()).contains("stray.plugin"));
}

void TestApplicationHelper::aPluginThatCanNotBeLoadedIsNotReportedAndTheOthersGoOn()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    QVERIFY(folder.add(QStringLiteral("unloadable"), QStringLiteral("b.plugin")));
    QVERIFY(folder.add(QStringLiteral("beta"), QStringLiteral("c.plugin")));
    QPluginLoader loader(fileIn(folder, QStringLiteral("b.plugin")));
    QVERIFY(!loader.metaData().isEmpty());
    QVERIFY(!loader.load());

    ApplicationHelper helper;
    QSignalSpy errors(&helper, &ApplicationHelper::logError);
    QCOMPARE(helper.applications(QString()).keys(), (QStringList{kAlpha, kBeta}));
    QVERIFY(errors.isEmpty());
}

void TestApplicationHelper::aPluginWithoutAnInstanceIsReportedAndTheOthersGoOn()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("beta"), QStringLiteral("a.plugin")));
    QVERIFY(folder.add(QStringLiteral("nullinstance")));
    QVERIFY(folder.add(QStringLiteral("alpha"), QStringLiteral("z.plugin")));
    ApplicationHelper helper;
    QSignalSpy errors(&helper, &ApplicationHelper::logError);
    QCOMPARE(helper.applications(QString()).keys(), (QStringList{kAlpha, kBeta}));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).value<Actions::Action>(), Actions::LoadPlugin);
    QCOMPARE(errors.first().at(1).value<ZephanError>(), 0x09300000U);
    QCOMPARE(errors.first().at(2).toString(), QStringLiteral("Plugin failure: nullinstance.plugin"));

    const QList<QByteArray> lines = readFile(m_workstation.runtimeLog()).split('\n');
    const auto reported = std::find_if(lines.cbegin(), lines.cend(),
                                       [](const QByteArray &line) { return line.contains("0x9300000"); });
    QVERIFY(reported != lines.cend());
    QVERIFY2(reported->contains("ApplicationHelper::loadPlugins"), reported->constData());
    QVERIFY2(reported->startsWith("ERR CV"), reported->constData());
}

void TestApplicationHelper::aPluginOfAnotherInterfaceIsUnloaded_data()
{
    QTest::addColumn<QString>("trial");
    QTest::newRow("a plug-in of another program") << QStringLiteral("otherinterface");
    QTest::newRow("a study plug-in without an application object") << QStringLiteral("empty");
}

void TestApplicationHelper::aPluginOfAnotherInterfaceIsUnloaded()
{
    QFETCH(QString, trial);
    PluginFolder folder;
    QVERIFY(folder.add(trial));
    QVERIFY(folder.add(QStringLiteral("beta"), QStringLiteral("z.plugin")));
    ApplicationHelper helper;
    QSignalSpy errors(&helper, &ApplicationHelper::logError);
    QCOMPARE(helper.applications(QString()).keys(), QStringList{kBeta});
    QVERIFY(errors.isEmpty());
    QVERIFY(!isLoaded(fileIn(folder, trial + QStringLiteral(".plugin"))));
    QVERIFY(isLoaded(fileIn(folder, QStringLiteral("z.plugin"))));
}

void TestApplicationHelper::aLaterPluginOfTheSameNameReplacesTheEarlier()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    QVERIFY(folder.add(QStringLiteral("alpha_later")));
    ApplicationHelper helper;
    const auto applications = helper.applications(QString());
    QCOMPARE(applications.keys(), QStringList{kAlpha});
    QCOMPARE(applications.value(kAlpha)->displayName(), QStringLiteral("Alpha study, later"));
    QCOMPARE(helper.replacedApplications().value(kAlpha)->displayName(), QStringLiteral("Alpha study"));
}

void TestApplicationHelper::namesThatContainOthersStandSideBySide()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    QVERIFY(folder.add(QStringLiteral("ruvenkaplus")));
    QVERIFY(folder.add(QStringLiteral("nameless")));
    ApplicationHelper helper;
    QCOMPARE(helper.applications(QString()).keys(),
             (QStringList{QString(), QStringLiteral("NightOximetry"), QStringLiteral("Ruvenka"),
                          QStringLiteral("RuvenkaPlus")}));
}

void TestApplicationHelper::anApplicationLearnsItsPluginsFolder()
{
    PluginFolder folder(QStringLiteral("bin"));
    QVERIFY(folder.add(QStringLiteral("alpha")));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.libraryPath()));
    QCoreApplication::setLibraryPaths({QStringLiteral(".")});
    ApplicationHelper helper;
    AbstractApplication *alpha = helper.applications(QString()).value(kAlpha);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(alpha);
    QCOMPARE(told(alpha, "pluginPath").toString(), folder.path());
}

void TestApplicationHelper::anApplicationIsAskedForItsObjectEachTime()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    const QString cache = m_workstation.path(QStringLiteral("each_time.ini"));
    QVERIFY(writeFile(cache, "[General]\nlanguage=fi\n"));
    ApplicationHelper helper;
    const QStringList calls = told(helper.applications(cache).value(kAlpha), "calls").toStringList();
    QVERIFY(calls.count(QStringLiteral("application 1")) >= 2);
    QCOMPARE(QStringList(calls.mid(calls.indexOf(QStringLiteral("setPluginPath")))),
             (QStringList{QStringLiteral("setPluginPath"), QStringLiteral("application 1"),
                          QStringLiteral("translator fi")}));
}

void TestApplicationHelper::withASettingsFileTheTranslatorOfItsLanguageIsInstalled_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("title");
    QTest::newRow("a language") << QByteArray("[General]\nlanguage=fi\n") << QStringLiteral("fi")
                                << QStringLiteral("fi Beta study");
    QTest::newRow("a language with a country")
        << QByteArray("[General]\nlanguage=pt_BR\n") << QStringLiteral("pt_BR")
        << QStringLiteral("pt_BR Beta study");
    QTest::newRow("no language") << QByteArray("[General]\nother=1\n") << QString()
                                 << QStringLiteral("Beta study");
    QTest::newRow("an empty file") << QByteArray() << QString() << QStringLiteral("Beta study");
    QTest::newRow("no file") << QByteArray("-") << QString() << QStringLiteral("Beta study");
}

void TestApplicationHelper::withASettingsFileTheTranslatorOfItsLanguageIsInstalled()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, code);
    QFETCH(QString, title);
    static int count = 0;
    const QString cache = m_workstation.path(QStringLiteral("cache_%1").arg(++count));
    if (settings != "-")
        QVERIFY(writeFile(cache, settings));
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("beta")));
    ApplicationHelper helper;
    AbstractApplication *beta = helper.applications(cache).value(kBeta);
    QCOMPARE(told(beta, "calls").toStringList().constLast(), QStringLiteral("translator ") + code);
    QCOMPARE(beta->displayName(), title);
    QCOMPARE(QFile::exists(cache), settings != "-");
    QCoreApplication::removeTranslator(beta->translator(code));
}

void TestApplicationHelper::withoutASettingsFileNoTranslatorIsAskedFor()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("beta")));
    ApplicationHelper helper;
    AbstractApplication *beta = helper.applications(QString()).value(kBeta);
    QVERIFY(told(beta, "calls").toStringList().filter(QStringLiteral("translator")).isEmpty());
}

void TestApplicationHelper::theSamplesBringTheirTranslations()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    const QString cache = m_workstation.path(QStringLiteral("german.ini"));
    QVERIFY(writeFile(cache, "[General]\nlanguage=de_DE\n"));
    ApplicationHelper helper;
    const auto applications = helper.applications(cache);
    QCOMPARE(applications.value(QStringLiteral("Ruvenka"))->displayName(), QStringLiteral("Spirometrie"));
    QCOMPARE(applications.value(QStringLiteral("NightOximetry"))->displayName(),
             QStringLiteral("Nächtliche Oximetrie"));
    for (AbstractApplication *application : applications) {
        QVERIFY(application->translator(QStringLiteral("ja")));
        QVERIFY(!application->translator(QStringLiteral("xx")));
        QCoreApplication::removeTranslator(application->translator(QStringLiteral("de_DE")));
    }
}

void TestApplicationHelper::aPluginThatCrashesIsTheLastThatTheRuntimeLogNames()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("beta"), QStringLiteral("a.plugin")));
    QVERIFY(folder.add(QStringLiteral("crashing")));
    QVERIFY(folder.add(QStringLiteral("alpha"), QStringLiteral("z.plugin")));
    const QString temporary = m_workstation.path(QStringLiteral("crash"));
    QVERIFY(QDir().mkpath(temporary));
    QProcessEnvironment environment = m_workstation.environment();
    environment.insert(QStringLiteral("TEMP"), temporary);

    QProcess child;
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {kLoadMode, folder.libraryPath()});
    QVERIFY(child.waitForFinished(kChildPatience));
    QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    const QByteArray log = readFile(temporary + QStringLiteral("/CORVANE_runtime.log")).trimmed();
    QVERIFY2(log.endsWith("Loading crashing.plugin"), log.constData());

    // Without it the others are there.
    QVERIFY(QFile::remove(fileIn(folder, QStringLiteral("crashing.plugin"))));
    child.start(QCoreApplication::applicationFilePath(), {kLoadMode, folder.libraryPath()});
    QVERIFY(child.waitForFinished(kChildPatience));
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 2);
}

void TestApplicationHelper::thousandsOfFilesAreGoneThrough()
{
    PluginFolder folder;
    for (int i = 0; i < 3000; ++i)
        QVERIFY(writeFile(fileIn(folder, QStringLiteral("notes_%1.txt").arg(i)), "Notes"));
    QVERIFY(folder.add(QStringLiteral("alpha"), QStringLiteral("zz.plugin")));
    ApplicationHelper helper;
    QCOMPARE(helper.applications(QString()).size(), 1);
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(kLoadMode))
        return loadAsChild(application.arguments());
    TestApplicationHelper test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_applicationhelper.moc"
