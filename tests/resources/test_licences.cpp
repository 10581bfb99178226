#include "support/workstation.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

namespace {

const auto kSourceFolder = QStringLiteral(CORVANE_SOURCE_FOLDER);
const auto kLicences = kSourceFolder + QStringLiteral("/resources/licenses");
const auto kAboutFile = QStringLiteral("corvane_about.txt");

/// What a text tells by the first group of an expression, once for each match.
QStringList allOf(const QString &text, const QString &expression)
{
    const QRegularExpression form(expression, QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = form.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

/// The first column of the dependencies that the program is delivered with, as "Qt Charts" or "PAM".
QStringList libraries()
{
    const QString readme = QString::fromUtf8(readFile(kSourceFolder + QStringLiteral("/README.md")));
    const QString table =
        readme.section(QStringLiteral("\n## Dependencies\n"), 1).section(QStringLiteral("\n\n"), 0, 0);
    QStringList names =
        allOf(table, QStringLiteral("^\\| ([A-Za-z]+(?: [A-Z][a-z]+)*)(?![^|]*benchmarks only)"));
    names.removeAll(QStringLiteral("Library"));
    return names;
}

}  // namespace

/// What the program tells of the software of others that it is delivered with.
class TestLicences : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyLibraryIsNamedWithALicence_data();
    void everyLibraryIsNamedWithALicence();
    void licencesThatAreNamedAreDeliveredAndTheOtherWayRound();

private:
    QString m_about;
};

void TestLicences::initTestCase()
{
    m_about = QString::fromUtf8(readFile(kLicences + QLatin1Char('/') + kAboutFile));
    QVERIFY(!m_about.isEmpty());
}

void TestLicences::everyLibraryIsNamedWithALicence_data()
{
    QTest::addColumn<QString>("library");

    QVERIFY(libraries().contains(QStringLiteral("Qt Charts")));
    for (const QString &library : libraries())
        QTest::newRow(qPrintable(library)) << library;
}

void TestLicences::everyLibraryIsNamedWithALicence()
{
    QFETCH(QString, library);
    const QStringList told = allOf(
        m_about,
        QStringLiteral("^((?:Linux-)?%1(?: [\\d.]+)?[:,][^\\n]*)$").arg(QRegularExpression::escape(library)));
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.first().contains(QRegularExpression(QStringLiteral("\\([\\w.-]+\\.txt"))),
             qPrintable(told.first()));
}

void TestLicences::licencesThatAreNamedAreDeliveredAndTheOtherWayRound()
{
    QStringList named = allOf(m_about, QStringLiteral("([\\w.-]+\\.txt)"));
    named.append(kAboutFile);
    named.removeDuplicates();
    named.sort();
    QCOMPARE(named, QDir(kLicences).entryList(QDir::Files, QDir::Name));
}

QTEST_GUILESS_MAIN(TestLicences)
#include "test_licences.moc"
