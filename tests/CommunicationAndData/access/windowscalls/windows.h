#ifndef TESTS_WINDOWSCALLS_WINDOWS_H
#define TESTS_WINDOWSCALLS_WINDOWS_H

#include "CommunicationAndData/access/accounttoken.h"

#include <QtGlobal>

// The part of Windows' own header that the account services use, with the same names, layouts and numbers, so
// that their source can be run where there is no Windows. The calls are answered by `WindowsAccounts`. A
// handle is here the pointer that the header of the account services makes of it.

static_assert(sizeof(wchar_t) == 2, "Windows has wide characters of two bytes");

#define WINAPI

using BOOL = int;
using BYTE = unsigned char;
using DWORD = quint32;
using LPBYTE = BYTE *;
using LPWSTR = wchar_t *;
using LPCWSTR = const wchar_t *;
using PSID = void *;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD ERROR_NONE_MAPPED = 1332;

constexpr DWORD TOKEN_QUERY = 8;
constexpr DWORD LOGON32_LOGON_INTERACTIVE = 2;
constexpr DWORD LOGON32_PROVIDER_DEFAULT = 0;
constexpr DWORD SECURITY_BUILTIN_DOMAIN_RID = 32;
constexpr DWORD DOMAIN_ALIAS_RID_ADMINS = 544;

struct SID_IDENTIFIER_AUTHORITY
{
    BYTE Value[6];
};
#define SECURITY_NT_AUTHORITY                                                                                \
    {                                                                                                        \
        {                                                                                                    \
            0, 0, 0, 0, 0, 5                                                                                 \
        }                                                                                                    \
    }

struct SID_AND_ATTRIBUTES
{
    PSID Sid;
    DWORD Attributes;
};

struct TOKEN_USER
{
    SID_AND_ATTRIBUTES User;
};

struct TOKEN_GROUPS
{
    DWORD GroupCount;
    SID_AND_ATTRIBUTES Groups[1];
};

enum TOKEN_INFORMATION_CLASS { TokenUser = 1, TokenGroups = 2 };
enum SID_NAME_USE { SidTypeUser = 1, SidTypeUnknown = 8 };

DWORD GetLastError();
HANDLE GetCurrentProcess();
BOOL CloseHandle(HANDLE handle);
void *LocalFree(void *memory);
BOOL GetComputerNameW(LPWSTR buffer, DWORD *size);

BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE *token);
BOOL LogonUserW(LPCWSTR user, LPCWSTR domain, LPCWSTR password, DWORD type, DWORD provider, HANDLE *token);
BOOL IsTokenRestricted(HANDLE token);
BOOL GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS kind, void *data, DWORD size, DWORD *needed);

BOOL LookupAccountSidW(LPCWSTR system, PSID sid, LPWSTR name, DWORD *nameSize, LPWSTR domain,
                       DWORD *domainSize, SID_NAME_USE *use);
BOOL AllocateAndInitializeSid(SID_IDENTIFIER_AUTHORITY *authority, BYTE count, DWORD part0, DWORD part1,
                              DWORD part2, DWORD part3, DWORD part4, DWORD part5, DWORD part6, DWORD part7,
                              PSID *sid);
void *FreeSid(PSID sid);
BOOL EqualSid(PSID a, PSID b);
SID_IDENTIFIER_AUTHORITY *GetSidIdentifierAuthority(PSID sid);
BYTE *GetSidSubAuthorityCount(PSID sid);
DWORD *GetSidSubAuthority(PSID sid, DWORD index);

#endif
