#include "CommunicationAndData/access/accessmethodsystem.h"

#include "CommunicationAndData/access/accessmethodsystem_p.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <lm.h>
#include <sddl.h>

#include <cstring>
#include <memory>
#include <new>

using namespace AccountServices;

namespace {

constexpr DWORD kNameRoom = 512;  // characters; account and domain names end at 256
constexpr DWORD kComputerNameRoom = 255;
constexpr DWORD kUsersAtOnce = 1000;

/// Closes a token when it is no longer needed.
class Token
{
public:
    Token() = default;
    ~Token()
    {
        if (m_handle)
            CloseHandle(m_handle);
    }
    Q_DISABLE_COPY(Token)

    HANDLE get() const
    {
        return m_handle;
    }
    HANDLE *receive()
    {
        return &m_handle;
    }

private:
    HANDLE m_handle = nullptr;
};

struct NetBufferDeleter
{
    void operator()(BYTE *buffer) const
    {
        NetApiBufferFree(buffer);
    }
};
using NetBuffer = std::unique_ptr<BYTE, NetBufferDeleter>;

using TokenData = std::unique_ptr<BYTE[]>;

struct AccountInfo
{
    QString domain;
    QString name;
    QString sid;
};

QString text(const wchar_t *wide)
{
    return QString::fromWCharArray(wide);
}

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// The form in which the network calls take a server: none for this computer.
const wchar_t *serverArgument(const QString &server)
{
    return server.isEmpty() ? nullptr : wide(server);
}

/// Whether a text ends where Windows sees its end: what follows a zero would be accepted unseen.
bool isWhole(const QString &text)
{
    return !text.contains(QChar(QChar::Null));
}

/// The form in which a log-on takes a domain: none where the user's name is a principal's, "name@domain", and
/// so holds the domain itself.
const wchar_t *domainArgument(const QString &domain, const QString &user)
{
    return domain.isEmpty() && user.contains(QLatin1Char('@')) ? nullptr : wide(domain);
}

bool openProcessToken(Token &token)
{
    return OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.receive());
}

/// How many bytes a kind of information takes.
bool tokenDataSize(HANDLE token, TOKEN_INFORMATION_CLASS kind, DWORD &size)
{
    size = 0;
    return GetTokenInformation(token, kind, nullptr, 0, &size) || GetLastError() == ERROR_INSUFFICIENT_BUFFER;
}

/// Domain and name of an account or group.
bool lookUpSid(PSID sid, QString &domain, QString &name)
{
    wchar_t nameBuffer[kNameRoom] = {};
    wchar_t domainBuffer[kNameRoom] = {};
    DWORD nameSize = kNameRoom;
    DWORD domainSize = kNameRoom;
    SID_NAME_USE use = SidTypeUnknown;
    if (!LookupAccountSidW(nullptr, sid, nameBuffer, &nameSize, domainBuffer, &domainSize, &use))
        return false;
    name = text(nameBuffer);
    domain = text(domainBuffer);
    return true;
}

QString sidText(PSID sid)
{
    LPWSTR converted = nullptr;
    if (!ConvertSidToStringSidW(sid, &converted))
        return QString();
    const QString result = text(converted);
    LocalFree(converted);
    return result;
}

/// \return  the failure's text, empty for success
QLatin1String readTokenOwner(HANDLE token, AccountInfo &owner)
{
    DWORD size = 0;
    if (!tokenDataSize(token, TokenUser, size))
        return kNoBufferSize;
    const TokenData data(new (std::nothrow) BYTE[size]);
    if (!data)
        return kNoMemory;
    if (!GetTokenInformation(token, TokenUser, data.get(), size, &size))
        return kNoUserInformation;
    const PSID sid = reinterpret_cast<const TOKEN_USER *>(data.get())->User.Sid;
    if (!lookUpSid(sid, owner.domain, owner.name))
        return kNoAccount;
    owner.sid = sidText(sid);
    return QLatin1String();
}

/// The groups of a token; null with `error` set on failure.
TokenData readTokenGroups(HANDLE token, QString &error, QLatin1String function)
{
    DWORD size = 0;
    if (!tokenDataSize(token, TokenGroups, size)) {
        fail(function, kNoBufferSize, error);
        return nullptr;
    }
    TokenData data(new (std::nothrow) BYTE[size]);
    if (!data || !GetTokenInformation(token, TokenGroups, data.get(), size, &size)) {
        const DWORD reason = GetLastError();
        error = kNoTokenInformation;
        log(function, QStringLiteral("%1: %2, %3").arg(error).arg(reason).arg(size));
        return nullptr;
    }
    return data;
}

const TOKEN_GROUPS &groupsOf(const TokenData &data)
{
    return *reinterpret_cast<const TOKEN_GROUPS *>(data.get());
}

bool hasGroup(const TOKEN_GROUPS &groups, PSID wanted)
{
    for (DWORD i = 0; i < groups.GroupCount; ++i) {
        if (EqualSid(wanted, groups.Groups[i].Sid))
            return true;
    }
    return false;
}

bool isAdminToken(HANDLE token, UuidString &id, QString &error, QLatin1String function)
{
    if (IsTokenRestricted(token))
        return fail(function, kRestricted, error);
    const TokenData groups = readTokenGroups(token, error, function);
    if (!groups)
        return false;
    id = getUuidFromToken(token, error);

    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    PSID administrators = nullptr;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0,
                                  0, 0, 0, 0, &administrators))
        return fail(function, kNoSid, error);
    const bool isAdmin = hasGroup(groupsOf(groups), administrators);
    FreeSid(administrators);
    return isAdmin || fail(function, kNoAdmin, error);
}

bool computerName(QString &name)
{
    wchar_t buffer[kComputerNameRoom] = {};
    DWORD size = kComputerNameRoom;
    if (!GetComputerNameW(buffer, &size))
        return false;
    name = text(buffer);
    return true;
}

/// What stands in front of a server's accounts. False when this computer's name can't be had.
bool listPrefix(const QString &server, QString &prefix)
{
    if (server.isEmpty())
        return computerName(prefix);
    prefix = getDomainName(server);
    if (prefix.isEmpty())
        prefix = server;
    return true;
}

/// The names that one of the group enumerations gives.
///
/// \param member   where an entry has its name
/// \param failure  the log's text for a status
template<typename Entry, typename Enumerate>
QStringList listGroups(const QString &server, const QString &prefix, Enumerate enumerate,
                       LPWSTR Entry::*member, const QString &failure)
{
    BYTE *buffer = nullptr;
    DWORD count = 0;
    DWORD total = 0;
    const NET_API_STATUS status =
        enumerate(serverArgument(server), 0, &buffer, MAX_PREFERRED_LENGTH, &count, &total, nullptr);
    const NetBuffer owner(buffer);
    if (status != NERR_Success)
        log(QLatin1String("getSystemGroups"), failure.arg(status));
    QStringList names;
    const auto *entries = reinterpret_cast<const Entry *>(buffer);
    for (DWORD i = 0; entries && i < count; ++i)
        names.append(qualifiedName(prefix, text(entries[i].*member)));
    return names;
}

bool isBuiltinGroup(PSID sid)
{
    static const SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    return std::memcmp(GetSidIdentifierAuthority(sid), &authority, sizeof authority) == 0 &&
           *GetSidSubAuthorityCount(sid) == 2 && *GetSidSubAuthority(sid, 0) == SECURITY_BUILTIN_DOMAIN_RID;
}

/// The names of one group of a token. Windows keeps its own groups in a domain "BUILTIN", while a listing
/// shows them as the computer's.
QStringList groupNames(PSID sid, const QString &computer)
{
    QString domain;
    QString name;
    if (!lookUpSid(sid, domain, name))
        return {};
    QStringList names(qualifiedName(domain, name));
    if (isBuiltinGroup(sid) && !computer.isEmpty())
        names.append(qualifiedName(computer, name));
    return names;
}

}  // namespace

UuidString getUuidFromToken(HANDLE token, QString &error)
{
    AccountInfo owner;
    const QLatin1String failure = readTokenOwner(token, owner);
    if (failure.isEmpty())
        return getUuidFromSid(owner.sid, error);
    error = failure;
    if (failure != kNoBufferSize)
        log(QLatin1String("getUuidFromToken"), error);
    return UuidString();
}

QString currentUsername(QString &sid, QString &error)
{
    const auto function = QLatin1String("currentUsername");
    Token token;
    if (!openProcessToken(token)) {
        fail(function, kNoProcessToken, error);
        return QString();
    }
    AccountInfo owner;
    const QLatin1String failure = readTokenOwner(token.get(), owner);
    if (!failure.isEmpty()) {
        fail(function, failure, error);
        return QString();
    }
    sid = owner.sid;
    const QString name = qualifiedName(owner.domain, owner.name);
    log(function, QLatin1String("currentUser=") + name);
    return name;
}

QStringList currentUserGroups()
{
    const auto function = QLatin1String("currentUserGroups");
    QString error;
    Token token;
    if (!openProcessToken(token)) {
        fail(function, kNoProcessToken, error);
        return {};
    }
    const TokenData data = readTokenGroups(token.get(), error, function);
    if (!data)
        return {};
    QString computer;
    computerName(computer);
    const TOKEN_GROUPS &groups = groupsOf(data);
    QStringList names;
    for (DWORD i = 0; i < groups.GroupCount; ++i)
        names += groupNames(groups.Groups[i].Sid, computer);
    names.removeDuplicates();
    return names;
}

QString getDomainName(const QString &server)
{
    const auto function = QLatin1String("getDomainName");
    BYTE *buffer = nullptr;
    const NET_API_STATUS status = NetWkstaGetInfo(const_cast<LPWSTR>(serverArgument(server)), 100, &buffer);
    const NetBuffer owner(buffer);
    if (status != NERR_Success) {
        log(function, QStringLiteral("NetWkstaGetInfo: %1").arg(status));
        return QString();
    }
    const QString domain = text(reinterpret_cast<const WKSTA_INFO_100 *>(buffer)->wki100_langroup);
    log(function, QLatin1String("domain=") + domain);
    return domain;
}

QStringList getServers(uint serverType)
{
    const auto function = QLatin1String("getServers");
    log(function, QStringLiteral("getServers servertype: %1").arg(serverType));
    BYTE *buffer = nullptr;
    DWORD count = 0;
    DWORD total = 0;
    const NET_API_STATUS status = NetServerEnum(nullptr, 100, &buffer, MAX_PREFERRED_LENGTH, &count, &total,
                                                serverType, nullptr, nullptr);
    const NetBuffer owner(buffer);
    if (status != NERR_Success)
        log(function, QStringLiteral("NetServerEnum: %1").arg(status));
    QStringList names;
    const auto *servers = reinterpret_cast<const SERVER_INFO_100 *>(buffer);
    for (DWORD i = 0; servers && i < count; ++i)
        names.append(QLatin1String(R"(\\)") + text(servers[i].sv100_name));
    return names;
}

QStringList getSystemGroups(const QString &server)
{
    QString prefix;
    if (!listPrefix(server, prefix))
        return {};
    QStringList names = listGroups(server, prefix, NetLocalGroupEnum, &LOCALGROUP_INFO_0::lgrpi0_name,
                                   QStringLiteral("NetLocalGroupEnum: %1 "));
    names += listGroups(server, prefix, NetGroupEnum, &GROUP_INFO_0::grpi0_name,
                        QStringLiteral("NetGroupEnum: %1"));
    return names;
}

QStringList getSystemUsers(const QString &server)
{
    QString prefix;
    if (!listPrefix(server, prefix))
        return {};
    QStringList names;
    DWORD index = 0;
    NET_API_STATUS status = ERROR_MORE_DATA;
    DWORD count = 1;
    while (status == ERROR_MORE_DATA && count > 0) {
        void *buffer = nullptr;
        count = 0;
        status = NetQueryDisplayInformation(serverArgument(server), 1, index, kUsersAtOnce,
                                            MAX_PREFERRED_LENGTH, &count, &buffer);
        const NetBuffer owner(static_cast<BYTE *>(buffer));
        if (status != NERR_Success && status != ERROR_MORE_DATA) {
            log(QLatin1String("getSystemUsers"),
                QStringLiteral("NetQueryDisplayInformation: %1").arg(status));
            break;
        }
        const auto *users = static_cast<const NET_DISPLAY_USER *>(buffer);
        for (DWORD i = 0; users && i < count; ++i) {
            names.append(qualifiedName(prefix, text(users[i].usri1_name)));
            index = users[i].usri1_next_index;
        }
    }
    return names;
}

bool isCurrentUserAdmin(UuidString &id, QString &error)
{
    const auto function = QLatin1String("isCurrentUserAdmin");
    Token token;
    if (!openProcessToken(token))
        return fail(function, kNoProcessToken, error);
    return isAdminToken(token.get(), id, error, function);
}

bool logonAdmin(const QString &user, const QString &domain, const QString &password, UuidString &id,
                QString &error)
{
    const auto function = QLatin1String("logonAdmin");
    if (!isWhole(user) || !isWhole(domain) || !isWhole(password))
        return fail(function, kLoginFailure, error);
    Token token;
    if (!LogonUserW(wide(user), domainArgument(domain, user), wide(password), LOGON32_LOGON_INTERACTIVE,
                    LOGON32_PROVIDER_DEFAULT, token.receive()))
        return fail(function, kLoginFailure, error);
    return isAdminToken(token.get(), id, error, function);
}
