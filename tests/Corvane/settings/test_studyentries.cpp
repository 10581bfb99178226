#include "Corvane/settings/referencesets.h"
#include "Corvane/settings/studyentries.h"
#include "Corvane/settings/studysettingsview.h"
#include "settingstest.h"
#include "support/pluginfolder.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace SettingsTest;

namespace {

constexpr quint32 kSeed = 20290613;
constexpr int kRounds = 150;

const QString kAlpha = QStringLiteral("Alpha");
const QString kRuvenka = QStringLiteral("Ruvenka");

/// What the page keeps of settings when it reads and saves them.
struct Kept
{
    QStringList studySpecific;
    QStringList resultFields;
    QStringList hiddenFields;
};

/// Settings as applications write them, with entries of applications that aren't installed, and of what isn't
/// there any more; and what is to be left of them.
class RandomSettings
{
public:
    explicit RandomSettings(QRandomGenerator &random)
        : m_random(random)
    {}

    Kept valid()
    {
        Kept settings;
        settings.studySpecific = foreignEntries();
        const QStringList sets = someOf(setIdsByName());
        const QString preset = oneOf(setIdsByName());
        const bool hasPreset = m_random.bounded(2) == 1 && !sets.contains(preset);
        if (!sets.isEmpty())
            settings.studySpecific.append(kRuvenka + QStringLiteral("=hidden=") +
                                          named(sets).join(QLatin1Char(',')));
        if (hasPreset)
            settings.studySpecific.append(kRuvenka + QStringLiteral("=default=") +
                                          named({preset}).constFirst());

        settings.resultFields = foreignEntries();
        QStringList columns;
        for (int slot = 0; slot < 4; ++slot)
            columns.append(oneOf({QString(), QStringLiteral("appName"), QStringLiteral("Date"),
                                  QStringLiteral("weight"), QStringLiteral("visit"), QStringLiteral("age")}));
        insert(settings.resultFields, kAlpha + QLatin1Char('=') + columns.join(QLatin1Char(',')));

        settings.hiddenFields = foreignEntries();
        insert(settings.hiddenFields,
               kAlpha + QLatin1Char('=') +
                   someOf({QStringLiteral("age"), QStringLiteral("mood"), QStringLiteral("weight")})
                       .join(QLatin1Char(',')));
        return settings;
    }

    /// The same settings with what has no place on the page added to them.
    Kept withLosses(Kept settings)
    {
        insert(settings.studySpecific,
               oneOf({QStringLiteral("Ruvenka=shown=1=One"), QStringLiteral("Ruvenka"),
                      QStringLiteral("RuvenkaPlus=hidden=1=One"),
                      QStringLiteral("Other=hidden=1=like Ruvenka")}));
        for (QString &entry : settings.studySpecific) {
            if (entry.startsWith(QLatin1String("Ruvenka=hidden=")))
                entry += QStringLiteral(",4711=Gone");
        }
        for (QString &entry : settings.resultFields) {
            if (entry.startsWith(QLatin1String("Alpha=")))
                entry += QStringLiteral(",weight,age");
        }
        settings.resultFields.append(QStringLiteral("Alpha=weight,,,"));
        for (QString &entry : settings.hiddenFields) {
            if (entry == QLatin1String("Alpha="))
                entry += QStringLiteral("gone,visit");
            else if (entry.startsWith(QLatin1String("Alpha=")))
                entry += QStringLiteral(",gone,,visit");
        }
        return settings;
    }

private:
    static QStringList setIdsByName()
    {
        static const QStringList ids = [] {
            QVector<ReferenceSet> sets = builtInReferenceSets();
            std::sort(sets.begin(), sets.end(), [](const ReferenceSet &a, const ReferenceSet &b) {
                return QLatin1String(a.name) < QLatin1String(b.name);
            });
            QStringList sorted;
            for (const ReferenceSet &set : qAsConst(sets))
                sorted.append(QLatin1String(set.id));
            return sorted;
        }();
        return ids;
    }

    static QStringList named(const QStringList &ids)
    {
        QStringList result;
        for (const QString &id : ids) {
            for (const ReferenceSet &set : builtInReferenceSets()) {
                if (id == QLatin1String(set.id))
                    result.append(id + QLatin1Char('=') + QLatin1String(set.name));
            }
        }
        return result;
    }

    QStringList foreignEntries()
    {
        return someOf({QStringLiteral("exe-id=weight"), QStringLiteral("Other=hidden=1=One,2=Two"),
                       QStringLiteral("Alphabet=a,b,c,d"), QStringLiteral("malformed"), QString(),
                       QStringLiteral("=nobody"), QStringLiteral("Äther=größe,山,,"),
                       QStringLiteral("a=b=c==")});
    }

    QStringList someOf(const QStringList &texts)
    {
        QStringList some;
        for (const QString &text : texts) {
            if (m_random.bounded(3) == 0)
                some.append(text);
        }
        return some;
    }

    QString oneOf(const QStringList &texts)
    {
        return texts.at(m_random.bounded(texts.size()));
    }

    void insert(QStringList &entries, const QString &entry)
    {
        entries.insert(m_random.bounded(entries.size() + 1), entry);
    }

    QRandomGenerator &m_random;
};

void store(const Kept &settings)
{
    setStored(SettingsKeys::kStudySpecific, settings.studySpecific);
    setStored(SettingsKeys::kStudyResultFields, settings.resultFields);
    setStored(SettingsKeys::kStudyHiddenFields, settings.hiddenFields);
}

bool isStored(const Kept &settings)
{
    return stored(SettingsKeys::kStudySpecific).toStringList() == settings.studySpecific &&
           stored(SettingsKeys::kStudyResultFields).toStringList() == settings.resultFields &&
           stored(SettingsKeys::kStudyHiddenFields).toStringList() == settings.hiddenFields;
}

}  // namespace

/// The entries of the study settings, by themselves and through the page.
class TestStudyEntries : public QObject
{
    Q_OBJECT

private slots:
    void whatThePageReadsAndSavesUnchangedComesBackUnchanged();
    void whatHasNoPlaceOnThePageIsDropped();
    void fieldsAreTakenFromTheFirstEntryOfTheApplication();
    void replacedFieldsKeepTheirPlace();
    void anIdWithASeparatorDoesNotPileUpEntries();
    void randomTextsAreReadAndReplacedWithoutLoss();

private:
    Workstation m_workstation;
};

void TestStudyEntries::whatThePageReadsAndSavesUnchangedComesBackUnchanged()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    useEmptySettings(m_workstation);
    StudySettingsView page(m_workstation.dataDirectory());
    QRandomGenerator random(kSeed);
    for (int round = 0; round < kRounds; ++round) {
        const Kept settings = RandomSettings(random).valid();
        store(settings);
        page.reloadSettings();
        page.saveSettings();
        QVERIFY2(isStored(settings), qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void TestStudyEntries::whatHasNoPlaceOnThePageIsDropped()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    useEmptySettings(m_workstation);
    StudySettingsView page(m_workstation.dataDirectory());
    QRandomGenerator random(kSeed + 1);
    for (int round = 0; round < kRounds; ++round) {
        RandomSettings generator(random);
        const Kept settings = generator.valid();
        store(generator.withLosses(settings));
        page.reloadSettings();
        page.saveSettings();
        QVERIFY2(isStored(settings), qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void TestStudyEntries::fieldsAreTakenFromTheFirstEntryOfTheApplication()
{
    const QStringList entries = {QStringLiteral("Alphabet=x"), QStringLiteral("Alpha=a,,b"),
                                 QStringLiteral("Alpha=c")};
    QCOMPARE(StudyEntries::fields(entries, kAlpha),
             (QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")}));
    QVERIFY(StudyEntries::fields(entries, QStringLiteral("Beta")).isEmpty());
}

void TestStudyEntries::replacedFieldsKeepTheirPlace()
{
    const QStringList entries = {QStringLiteral("Alpha=a"), QStringLiteral("Beta=b"),
                                 QStringLiteral("Alpha=c")};
    QCOMPARE(StudyEntries::withFields(entries, kAlpha, {QStringLiteral("x"), QStringLiteral("y")}),
             (QStringList{QStringLiteral("Alpha=x,y"), QStringLiteral("Beta=b")}));
    QCOMPARE(StudyEntries::withFields(entries, QStringLiteral("Gamma"), {}),
             entries + QStringList{QStringLiteral("Gamma=")});
}

void TestStudyEntries::anIdWithASeparatorDoesNotPileUpEntries()
{
    const QString odd = QStringLiteral("a=b");
    QStringList entries = {QStringLiteral("Beta=b")};
    for (int i = 0; i < 3; ++i)
        entries = StudyEntries::withFields(entries, odd, {QStringLiteral("x")});
    QCOMPARE(entries, (QStringList{QStringLiteral("Beta=b"), QStringLiteral("a=b=x")}));
    QCOMPARE(StudyEntries::fields(entries, odd), QStringList{QStringLiteral("x")});
}

void TestStudyEntries::randomTextsAreReadAndReplacedWithoutLoss()
{
    QRandomGenerator random(kSeed + 2);
    const QString letters = QStringLiteral("=,A=,lpha\u00e4 ");
    for (int round = 0; round < 3000; ++round) {
        QStringList entries;
        for (int i = random.bounded(5); i > 0; --i) {
            QString entry;
            for (int length = random.bounded(20); length > 0; --length)
                entry += letters.at(random.bounded(letters.size()));
            entries.append(entry);
        }
        const QString application = QStringLiteral("A");
        const QStringList fields = StudyEntries::fields(entries, application);
        const QStringList replaced = StudyEntries::withFields(entries, application, fields);
        QCOMPARE(StudyEntries::withFields(replaced, application, fields), replaced);
        if (!fields.isEmpty())
            QCOMPARE(StudyEntries::fields(replaced, application), fields);

        const StudyEntries::ReferenceChoice choice = StudyEntries::referenceChoice(entries, application);
        const QStringList written = StudyEntries::withReferenceChoice(entries, application, choice, {});
        const StudyEntries::ReferenceChoice again = StudyEntries::referenceChoice(written, application);
        QCOMPARE(again.hidden, choice.hidden);
        QCOMPARE(again.preset, choice.preset);
    }
}

QTEST_MAIN(TestStudyEntries)
#include "test_studyentries.moc"
