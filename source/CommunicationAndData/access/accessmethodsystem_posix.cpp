#include "CommunicationAndData/access/accessmethodsystem.h"

#include "CommunicationAndData/access/accessmethodsystem_p.h"
#include "CommunicationAndData/access/pamlogin.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSysInfo>
#include <QtEndian>

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

#include <cerrno>
#include <vector>

using namespace AccountServices;

namespace {

const auto kAdministratorGroups = {"sudo", "wheel", "admin"};
constexpr quint32 kRoot = 0;

// The numbers of people's accounts and groups: from the site's lowest on, without those that the system hands
// out by itself to services (61184 to 65519) and those next to them with a meaning of their own, up to 65535.
constexpr quint32 kLowestOrdinary = 1000;
constexpr quint32 kFirstReserved = 61184;
constexpr quint32 kLastReserved = 65535;

// Sub-authorities of ten digits: the least such number, and how many fit 32 bits.
constexpr quint32 kLeastTenDigits = 1000000000;
constexpr quint64 kTenDigitNumbers = 0x100000000 - kLeastTenDigits;
constexpr int kDomainParts = 3;

constexpr quint64 kFirstRelativeId = 1000;  // as Windows gives the first account of a computer

// What Windows answers about a server that isn't there.
constexpr int kNoSuchServer = 53;  // ERROR_BAD_NETPATH

constexpr qint64 kRangeOfIds = 65536;  // what a computer's account database takes at the least

struct Account
{
    QString name;
    quint32 user = 0;
    quint32 group = 0;
};

QString hostName()
{
    return QSysInfo::machineHostName();
}

/// "S-1-5-21-a-b-c-", the same at every start of this computer and another one on every other computer. The
/// machine id itself is nothing to hand out, so a digest stands in for it.
QString sidOfThisComputer()
{
    QByteArray identity = QSysInfo::machineUniqueId();
    if (identity.isEmpty())
        identity = hostName().toUtf8();
    const QByteArray digest =
        QCryptographicHash::hash("Halvorn accounts of " + identity, QCryptographicHash::Sha256);
    QString sid = QStringLiteral("S-1-5-21-");
    for (int part = 0; part < kDomainParts; ++part) {
        const auto number = qFromBigEndian<quint64>(digest.constData() + part * int(sizeof(quint64)));
        sid += QString::number(kLeastTenDigits + number % kTenDigitNumbers) + QLatin1Char('-');
    }
    return sid;
}

QString sidOfUser(quint32 user)
{
    return sidOfThisComputer() + QString::number(kFirstRelativeId + 2 * quint64(user));
}

/// An account as domain + "\\" + name. A directory's accounts bring their domain along.
QString accountName(const QString &domain, const QString &name)
{
    return name.contains(QLatin1Char('\\')) ? name : qualifiedName(domain, name);
}

bool isOrdinary(quint32 id, quint32 lowest)
{
    return id >= lowest && (id < kFirstReserved || id > kLastReserved);
}

/// A number of the site's rules for accounts, as "UID_MIN 1000".
quint32 accountRule(const QByteArray &name, quint32 byDefault)
{
    QFile rules(QStringLiteral("/etc/login.defs"));
    if (!rules.open(QIODevice::ReadOnly))
        return byDefault;
    quint32 value = byDefault;
    while (!rules.atEnd()) {
        const QList<QByteArray> words = rules.readLine().simplified().split(' ');
        bool ok = false;
        if (words.size() == 2 && words.first() == name) {
            const quint32 number = words.last().toUInt(&ok, 0);
            value = ok ? number : value;
        }
    }
    return value;
}

/// Calls one of the re-entrant look-ups of the account database with room enough.
///
/// \return  the system's error number, 0 also where there is no such entry
template<typename Entry, typename Call>
int lookUp(Entry &entry, Entry *&found, QByteArray &room, Call call)
{
    constexpr int kMostRoom = 1 << 24;
    room.resize(1 << 14);
    int status = ERANGE;
    while ((status = call(&entry, room.data(), size_t(room.size()), &found)) == ERANGE &&
           room.size() < kMostRoom)
        room.resize(room.size() * 2);
    return status;
}

bool toAccount(const passwd *entry, Account &account)
{
    if (!entry)
        return false;
    account = {QString::fromLocal8Bit(entry->pw_name), entry->pw_uid, entry->pw_gid};
    return true;
}

/// \param error  set to why there is no such account
bool findAccount(quint32 user, Account &account, QLatin1String &error)
{
    passwd entry = {};
    passwd *found = nullptr;
    QByteArray room;
    const int status = lookUp(entry, found, room, [user](auto... rest) { return getpwuid_r(user, rest...); });
    error = status == 0 ? kNoAccount : kNoUserInformation;
    return toAccount(found, account);
}

bool findAccount(const QString &name, Account &account)
{
    const QByteArray key = name.toLocal8Bit();
    passwd entry = {};
    passwd *found = nullptr;
    QByteArray room;
    lookUp(entry, found, room, [&key](auto... rest) { return getpwnam_r(key.constData(), rest...); });
    return toAccount(found, account);
}

/// \return  empty where there is no such group
QString groupName(quint32 id)
{
    group entry = {};
    group *found = nullptr;
    QByteArray room;
    lookUp(entry, found, room, [id](auto... rest) { return getgrgid_r(id, rest...); });
    return found ? QString::fromLocal8Bit(found->gr_name) : QString();
}

bool isGroupNumber(const char *name, quint32 id)
{
    group entry = {};
    group *found = nullptr;
    QByteArray room;
    lookUp(entry, found, room, [name](auto... rest) { return getgrnam_r(name, rest...); });
    return found && found->gr_gid == id;
}

bool isAdministratorGroup(quint32 id)
{
    return std::any_of(kAdministratorGroups.begin(), kAdministratorGroups.end(),
                       [id](const char *name) { return isGroupNumber(name, id); });
}

/// Whether the process was put where it can't use its account's rights: it may gain no privileges, or its
/// account numbers are those of a name space that anybody can make, in which everybody is root.
bool isHeldBack()
{
#ifdef Q_OS_LINUX
    if (prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0) == 1)
        return true;
    QFile map(QStringLiteral("/proc/self/uid_map"));
    if (!map.open(QIODevice::ReadOnly))
        return false;
    qint64 ids = 0;
    for (const QByteArray &line : map.readAll().split('\n'))
        ids += line.simplified().split(' ').value(2).toLongLong();
    return ids < kRangeOfIds;
#else
    return false;
#endif
}

template<typename Call>
bool readGroups(QVector<gid_t> &groups, Call call)
{
    constexpr int kMostGroups = 1 << 17;
    std::vector<gid_t> buffer;
    for (int count = 64; count <= kMostGroups; count *= 2) {
        buffer.resize(static_cast<size_t>(count));
        const int got = call(buffer.data(), count);
        if (got >= 0) {
            groups = QVector<gid_t>(buffer.cbegin(), buffer.cbegin() + got);
            return true;
        }
    }
    return false;
}

bool openProcessToken(AccountToken &token)
{
    const auto ofProcess = [](gid_t *groups, int count) {
        return getgroups(count, groups);
    };
    if (!readGroups(token.groups, ofProcess))
        return false;
    token.user = geteuid();
    if (!token.groups.contains(getegid()))
        token.groups.prepend(getegid());
    token.restricted = isHeldBack();
    return true;
}

bool openAccountToken(const QString &name, AccountToken &token)
{
    Account account;
    if (!findAccount(name, account))
        return false;
    const QByteArray key = name.toLocal8Bit();
    const auto ofAccount = [&](gid_t *groups, int count) {
        int got = count;
        return getgrouplist(key.constData(), account.group, groups, &got) < 0 ? -1 : got;
    };
    token.user = account.user;
    return readGroups(token.groups, ofAccount);
}

bool isAdminToken(const AccountToken &token, UuidString &id, QString &error, QLatin1String function)
{
    if (token.restricted)
        return fail(function, kRestricted, error);
    id = getUuidFromToken(&token, error);
    if (token.user == kRoot || std::any_of(token.groups.begin(), token.groups.end(), isAdministratorGroup))
        return true;
    return fail(function, kNoAdmin, error);
}

bool isThisComputer(const QString &server)
{
    QString name = server;
    while (name.startsWith(QLatin1Char('\\')))
        name.remove(0, 1);
    return name.isEmpty() || name == QLatin1String(".") ||
           name.compare(hostName(), Qt::CaseInsensitive) == 0 ||
           name.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0;
}

QString listPrefix(const QString &server)
{
    if (server.isEmpty())
        return hostName();
    const QString domain = getDomainName(server);
    return domain.isEmpty() ? server : domain;
}

}  // namespace

UuidString getUuidFromToken(HANDLE token, QString &error)
{
    if (!token) {
        error = kNoBufferSize;
        return UuidString();
    }
    Account account;
    QLatin1String reason;
    if (!findAccount(token->user, account, reason)) {
        fail(QLatin1String("getUuidFromToken"), reason, error);
        return UuidString();
    }
    return getUuidFromSid(sidOfUser(token->user), error);
}

QString currentUsername(QString &sid, QString &error)
{
    const auto function = QLatin1String("currentUsername");
    Account account;
    QLatin1String reason;
    const quint32 user = geteuid();
    if (!findAccount(user, account, reason)) {
        fail(function, reason, error);
        return QString();
    }
    sid = sidOfUser(user);
    const QString name = accountName(hostName(), account.name);
    log(function, QLatin1String("currentUser=") + name);
    return name;
}

QStringList currentUserGroups()
{
    AccountToken token;
    if (!openProcessToken(token)) {
        log(QLatin1String("currentUserGroups"), kNoTokenInformation);
        return {};
    }
    QStringList names;
    for (const quint32 id : qAsConst(token.groups)) {
        const QString name = groupName(id);
        if (!name.isEmpty())
            names.append(accountName(hostName(), name));
    }
    names.removeDuplicates();
    return names;
}

QString getDomainName(const QString &server)
{
    const auto function = QLatin1String("getDomainName");
    if (!isThisComputer(server)) {
        log(function, QStringLiteral("NetWkstaGetInfo: %1").arg(kNoSuchServer));
        return QString();
    }
    const QString domain = hostName();
    log(function, QLatin1String("domain=") + domain);
    return domain;
}

QStringList getServers(uint serverType)
{
    // There is no browse list here that could name a domain's servers.
    log(QLatin1String("getServers"), QStringLiteral("getServers servertype: %1").arg(serverType));
    return {};
}

QStringList getSystemGroups(const QString &server)
{
    const auto function = QLatin1String("getSystemGroups");
    const QString prefix = listPrefix(server);
    if (!isThisComputer(server)) {
        log(function, QStringLiteral("NetLocalGroupEnum: %1 ").arg(kNoSuchServer));
        log(function, QStringLiteral("NetGroupEnum: %1").arg(kNoSuchServer));
        return {};
    }
    const quint32 lowest = accountRule("GID_MIN", kLowestOrdinary);
    QStringList names;
    setgrent();
    while (const group *entry = getgrent()) {
        if (isOrdinary(entry->gr_gid, lowest))
            names.append(accountName(prefix, QString::fromLocal8Bit(entry->gr_name)));
    }
    endgrent();
    names.removeDuplicates();
    return names;
}

QStringList getSystemUsers(const QString &server)
{
    const auto function = QLatin1String("getSystemUsers");
    const QString prefix = listPrefix(server);
    if (!isThisComputer(server)) {
        log(function, QStringLiteral("NetQueryDisplayInformation: %1").arg(kNoSuchServer));
        return {};
    }
    const quint32 lowest = accountRule("UID_MIN", kLowestOrdinary);
    QStringList names;
    setpwent();
    while (const passwd *entry = getpwent()) {
        if (isOrdinary(entry->pw_uid, lowest))
            names.append(accountName(prefix, QString::fromLocal8Bit(entry->pw_name)));
    }
    endpwent();
    names.removeDuplicates();
    return names;
}

bool isCurrentUserAdmin(UuidString &id, QString &error)
{
    const auto function = QLatin1String("isCurrentUserAdmin");
    AccountToken token;
    if (!openProcessToken(token))
        return fail(function, kNoProcessToken, error);
    return isAdminToken(token, id, error, function);
}

bool logonAdmin(const QString &user, const QString &domain, const QString &password, UuidString &id,
                QString &error)
{
    const auto function = QLatin1String("logonAdmin");
    const QString name = isThisComputer(domain) ? user : accountName(domain, user);
    QString account;
    if (!pamAccepts(name, password, account))
        return fail(function, kLoginFailure, error);
    AccountToken token;
    if (!openAccountToken(account, token))
        return fail(function, kNoTokenInformation, error);
    return isAdminToken(token, id, error, function);
}
