#include "windowsaccounts.h"

#include "windowscalls/lm.h"
#include "windowscalls/sddl.h"

#include <cstdlib>
#include <cstring>

namespace {

WindowsAccounts *thePresent = nullptr;

constexpr int kSidHead = 8;  // revision, count and authority; the parts follow
constexpr DWORD kIndexStep = 7;

WindowsAccounts &windows()
{
    return WindowsAccounts::present();
}

QString given(const wchar_t *text)
{
    return text ? QString::fromWCharArray(text) : QStringLiteral("null");
}

size_t bytesOf(const QString &text)
{
    return size_t(text.size() + 1) * sizeof(wchar_t);
}

/// The bytes of "S-1-5-...".
QByteArray sidBytes(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('-')).mid(3);
    QByteArray bytes(kSidHead + parts.size() * int(sizeof(DWORD)), '\0');
    bytes[0] = 1;
    bytes[1] = char(parts.size());
    bytes[7] = 5;
    for (int i = 0; i < parts.size(); ++i) {
        const DWORD part = parts.at(i).toUInt();
        memcpy(bytes.data() + kSidHead + i * int(sizeof part), &part, sizeof part);
    }
    return bytes;
}

size_t sidSize(PSID sid)
{
    return kSidHead + *GetSidSubAuthorityCount(sid) * sizeof(DWORD);
}

QString sidText(PSID sid)
{
    QString text = QStringLiteral("S-1-%1").arg(GetSidIdentifierAuthority(sid)->Value[5]);
    for (DWORD i = 0; i < *GetSidSubAuthorityCount(sid); ++i)
        text += QLatin1Char('-') + QString::number(*GetSidSubAuthority(sid, i));
    return text;
}

/// A buffer as the network calls give it: the entries, and behind them the texts that they point to.
template<typename Entry>
Entry *networkBuffer(const QStringList &texts, LPWSTR Entry::*member)
{
    size_t size = sizeof(Entry) * size_t(texts.size());
    for (const QString &text : texts)
        size += bytesOf(text);
    auto *entries = static_cast<Entry *>(calloc(1, size + 1));
    auto *room = reinterpret_cast<BYTE *>(entries + texts.size());
    for (int i = 0; i < texts.size(); ++i) {
        memcpy(room, texts.at(i).utf16(), bytesOf(texts.at(i)));
        entries[i].*member = reinterpret_cast<LPWSTR>(room);
        room += bytesOf(texts.at(i));
    }
    windows().handOut(entries);
    return entries;
}

/// What the listings have in common: all entries at once, or a status and nothing.
template<typename Entry>
NET_API_STATUS list(const QString &call, const QStringList &arguments, const QStringList &texts,
                    LPWSTR Entry::*member, LPBYTE *buffer, DWORD *count, DWORD *total)
{
    if (!windows().begin(call, arguments))
        return windows().failureOf(call);
    *buffer = reinterpret_cast<BYTE *>(networkBuffer(texts, member));
    *count = *total = DWORD(texts.size());
    return NERR_Success;
}

HANDLE newToken()
{
    HANDLE token = new AccountToken;
    windows().handOut(token);
    return token;
}

BOOL copyText(const QString &text, LPWSTR buffer, DWORD *size)
{
    const bool fits = *size > DWORD(text.size());
    if (fits)
        memcpy(buffer, text.utf16(), bytesOf(text));
    else
        windows().lastError = ERROR_INSUFFICIENT_BUFFER;
    *size = DWORD(text.size()) + (fits ? 0 : 1);
    return fits;
}

/// The token's data with pointers into itself.
QByteArray tokenUser(const BYTE *at)
{
    const QByteArray sid = sidBytes(windows().user);
    const TOKEN_USER user = {{const_cast<BYTE *>(at) + sizeof(TOKEN_USER), 0}};
    return QByteArray(reinterpret_cast<const char *>(&user), sizeof user) + sid;
}

QByteArray tokenGroups(const BYTE *at)
{
    const QStringList &groups = windows().groups;
    QByteArray head(int(sizeof(TOKEN_GROUPS) + sizeof(SID_AND_ATTRIBUTES) * size_t(groups.size())), '\0');
    QByteArray sids;
    const DWORD count = DWORD(groups.size());
    memcpy(head.data(), &count, sizeof count);
    for (int i = 0; i < groups.size(); ++i) {
        const SID_AND_ATTRIBUTES entry = {const_cast<BYTE *>(at) + head.size() + sids.size(), 0};
        memcpy(head.data() + offsetof(TOKEN_GROUPS, Groups) + size_t(i) * sizeof entry, &entry, sizeof entry);
        sids += sidBytes(groups.at(i));
    }
    return head + sids;
}

}  // namespace

WindowsAccounts::WindowsAccounts()
{
    thePresent = this;
}

WindowsAccounts::~WindowsAccounts()
{
    thePresent = nullptr;
}

WindowsAccounts &WindowsAccounts::present()
{
    return *thePresent;
}

void WindowsAccounts::fail(const QString &call, uint number)
{
    m_failures.insert(call, number);
}

bool WindowsAccounts::begin(const QString &call, const QStringList &arguments)
{
    calls.append((QStringList(call) + arguments).join(QLatin1Char(' ')));
    if (!m_failures.contains(call))
        return true;
    lastError = m_failures.value(call);
    return false;
}

uint WindowsAccounts::failureOf(const QString &call) const
{
    return m_failures.value(call);
}

void WindowsAccounts::handOut(const void *what)
{
    m_handedOut.insert(what);
}

bool WindowsAccounts::takeBack(const void *what)
{
    const bool known = m_handedOut.remove(what);
    wrongReturns += known ? 0 : 1;
    return known;
}

int WindowsAccounts::handedOut() const
{
    return m_handedOut.size();
}

DWORD GetLastError()
{
    return windows().lastError;
}

HANDLE GetCurrentProcess()
{
    return nullptr;
}

BOOL CloseHandle(HANDLE handle)
{
    if (!windows().takeBack(handle))
        return FALSE;
    delete handle;
    return TRUE;
}

void *LocalFree(void *memory)
{
    if (windows().takeBack(memory))
        free(memory);
    return nullptr;
}

BOOL GetComputerNameW(LPWSTR buffer, DWORD *size)
{
    return windows().begin(QStringLiteral("GetComputerNameW"), {QString::number(*size)}) &&
           copyText(windows().computer, buffer, size);
}

BOOL OpenProcessToken(HANDLE, DWORD access, HANDLE *token)
{
    if (!windows().begin(QStringLiteral("OpenProcessToken"), {QString::number(access)}))
        return FALSE;
    *token = newToken();
    return TRUE;
}

BOOL LogonUserW(LPCWSTR user, LPCWSTR domain, LPCWSTR password, DWORD type, DWORD provider, HANDLE *token)
{
    if (!windows().begin(QStringLiteral("LogonUserW"), {given(user), given(domain), given(password),
                                                        QString::number(type), QString::number(provider)}))
        return FALSE;
    *token = newToken();
    return TRUE;
}

BOOL IsTokenRestricted(HANDLE)
{
    windows().begin(QStringLiteral("IsTokenRestricted"));
    return windows().restricted;
}

BOOL GetTokenInformation(HANDLE, TOKEN_INFORMATION_CLASS kind, void *data, DWORD size, DWORD *needed)
{
    const QString name = kind == TokenUser ? QStringLiteral("TokenUser") : QStringLiteral("TokenGroups");
    auto *bytes = static_cast<BYTE *>(data);
    if (!windows().begin(bytes ? name : QStringLiteral("size of ") + name))
        return FALSE;
    const QByteArray answer = kind == TokenUser ? tokenUser(bytes) : tokenGroups(bytes);
    *needed = DWORD(answer.size());
    if (size < *needed) {
        windows().lastError = ERROR_INSUFFICIENT_BUFFER;
        return FALSE;
    }
    memcpy(bytes, answer.constData(), *needed);
    return TRUE;
}

BOOL LookupAccountSidW(LPCWSTR system, PSID sid, LPWSTR name, DWORD *nameSize, LPWSTR domain,
                       DWORD *domainSize, SID_NAME_USE *use)
{
    const QString text = sidText(sid);
    if (!windows().begin(QStringLiteral("LookupAccountSidW"), {given(system), text}))
        return FALSE;
    if (!windows().names.contains(text)) {
        windows().lastError = ERROR_NONE_MAPPED;
        return FALSE;
    }
    const WindowsAccounts::Name known = windows().names.value(text);
    *use = SidTypeUser;
    return copyText(known.name, name, nameSize) && copyText(known.domain, domain, domainSize);
}

BOOL AllocateAndInitializeSid(SID_IDENTIFIER_AUTHORITY *authority, BYTE count, DWORD part0, DWORD part1,
                              DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, PSID *sid)
{
    if (!windows().begin(QStringLiteral("AllocateAndInitializeSid"), {QString::number(count)}))
        return FALSE;
    const QByteArray bytes =
        sidBytes(QStringLiteral("S-1-%1-%2-%3").arg(authority->Value[5]).arg(part0).arg(part1));
    *sid = malloc(size_t(bytes.size()));
    memcpy(*sid, bytes.constData(), size_t(bytes.size()));
    windows().handOut(*sid);
    return TRUE;
}

void *FreeSid(PSID sid)
{
    return LocalFree(sid);
}

BOOL EqualSid(PSID a, PSID b)
{
    return sidSize(a) == sidSize(b) && memcmp(a, b, sidSize(a)) == 0;
}

SID_IDENTIFIER_AUTHORITY *GetSidIdentifierAuthority(PSID sid)
{
    return reinterpret_cast<SID_IDENTIFIER_AUTHORITY *>(static_cast<BYTE *>(sid) + 2);
}

BYTE *GetSidSubAuthorityCount(PSID sid)
{
    return static_cast<BYTE *>(sid) + 1;
}

DWORD *GetSidSubAuthority(PSID sid, DWORD index)
{
    return reinterpret_cast<DWORD *>(static_cast<BYTE *>(sid) + kSidHead) + index;
}

BOOL ConvertSidToStringSidW(PSID sid, LPWSTR *text)
{
    if (!windows().begin(QStringLiteral("ConvertSidToStringSidW")))
        return FALSE;
    const QString converted = sidText(sid);
    *text = static_cast<LPWSTR>(malloc(bytesOf(converted)));
    memcpy(*text, converted.utf16(), bytesOf(converted));
    windows().handOut(*text);
    return TRUE;
}

NET_API_STATUS NetApiBufferFree(void *buffer)
{
    LocalFree(buffer);
    return NERR_Success;
}

NET_API_STATUS NetWkstaGetInfo(LPWSTR server, DWORD level, LPBYTE *buffer)
{
    const QString call = QStringLiteral("NetWkstaGetInfo");
    if (!windows().begin(call, {given(server), QString::number(level)}))
        return windows().failureOf(call);
    auto *info = networkBuffer(QStringList(windows().langroup), &WKSTA_INFO_100::wki100_langroup);
    *buffer = reinterpret_cast<BYTE *>(info);
    return NERR_Success;
}

NET_API_STATUS NetServerEnum(LPCWSTR server, DWORD level, LPBYTE *buffer, DWORD length, DWORD *count,
                             DWORD *total, DWORD type, LPCWSTR domain, DWORD *)
{
    return list(QStringLiteral("NetServerEnum"),
                {given(server), QString::number(level), QString::number(length), QString::number(type),
                 given(domain)},
                windows().servers, &SERVER_INFO_100::sv100_name, buffer, count, total);
}

NET_API_STATUS NetLocalGroupEnum(LPCWSTR server, DWORD level, LPBYTE *buffer, DWORD length, DWORD *count,
                                 DWORD *total, size_t *)
{
    return list(QStringLiteral("NetLocalGroupEnum"),
                {given(server), QString::number(level), QString::number(length)}, windows().localGroups,
                &LOCALGROUP_INFO_0::lgrpi0_name, buffer, count, total);
}

NET_API_STATUS NetGroupEnum(LPCWSTR server, DWORD level, LPBYTE *buffer, DWORD length, DWORD *count,
                            DWORD *total, size_t *)
{
    return list(QStringLiteral("NetGroupEnum"),
                {given(server), QString::number(level), QString::number(length)}, windows().globalGroups,
                &GROUP_INFO_0::grpi0_name, buffer, count, total);
}

/// Index 7 is the second user, 14 the third, so that an index can only come from an entry.
NET_API_STATUS NetQueryDisplayInformation(LPCWSTR server, DWORD level, DWORD index, DWORD entries,
                                          DWORD length, DWORD *count, void **buffer)
{
    const QString call = QStringLiteral("NetQueryDisplayInformation");
    const QString page = QStringLiteral("page at %1").arg(index);
    if (!windows().begin(call, {given(server), QString::number(level), QString::number(index),
                                QString::number(entries), QString::number(length)}))
        return windows().failureOf(call);
    if (!windows().begin(page))
        return windows().failureOf(page);
    const int first = int(index / kIndexStep);
    const QStringList names = windows().users.mid(first, qMin(windows().usersAtOnce, int(entries)));
    auto *users = networkBuffer(names, &NET_DISPLAY_USER::usri1_name);
    for (int i = 0; i < names.size(); ++i)
        users[i].usri1_next_index = DWORD(first + i + 1) * kIndexStep;
    *buffer = users;
    *count = DWORD(names.size());
    const bool isLast = first + names.size() >= windows().users.size();
    return isLast && !windows().moreWithoutEnd ? NERR_Success : ERROR_MORE_DATA;
}
