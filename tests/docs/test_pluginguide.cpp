#include "Corvane/settings/fieldsettingsview.h"
#include "Corvane/settings/studysettingsview.h"
#include "support/workstation.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/abstractapplicationfactory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

constexpr int kBuildPatience = 240000;  // milliseconds

const QString kHeader = QStringLiteral("abstractapplicationfactory.h");
const QString kGuide = QStringLiteral(CORVANE_SOURCE_FOLDER "/docs/plugins.md");
const QString kApplication = QStringLiteral("PeakFlow");

/// The guide's code blocks as one script: commands are run, and a block that comes after the name of a file
/// is written to that file.
QString scriptOf(const QString &guide)
{
    static const QRegularExpression block(
        QStringLiteral("(?:`([\\w.]+)`[^`\\n]*:\\n\\n)?```(\\w+)\\n(.*?)\\n```\\n"),
        QRegularExpression::DotMatchesEverythingOption);
    QString script;
    auto found = block.globalMatch(guide);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        if (match.captured(2) == QLatin1String("sh"))
            script += match.captured(3) + QLatin1Char('\n');
        else
            script += QStringLiteral("cat > '%1' <<'END_OF_FILE'\n%2\nEND_OF_FILE\n")
                          .arg(match.captured(1), match.captured(3));
    }
    return script;
}

struct ShownField
{
    QString text;
    bool isListed;
    bool isHideable;
};

/// The rows of the guide's table of fields.
QVector<ShownField> fieldsOf(const QString &guide)
{
    static const QRegularExpression row(QStringLiteral("^\\| (.+) \\| (yes|no) \\| (yes|no) \\|$"),
                                        QRegularExpression::MultilineOption);
    QVector<ShownField> fields;
    auto found = row.globalMatch(guide);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        fields.append({match.captured(1), match.captured(2) == QLatin1String("yes"),
                       match.captured(3) == QLatin1String("yes")});
    }
    return fields;
}

QStringList checkBoxTexts(const QWidget &page)
{
    QStringList texts;
    for (const QCheckBox *box : page.findChildren<QCheckBox *>())
        texts.append(box->text().replace(QStringLiteral("&&"), QStringLiteral("&")));
    return texts;
}

/// What the settings hold for the guide's application among the entries of a key.
QString storedEntry(const char *key)
{
    const QStringList entries = SettingsHandler::getInstance()->value(QLatin1String(key)).toStringList();
    return entries.filter(kApplication).join(QLatin1Char(' '));
}

}  // namespace

/// The guide for plug-ins, followed word by word.
class TestPluginGuide : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void itsPluginIsBuiltAgainstThePublicHeaderAlone();
    void itsFieldsAreOnThePage();
    void whatIsChosenIsStoredAsItSays();
    void itsApplicationIsNamedByTheFieldsThatItRequires();
    void inGermanItsTextsAreGerman();

private:
    Workstation m_workstation;
    QString m_guide;
};

void TestPluginGuide::initTestCase()
{
    m_guide = QString::fromUtf8(readFile(kGuide));
    QVERIFY(!m_guide.isEmpty());
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.path(QStringLiteral("settings.ini")));
}

void TestPluginGuide::itsPluginIsBuiltAgainstThePublicHeaderAlone()
{
    const QString include = m_workstation.path(QStringLiteral("include/corvane"));
    QVERIFY(QDir().mkpath(include));
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_SOURCE_FOLDER "/source/ZephanShared/toolkit/") + kHeader,
                        include + QLatin1Char('/') + kHeader));
    const QString home = m_workstation.path(QStringLiteral("corvane"));

    QProcessEnvironment environment = m_workstation.environment();
    environment.insert(QStringLiteral("CMAKE_INCLUDE_PATH"), m_workstation.path(QStringLiteral("include")));
    environment.insert(QStringLiteral("CORVANE_HOME"), home);
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.setWorkingDirectory(m_workstation.path(QString()));
    shell.start(QStringLiteral("sh"), {QStringLiteral("-ec"), scriptOf(m_guide)});
    QVERIFY(shell.waitForFinished(kBuildPatience));
    const QByteArray output = shell.readAll();
    QVERIFY2(shell.exitStatus() == QProcess::NormalExit && shell.exitCode() == 0, output.constData());
    QVERIFY2(!output.contains("warning"), output.constData());

    // From here on this is the console's folder.
    QCoreApplication::setLibraryPaths({home});
}

void TestPluginGuide::itsFieldsAreOnThePage()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    const auto *applications = page.findChild<QComboBox *>(QStringLiteral("study_application"));
    QCOMPARE(applications->currentData().toString(), kApplication);
    QVERIFY(m_guide.simplified().contains(QLatin1Char('*') + applications->currentText() + QLatin1Char('*')));

    QStringList listed = {QStringLiteral("Application name"), QStringLiteral("Date")};
    QStringList hideable;
    const QVector<ShownField> fields = fieldsOf(m_guide);
    QCOMPARE(fields.size(), 3);
    for (const ShownField &field : fields) {
        if (field.isListed)
            listed.append(field.text);
        if (field.isHideable)
            hideable.append(field.text);
    }
    listed.append(QString());
    const auto *listField = page.findChild<QComboBox *>(QStringLiteral("study_list_field_1"));
    QStringList shown;
    for (int i = 0; i < listField->count(); ++i)
        shown.append(listField->itemText(i));
    QCOMPARE(shown, listed);
    QCOMPARE(checkBoxTexts(page), hideable);
}

void TestPluginGuide::whatIsChosenIsStoredAsItSays()
{
    StudySettingsView page(m_workstation.dataDirectory());
    int slot = 0;
    for (const char *field : {"Best flow", "Days", "", "Date"}) {
        auto *box = page.findChild<QComboBox *>(QStringLiteral("study_list_field_%1").arg(++slot));
        box->setCurrentIndex(box->findText(QLatin1String(field)));
    }
    page.findChild<QCheckBox *>(QStringLiteral("study_field_diary"))->setChecked(true);
    page.saveSettings();

    const QString sentence =
        QStringLiteral("stored under the application's name, as `%1` in `%2` and `%3` in `%4`,")
            .arg(storedEntry(SettingsKeys::kStudyResultFields),
                 QLatin1String(SettingsKeys::kStudyResultFields),
                 storedEntry(SettingsKeys::kStudyHiddenFields),
                 QLatin1String(SettingsKeys::kStudyHiddenFields));
    QVERIFY2(m_guide.simplified().contains(sentence), qPrintable(sentence));
}

void TestPluginGuide::itsApplicationIsNamedByTheFieldsThatItRequires()
{
    const FieldSettingsView page;
    QStringList named;
    for (const QLabel *label : page.findChildren<QLabel *>()) {
        if (label->text().contains(QStringLiteral("Peak flow at home")))
            named.append(label->objectName());
    }
    named.sort();
    QCOMPARE(named,
             (QStringList{QStringLiteral("field_required_by_%1").arg(AbstractApplication::PersonalId),
                          QStringLiteral("field_required_by_%1").arg(AbstractApplication::Birthdate)}));
}

void TestPluginGuide::inGermanItsTextsAreGerman()
{
    QVERIFY(writeFile(m_workstation.dataDirectory() + QStringLiteral("local_cache"),
                      "[General]\nlanguage=de_DE\n"));
    const StudySettingsView page(m_workstation.dataDirectory());
    const auto *applications = page.findChild<QComboBox *>(QStringLiteral("study_application"));
    QCOMPARE(applications->currentText(), QStringLiteral("Peak-Flow zu Hause"));
    QCOMPARE(checkBoxTexts(page),
             (QStringList{QStringLiteral("Tage"), QStringLiteral("Husten- & Schlaftagebuch")}));
}

QTEST_MAIN(TestPluginGuide)
#include "test_pluginguide.moc"
