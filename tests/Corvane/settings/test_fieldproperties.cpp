#include "Corvane/settings/fieldsettingsview.h"
#include "Corvane/settings/searchsettingsview.h"
#include "Corvane/settings/settingssnapshot.h"
#include "fieldpages.h"
#include "settingstest.h"

#include <QRandomGenerator>
#include <QTest>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

constexpr int kRounds = 50;

using Settings = QMap<QString, QVariant>;

/// Settings of both pages as a site could have them.
class Site
{
public:
    explicit Site(QRandomGenerator &random)
        : m_random(random)
    {
        int id = 0;
        for (int count = m_random.bounded(9); count > 0; --count) {
            id += 1 + below(40);
            m_fields.append({id, name(), below(2), below(2) == 1});
        }
        for (const CustomField &field : qAsConst(m_fields))
            m_names.append(field.name);
    }

    Settings settings()
    {
        Settings result = {{kCustom, customFieldsToSetting(m_fields)},
                           {kMinimum, below(10)},
                           {kSingleLine, below(2) == 1},
                           {kSummary, entries()},
                           {kResult, entries()},
                           {kNameOrder, QVariantList{1 + below(4), 1 + below(4), 1 + below(4)}}};
        const int visible = below(512) & ~1;
        result[kVisible] = visible;
        result[kMandatory] = below(512) & visible;
        addSearch(result);
        return result;
    }

    const QStringList &names() const
    {
        return m_names;
    }
    QVector<CustomField> fields() const
    {
        return m_fields;
    }

private:
    int below(int bound)
    {
        return static_cast<int>(m_random.bounded(bound));
    }

    /// A name of any characters that a name may have, and no other field's.
    QString name()
    {
        QString text;
        for (int i = 1 + below(16); i > 0; --i)
            text.append(QChar(below(4) == 0 ? 0x3041 + below(80) : 0x20 + below(0x5f)));
        text = cleanCustomName(text);
        return text + QStringLiteral("_%1").arg(m_fields.size());
    }

    QStringList entries()
    {
        QStringList list;
        for (int i = 0; i < 4; ++i) {
            const int index = below(10 + m_names.size());
            list.append(index < 9    ? QString::number(index)
                        : index == 9 ? QStringLiteral("(empty)")
                                     : m_names.at(index - 10));
        }
        return list;
    }

    void addSearch(Settings &result)
    {
        QVariantList parameters;
        for (const int key : {2, 3, 4, 6, 7}) {
            if (below(2) == 1)
                parameters.append(key);
        }
        QStringList searched;
        for (const QString &custom : qAsConst(m_names)) {
            if (below(2) == 1)
                searched.append(custom);
        }
        if (!searched.isEmpty()) {
            result[kSearchedCustom] = searched;
            parameters.append(11);
        }
        if (parameters.isEmpty())
            parameters.append(6);
        result[kParameters] = parameters;
    }

    QRandomGenerator &m_random;
    QVector<CustomField> m_fields;
    QStringList m_names;
};

QStringList snapshot()
{
    QStringList lines;
    const QSettings *settings = store()->generalSettings();
    for (const QString &key : settings->allKeys())
        lines.append(snapshotLine(key, settings->value(key)));
    lines.sort();
    return lines;
}

QStringList snapshotOf(const Settings &settings)
{
    QStringList lines;
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
        lines.append(snapshotLine(setting.key(), *setting));
    lines.sort();
    return lines;
}

/// The two pages as the settings view holds them.
struct Pages
{
    Pages()
    {
        QObject::connect(&fields, &FieldSettingsView::personCustomFieldsUpdated, &search,
                         &SearchSettingsView::personCustomFieldsChanged);
    }

    void readAndSave()
    {
        search.reloadSettings();
        fields.reloadSettings();
        fields.saveSettings();
        search.saveSettings();
    }

    SearchSettingsView search;
    FieldSettingsView fields;
};

}  // namespace

/// What the Person fields and Search pages read and save, over many settings.
class TestFieldProperties : public QObject
{
    Q_OBJECT

private slots:
    void whatIsReadAndSavedUnchangedComesBack();
    void whatIsNoFieldIsDroppedAndTheRestComesBack();
    void anythingAtAllIsReadAndSavedInAFormThatSettles();

private:
    void use(const Settings &settings);

    Workstation m_workstation;
};

void TestFieldProperties::use(const Settings &settings)
{
    useEmptySettings(m_workstation);
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
        store()->setValue(setting.key(), *setting);
    // As the file gives them, after a turn to another one.
    const QString file = store()->generalSettings()->fileName();
    useEmptySettings(m_workstation);
    store()->changeSettingsFile(file);
}

void TestFieldProperties::whatIsReadAndSavedUnchangedComesBack()
{
    QRandomGenerator random(20161);
    Pages pages;
    for (int round = 0; round < kRounds; ++round) {
        const Settings settings = Site(random).settings();
        use(settings);
        QCOMPARE(snapshot(), snapshotOf(settings));
        pages.readAndSave();
        QCOMPARE(snapshot(), snapshotOf(settings));
    }
}

void TestFieldProperties::whatIsNoFieldIsDroppedAndTheRestComesBack()
{
    const QStringList malformed = {"nonsense",    "1:=0:true",           "1:a:b=0:true", "x:Name=0:true",
                                   "1:Name:true", "9999999999:N=0:true", "::",           "1:A=B=0:true"};
    QRandomGenerator random(20162);
    Pages pages;
    for (int round = 0; round < kRounds; ++round) {
        Site site(random);
        const Settings settings = site.settings();
        Settings more = settings;
        // Fields that are none, and a mess of their order.
        QStringList fields = settings[kCustom].toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
        std::shuffle(fields.begin(), fields.end(), random);
        for (const QString &text : malformed)
            fields.insert(static_cast<int>(random.bounded(fields.size() + 1)), text);
        more[kCustom] = fields.join(QLatin1Char(','));
        // Bits, numbers, names and entries that belong to nothing.
        more[kMandatory] = settings[kMandatory].toInt() | 1 | 1 << 9 | 1 << 30;
        more[kVisible] = settings[kVisible].toInt() | 1 | 1 << 12;
        more[kParameters] = QVariantList{5, 0} + settings[kParameters].toList() + QVariantList{8, 12};
        more[kSearchedCustom] = QStringList{"gone"} + settings[kSearchedCustom].toStringList();
        more[kNameOrder] = settings[kNameOrder].toList() + QVariantList{2};
        more[kSummary] = settings[kSummary].toStringList() + QStringList{"1", "gone"};
        more[kResult] = settings[kResult].toStringList() + QStringList{"2"};
        use(more);
        pages.readAndSave();
        Settings expected = settings;
        if (!expected.contains(kSearchedCustom))
            expected[kSearchedCustom] = QStringList();
        QCOMPARE(snapshot(), snapshotOf(expected));
    }
}

void TestFieldProperties::anythingAtAllIsReadAndSavedInAFormThatSettles()
{
    const QStringList pieces = {"1", "9",    "11", "-1",          "(empty)", "Name", ":",  "=", ",",
                                ";", "true", "58", "99999999999", " ",       "&",    "\n", "%", "0x3a"};
    QRandomGenerator random(20163);
    Pages pages;
    for (int round = 0; round < kRounds; ++round) {
        Settings settings;
        for (const char *key : {kCustom, kMandatory, kVisible, kNameOrder, kSummary, kMinimum, kSingleLine,
                                kResult, kParameters, kSearchedCustom}) {
            QStringList list;
            for (int count = random.bounded(6); count > 0; --count) {
                QString text;
                for (int i = random.bounded(6); i > 0; --i)
                    text.append(pieces.at(random.bounded(pieces.size())));
                list.append(text);
            }
            if (random.bounded(2) == 0)
                settings[key] = list.join(QLatin1Char(','));
            else if (!list.isEmpty())
                settings[key] = list;
        }
        use(settings);
        pages.readAndSave();
        // Where no parameter was left, all are checked the next time.
        pages.readAndSave();
        const QStringList settled = snapshot();
        pages.readAndSave();
        QCOMPARE(snapshot(), settled);
    }
}

QTEST_MAIN(TestFieldProperties)
#include "test_fieldproperties.moc"
