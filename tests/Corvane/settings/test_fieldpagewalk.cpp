#include "fieldpages.h"
#include "settingsbench.h"
#include "support/messageboxes.h"
#include "support/pluginfolder.h"
#include "support/qtwarnings.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSet>
#include <QTabWidget>
#include <QTest>

#include <vector>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

constexpr int kSteps = 250;
constexpr int kMostRows = 8;
constexpr int kBoxes = 4;
constexpr int kFirstCustomItem = 10;
constexpr int kSearchTab = 2;
constexpr int kFieldTab = 3;
constexpr int kStudyTab = 4;
constexpr char kResultBox[] = "result_field";
constexpr char kSummaryBox[] = "summary_field";
const QList<int> kParameterKeys = {2, 3, 4, 6, 7};

QMap<QString, QVariant> site()
{
    return {{kCustom, QStringLiteral("1:Badge=0:true,2:Job=1:false,5:Room=0:true")},
            {kSearchedCustom, QStringList{"Badge"}},
            {kParameters, QVariantList{2, 11}},
            {kResult, QStringList{"1", "Badge", "Job", "5"}},
            {kSummary, QStringList{"Job", "Badge", "1", "3"}}};
}

}  // namespace

/// Somebody who works on the pages of fields in no order at all, in the real settings view, with the seed of
/// a walk.
class FieldPageWalk
{
public:
    FieldPageWalk(SettingsBench &bench, const SettingsFiles &files, quint32 seed);

    void takeStep();
    /// Saves to the local application and loads from there.
    void saveAndLoad();

    /// The names of the rows in the order of their numbers.
    QStringList names() const;
    QStringList summaryItems() const;
    bool isSomethingSearched() const
    {
        return !checkedParameters(m_search).isEmpty() || !searchedNames().isEmpty();
    }
    bool doesEveryBoxShowAnItem() const;
    /// The last step, for the message of a failure.
    QByteArray step() const
    {
        return QStringLiteral("step %1 was of kind %2").arg(m_step).arg(m_kind).toUtf8();
    }

private:
    int below(int bound)
    {
        return static_cast<int>(m_random.bounded(bound));
    }
    /// One of the rows; nothing when there is none or another page is shown.
    CustomPersonField *anyRow();
    QSet<QString> searchedNames() const;
    void chooseAnything(QComboBox *box)
    {
        box->setCurrentIndex(below(box->count()));
    }

    void openTab();
    void addField();
    void rename();
    void beginToType();
    void remove();
    void move();
    void chooseState();
    void chooseFields();
    void toggleParameter();
    void toggleCustomField();
    void chooseStudyFields();

    SettingsBench &m_bench;
    const SettingsFiles &m_files;
    QRandomGenerator m_random;
    QTabWidget &m_tabs;
    QWidget &m_fields;
    QWidget &m_search;
    QWidget &m_study;
    int m_step = 0;
    int m_kind = 0;
};

FieldPageWalk::FieldPageWalk(SettingsBench &bench, const SettingsFiles &files, quint32 seed)
    : m_bench(bench)
    , m_files(files)
    , m_random(seed)
    , m_tabs(*child<QTabWidget>(bench.view(), "settings_tabs"))
    , m_fields(*m_tabs.widget(kFieldTab))
    , m_search(*m_tabs.widget(kSearchTab))
    , m_study(*m_tabs.widget(kStudyTab))
{}

void FieldPageWalk::takeStep()
{
    using Step = void (FieldPageWalk::*)();
    static const std::vector<Step> steps = {&FieldPageWalk::openTab,
                                            &FieldPageWalk::openTab,
                                            &FieldPageWalk::addField,
                                            &FieldPageWalk::rename,
                                            &FieldPageWalk::beginToType,
                                            &FieldPageWalk::remove,
                                            &FieldPageWalk::move,
                                            &FieldPageWalk::chooseState,
                                            &FieldPageWalk::chooseFields,
                                            &FieldPageWalk::toggleParameter,
                                            &FieldPageWalk::toggleCustomField,
                                            &FieldPageWalk::chooseStudyFields,
                                            &FieldPageWalk::saveAndLoad};
    // A window of the offscreen platform does not become active again by itself when a box above it closes.
    QApplication::setActiveWindow(&m_bench.view());
    QCOMPARE(QApplication::activeWindow(), &m_bench.view());
    ++m_step;
    m_kind = below(static_cast<int>(steps.size()));
    (this->*steps.at(static_cast<std::size_t>(m_kind)))();
}

CustomPersonField *FieldPageWalk::anyRow()
{
    const QList<CustomPersonField *> all =
        m_tabs.currentIndex() == kFieldTab ? rows(m_fields) : QList<CustomPersonField *>();
    return all.isEmpty() ? nullptr : all.at(below(all.size()));
}

QStringList FieldPageWalk::names() const
{
    QMap<int, QString> byId;
    for (const CustomPersonField *row : m_fields.findChildren<CustomPersonField *>()) {
        if (!row->isHidden())
            byId.insert(row->id(), row->field().name);
    }
    return byId.values();
}

QStringList FieldPageWalk::summaryItems() const
{
    const QComboBox *box = fieldBox(m_fields, kSummaryBox, 1);
    QStringList items;
    for (int i = kFirstCustomItem; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

QSet<QString> FieldPageWalk::searchedNames() const
{
    QSet<QString> searched;
    for (const QString &text : customChecks(m_search)) {
        if (text.startsWith(QLatin1Char('+')))
            searched.insert(text.mid(1));
    }
    return searched;
}

bool FieldPageWalk::doesEveryBoxShowAnItem() const
{
    for (int number = 1; number <= kBoxes; ++number) {
        if (fieldBox(m_fields, kSummaryBox, number)->currentIndex() < 0 ||
            fieldBox(m_search, kResultBox, number)->currentIndex() < 0)
            return false;
    }
    return true;
}

void FieldPageWalk::openTab()
{
    m_tabs.setCurrentIndex(below(2) == 0 ? kFieldTab : below(m_tabs.count()));
}

void FieldPageWalk::addField()
{
    if (m_tabs.currentIndex() == kFieldTab && rows(m_fields).size() < kMostRows)
        QTest::mouseClick(child<QPushButton>(m_fields, "add_custom_field"), Qt::LeftButton);
}

void FieldPageWalk::rename()
{
    if (CustomPersonField *row = anyRow())
        typeName(m_fields, rows(m_fields).indexOf(row), QStringLiteral("Name%1").arg(below(kMostRows)));
}

void FieldPageWalk::beginToType()
{
    CustomPersonField *row = anyRow();
    if (!row)
        return;
    auto *edit = child<QLineEdit>(*row, kRowName);
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClicks(edit, QStringLiteral(":x"));
}

void FieldPageWalk::remove()
{
    CustomPersonField *row = anyRow();
    if (!row)
        return;
    const MessageBoxes boxes({below(2) == 0 ? QStringLiteral("Ok") : QStringLiteral("Cancel")});
    QTest::mouseClick(child<QWidget>(*row, kRowRemove), Qt::LeftButton);
}

void FieldPageWalk::move()
{
    if (CustomPersonField *row = anyRow())
        QTest::mouseClick(child<QWidget>(*row, below(2) == 0 ? kRowUp : kRowDown), Qt::LeftButton);
}

void FieldPageWalk::chooseState()
{
    CustomPersonField *row = anyRow();
    if (!row)
        return;
    auto *box = child<QComboBox>(*row, below(2) == 0 ? kRowVisibility : kRowLines);
    box->setFocus();
    chooseAnything(box);
}

void FieldPageWalk::chooseFields()
{
    chooseAnything(fieldBox(m_fields, kSummaryBox, 1 + below(kBoxes)));
    chooseAnything(fieldBox(m_search, kResultBox, 1 + below(kBoxes)));
}

void FieldPageWalk::toggleParameter()
{
    parameterBox(m_search, kParameterKeys.at(below(kParameterKeys.size())))->click();
}

void FieldPageWalk::toggleCustomField()
{
    const int count = customChecks(m_search).size();
    if (count == 0)
        return;
    const QString name = QStringLiteral("search_custom_field_%1").arg(1 + below(count));
    child<QCheckBox>(m_search, qPrintable(name))->click();
}

void FieldPageWalk::chooseStudyFields()
{
    chooseAnything(child<QComboBox>(m_study, "study_application"));
    const QString slot = QStringLiteral("study_list_field_%1").arg(1 + below(kBoxes));
    chooseAnything(child<QComboBox>(m_study, qPrintable(slot)));
    chooseAnything(child<QComboBox>(m_study, "default_reference_set"));
    auto *sets = child<QListWidget>(m_study, "hidden_reference_sets_list");
    sets->item(below(sets->count()))->setSelected(below(2) == 0);
}

void FieldPageWalk::saveAndLoad()
{
    const MessageBoxes boxes;
    m_bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().value(0).text, QStringLiteral("Saving succeeded."));
    const QStringList fields = names();
    const QStringList summary = shownTexts(m_fields, kSummaryBox, kBoxes);
    QStringList result = shownTexts(m_search, kResultBox, kBoxes);
    for (int i = 0; i < kBoxes; ++i) {
        const bool isCustom = fieldBox(m_search, kResultBox, i + 1)->currentIndex() >= kFirstCustomItem;
        if (isCustom && !fields.contains(result.at(i)))
            result[i] = QStringLiteral("(empty)");
    }
    const QSet<QString> searched = searchedNames().intersect(QSet<QString>(fields.cbegin(), fields.cend()));
    QList<int> parameters = checkedParameters(m_search);
    if (parameters.isEmpty() && searched.isEmpty())
        parameters = kParameterKeys;

    m_bench.choose("local_menu", "load_action");
    QCOMPARE(names(), fields);
    QCOMPARE(shownTexts(m_fields, kSummaryBox, kBoxes), summary);
    QCOMPARE(shownTexts(m_search, kResultBox, kBoxes), result);
    QCOMPARE(searchedNames(), searched);
    QCOMPARE(checkedParameters(m_search), parameters);
    QStringList stored;
    for (const CustomField &field : readCustomFields(m_files.localValue(kCustom)))
        stored.append(field.name);
    QCOMPARE(stored, fields);
}

/// The pages of fields, used in any order.
class TestFieldPageWalk : public QObject
{
    Q_OBJECT

private slots:
    void whateverIsDoneInWhateverOrderThePagesAgree_data();
    void whateverIsDoneInWhateverOrderThePagesAgree();

private:
    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestFieldPageWalk::whateverIsDoneInWhateverOrderThePagesAgree_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::newRow("a first walk") << 20164U;
    QTest::newRow("a second walk") << 20165U;
    QTest::newRow("a third walk") << 20166U;
}

void TestFieldPageWalk::whateverIsDoneInWhateverOrderThePagesAgree()
{
    QFETCH(quint32, seed);
    const QtWarnings warnings;
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    m_files.reset();
    m_files.setLocal(site());
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    FieldPageWalk walk(bench, m_files, seed);
    for (int i = 0; i < kSteps && !QTest::currentTestFailed(); ++i) {
        walk.takeStep();
        QVERIFY2(!QTest::currentTestFailed(), walk.step());
        QVERIFY2(walk.summaryItems() == walk.names(), walk.step());
        QVERIFY2(walk.isSomethingSearched(), walk.step());
        QVERIFY2(walk.doesEveryBoxShowAnItem(), walk.step());
        for (const AuditEvent &event : bench.takeEvents())
            QVERIFY2(event.error == 0, qPrintable(event.info));
    }
    QCOMPARE(warnings.seen(), QStringList());
}

QTEST_MAIN(TestFieldPageWalk)
#include "test_fieldpagewalk.moc"
