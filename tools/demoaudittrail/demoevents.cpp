#include "demoaudittrail/demoevents.h"

#include "CommunicationAndData/actionlog/eventtext.h"
#include "ZephanShared/toolkit/actions.h"

#include <QUuid>

#include <algorithm>
#include <iterator>

namespace {

using namespace Actions;

enum Role { Administrator, Doctor, Nurse, Auditor };

struct Person
{
    const char *name;
    const char *id;
    Role role;
    int presence;  // how often this one sits down, beside the others
};

constexpr Person kPersons[] = {
    {"anna.admin", "3f0c6a52-71d4-4c0e-9a55-6be2d0a41c01", Administrator, 4},
    {"dora.doctor", "9b1e4f7c-02a8-4f3b-8a7d-51c3e6f20b02", Doctor, 12},
    {"pekka.pulmo", "c57d20e9-b6f1-45b2-b0c4-2f9a8e1d7303", Doctor, 9},
    {"ines.intern", "e8a4b1d6-3c92-4e75-93f0-7d6b5c4a2104", Doctor, 6},
    {"nils.nurse", "1d2f3b4c-5a69-4788-8796-a5b4c3d2e105", Nurse, 30},
    {"maja.lab", "7e6d5c4b-3a29-4180-8f7e-6d5c4b3a2906", Nurse, 26},
    {"otto.lab", "5b8f0d13-9c24-4e6a-a1b7-c8d9e0f1a207", Nurse, 17},
    {"audrey.auditor", "a9c8b7d6-e5f4-4032-9180-7f6e5d4c3b08", Auditor, 3},
};

constexpr const char *kMeasuringStations[] = {"LUNG-LAB-01", "LUNG-LAB-02", "LUNG-LAB-03", "WARD-4-CART",
                                              "OUTPATIENT-SPIRO"};
constexpr const char *kOfficeStations[] = {"ADMIN-PC-11", "ADMIN-PC-12"};

/// An action, how often it comes up beside the others, and where it works.
struct Habit
{
    Action action;
    int weight;
    const char *database;
    const char *info;
};

constexpr Habit kMeasuring[] = {
    {SearchPerson, 26, "persondb", "last_name: %1"},
    {ViewPerson, 18, "persondb", ""},
    {AddPerson, 3, "persondb", ""},
    {UpdatePerson, 4, "persondb", "height, weight"},
    {MatchPerson, 2, "persondb", "Identification by personal id"},
    {MergePerson, 1, "persondb", ""},
    {FetchPersonStudies, 14, "studydb", ""},
    {FetchPersonCustomFields, 6, "persondb", ""},
    {AddStudy, 12, "studydb", "Flow-volume spirometry"},
    {UpdateStudy, 6, "studydb", "Interpretation"},
    {ViewStudy, 16, "studydb", ""},
    {ModifyStudy, 3, "studydb", "Trial 2 excluded"},
    {DeleteStudy, 1, "studydb", "Cancelled measurement"},
    {Export, 4, "", "Report as PDF"},
    {Import, 3, "", "GDT order"},
};

constexpr Habit kInterpreting[] = {
    {SearchStudy, 18, "studydb", "Last 7 days, not interpreted"},
    {ViewStudy, 30, "studydb", ""},
    {UpdateStudy, 14, "studydb", "Interpretation"},
    {SearchPerson, 10, "persondb", "last_name: %1"},
    {ViewPerson, 12, "persondb", ""},
    {ModifyPerson, 2, "persondb", "Smoking history"},
    {Export, 6, "", "Report as PDF"},
};

constexpr Habit kAdministrating[] = {
    {LoadSettings, 8, "", "Corvane Settings Management"},
    {SaveSettings, 6, "", "Corvane Settings Management"},
    {ViewSettingsDiff, 5, "", "Corvane Settings Management"},
    {SetActiveSettings, 2, "settings", "New release of the reference values"},
    {GetOperator, 8, "supportdb", ""},
    {AddOperator, 1, "supportdb", ""},
    {UpdateOperator, 3, "supportdb", ""},
    {DeleteOperator, 1, "supportdb", ""},
    {LoadRoles, 6, "supportdb", ""},
    {ModifyRole, 1, "supportdb", ""},
    {LoadOrganization, 4, "supportdb", ""},
    {UpdateDepartment, 1, "supportdb", ""},
    {ConnectionChange, 2, "supportdb", "Corvane Access Control"},
};

constexpr Habit kAuditing[] = {
    {SearchAuditTrail, 12, "actiondb",
     "SELECT timestamp_action, category, action_level, action, action_type, operator, operator_name, system, "
     "database_key, info, target_database, target_server FROM action_log ORDER BY timestamp_action DESC;"},
    {Export, 1, "actiondb", "Audit trail of the month"},
};

constexpr const char *kLastNames[] = {"Virt", "Lind", "Mäk", "Okaf", "Berg", "Nowa", "Sant", "Jans", "Korh"};

struct Fault
{
    Action action;
    quint32 code;
    const char *data;
};

constexpr Fault kFaults[] = {
    {Login, 0x14200001, "Sign-in failed"},
    {SearchPerson, 0x16300002, "Lost connection to server during query"},
    {AddStudy, 0x16300002, "Lost connection to server during query"},
    {AutomaticExport, 0x14200006, "The folder of the hospital system cannot be reached"},
    {LoadSettings, 0x14200003, "No active configuration"},
};

constexpr int kFirstSecond = 5 * 3600 + 40 * 60;  // of a working day, in UTC
constexpr int kLastSecond = 14 * 3600 + 30 * 60;
constexpr int kSundayPercent = 4;
constexpr int kSaturdayPercent = 14;
constexpr int kJulyPercent = 45;
constexpr int kFaultPercent = 1;
constexpr char kServer[] =
    "Database=halvorn_%1;Driver=MariaDB Unicode;Port=3306;Server=db.lungclinic.example";

/// How much goes on, beside an ordinary working day.
double weightOf(const QDate &day)
{
    double weight = 1;
    if (day.dayOfWeek() == Qt::Sunday)
        weight *= kSundayPercent / 100.0;
    else if (day.dayOfWeek() == Qt::Saturday)
        weight *= kSaturdayPercent / 100.0;
    if (day.month() == 7)
        weight *= kJulyPercent / 100.0;
    if ((day.month() == 12 && day.day() >= 24) || (day.month() == 1 && day.day() == 1))
        weight *= kSaturdayPercent / 100.0;
    return weight;
}

template<std::size_t Size>
QVector<Habit> toVector(const Habit (&habits)[Size])
{
    return QVector<Habit>(std::begin(habits), std::end(habits));
}

const QVector<Habit> &habitsOf(Role role)
{
    static const QVector<Habit> ofRoles[] = {toVector(kAdministrating), toVector(kInterpreting),
                                             toVector(kMeasuring), toVector(kAuditing)};
    return ofRoles[role];
}

/// The entry at which the sum of the weights passes a number.
template<typename Iterator, typename Weight>
Iterator pick(Iterator first, Iterator last, int number, Weight weightOfEntry)
{
    while (std::next(first) != last && number >= weightOfEntry(*first))
        number -= weightOfEntry(*first++);
    return first;
}

template<typename Container, typename Weight>
int sumOf(const Container &entries, Weight weightOfEntry)
{
    int sum = 0;
    for (const auto &entry : entries)
        sum += weightOfEntry(entry);
    return sum;
}

}  // namespace

/// One person at one workstation, at one moment.
struct DemoEvents::Session
{
    const Person *person;
    QString station;
    QDateTime time;
    QString key;  // of the patient or study at hand
};

DemoEvents::DemoEvents(quint32 seed, const QDate &firstDay, const QDate &lastDay, int count)
    : m_random(seed)
    , m_day(firstDay)
    , m_lastDay(lastDay)
    , m_count(count)
{
    for (QDate day = firstDay; day <= lastDay; day = day.addDays(1))
        m_weights += weightOf(day);
}

bool DemoEvents::atEnd() const
{
    return m_day > m_lastDay;
}

QVector<ActionLogEntry> DemoEvents::nextDay()
{
    const int count = eventsOfDay();
    QVector<ActionLogEntry> events;
    events.reserve(count);
    addNight(events);
    while (events.size() < count)
        addSession(events);
    events.resize(count);
    std::stable_sort(events.begin(), events.end(),
                     [](const ActionLogEntry &a, const ActionLogEntry &b) { return a.time < b.time; });
    m_day = m_day.addDays(1);
    return events;
}

/// The days' shares of the number follow their weights, and together are the number.
int DemoEvents::eventsOfDay()
{
    m_passed += weightOf(m_day);
    const int until = m_day == m_lastDay ? m_count : static_cast<int>(m_count * (m_passed / m_weights));
    const int count = until - m_given;
    m_given = until;
    return count;
}

/// What the programs do without anybody.
void DemoEvents::addNight(QVector<ActionLogEntry> &events)
{
    const auto add = [&](int hour, Action action, const char *info) {
        ActionLogEntry event;
        event.time = QDateTime(m_day, QTime(hour, below(60), below(60)), Qt::UTC);
        event.action = action;
        event.category = category(action);
        event.level = level(action);
        event.actionType = Automatic;
        event.system = QStringLiteral("HALVORN-SERVER");
        event.info = QString::fromUtf8(info);
        events.append(event);
    };
    add(1, SynchronizationStarted, "Persons and studies");
    add(2, SynchronizationStopped, "Persons and studies");
    add(3, AutomaticExport, "SpiroXML2 to the hospital system");
    if (m_day.dayOfWeek() == Qt::Sunday)
        add(4, ActionLogSynchronization, "");
}

void DemoEvents::addSession(QVector<ActionLogEntry> &events)
{
    const auto presence = [](const Person &person) {
        return person.presence;
    };
    const Person *person =
        pick(std::begin(kPersons), std::end(kPersons), below(sumOf(kPersons, presence)), presence);
    const bool measures = person->role == Doctor || person->role == Nurse;
    Session session;
    session.person = person;
    session.station = QLatin1String(measures ? kMeasuringStations[below(int(std::size(kMeasuringStations)))]
                                             : kOfficeStations[below(int(std::size(kOfficeStations)))]);
    session.time =
        QDateTime(m_day, QTime(0, 0), Qt::UTC).addSecs(kFirstSecond + below(kLastSecond - kFirstSecond));
    events.append(eventOf(session, Started));
    if (below(100) < kFaultPercent)
        addError(events, session);
    events.append(eventOf(session, Login));
    const int patients = measures ? 1 + below(7) : 1 + below(3);
    for (int i = 0; i < patients; ++i)
        addWork(events, session);
    events.append(eventOf(session, Logout));
    events.append(eventOf(session, Stopping));
}

/// The events around one patient, or one matter of an administrator.
void DemoEvents::addWork(QVector<ActionLogEntry> &events, Session &session)
{
    const QVector<Habit> &habits = habitsOf(session.person->role);
    const auto weight = [](const Habit &habit) {
        return habit.weight;
    };
    session.key = newKey();
    const int steps = 2 + below(6);
    for (int i = 0; i < steps; ++i) {
        if (below(100) < kFaultPercent)
            addError(events, session);
        const Habit &habit = *pick(habits.cbegin(), habits.cend(), below(sumOf(habits, weight)), weight);
        ActionLogEntry event = eventOf(session, habit.action);
        event.info = QString::fromUtf8(habit.info);
        if (event.info.contains(QLatin1String("%1")))
            event.info = event.info.arg(QString::fromUtf8(kLastNames[below(int(std::size(kLastNames)))]));
        event.targetDatabase = QLatin1String(habit.database);
        if (!event.targetDatabase.isEmpty())
            event.targetServer = QString::fromLatin1(kServer).arg(event.targetDatabase.chopped(2));
        const bool hasRecord =
            habit.database == QLatin1String("persondb") || habit.database == QLatin1String("studydb");
        if (hasRecord && habit.action != SearchPerson && habit.action != SearchStudy)
            event.databaseKey = UuidString(session.key);
        events.append(event);
    }
}

void DemoEvents::addError(QVector<ActionLogEntry> &events, Session &session)
{
    const Fault &fault = kFaults[below(int(std::size(kFaults)))];
    ActionLogEntry event = eventOf(session, fault.action);
    event.category = ErrorCategory;
    event.actionType = Automatic;
    event.info = errorEventText(fault.code, QString::fromLatin1(fault.data));
    events.append(event);
}

ActionLogEntry DemoEvents::eventOf(Session &session, int action)
{
    session.time = session.time.addSecs(2 + below(90));
    ActionLogEntry event;
    event.time = session.time;
    event.action = action;
    event.category = category(static_cast<Action>(action));
    event.level = level(static_cast<Action>(action));
    event.actionType = Human;
    event.operatorId = UuidString(QLatin1String(session.person->id));
    event.operatorName = QLatin1String(session.person->name);
    event.system = session.station;
    return event;
}

QString DemoEvents::newKey()
{
    quint32 words[4];
    m_random.fillRange(words);
    const QByteArray bytes(reinterpret_cast<const char *>(words), sizeof words);
    return QUuid::fromRfc4122(bytes).toString(QUuid::WithoutBraces);
}

int DemoEvents::below(int limit)
{
    return m_random.bounded(limit);
}
