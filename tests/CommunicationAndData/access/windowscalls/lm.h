#ifndef TESTS_WINDOWSCALLS_LM_H
#define TESTS_WINDOWSCALLS_LM_H

#include "windows.h"

#include <cstddef>

using NET_API_STATUS = DWORD;

constexpr NET_API_STATUS NERR_Success = 0;
constexpr DWORD MAX_PREFERRED_LENGTH = 0xFFFFFFFF;

struct WKSTA_INFO_100
{
    DWORD wki100_platform_id;
    LPWSTR wki100_computername;
    LPWSTR wki100_langroup;
    DWORD wki100_ver_major;
    DWORD wki100_ver_minor;
};

struct SERVER_INFO_100
{
    DWORD sv100_platform_id;
    LPWSTR sv100_name;
};

struct LOCALGROUP_INFO_0
{
    LPWSTR lgrpi0_name;
};

struct GROUP_INFO_0
{
    LPWSTR grpi0_name;
};

struct NET_DISPLAY_USER
{
    LPWSTR usri1_name;
    LPWSTR usri1_comment;
    DWORD usri1_flags;
    LPWSTR usri1_full_name;
    DWORD usri1_user_id;
    DWORD usri1_next_index;
};

NET_API_STATUS NetApiBufferFree(void *buffer);
NET_API_STATUS NetWkstaGetInfo(LPWSTR server, DWORD level, LPBYTE *buffer);
NET_API_STATUS NetServerEnum(LPCWSTR server, DWORD level, LPBYTE *buffer, DWORD length, DWORD *count,
                             DWORD *total, DWORD type, LPCWSTR domain, DWORD *resume);
NET_API_STATUS NetLocalGroupEnum(LPCWSTR server, DWORD level, LPBYTE *buffer, DWORD length, DWORD *count,
                                 DWORD *total, size_t *resume);
NET_API_STATUS NetGroupEnum(LPCWSTR server, DWORD level, LPBYTE *buffer, DWORD length, DWORD *count,
                            DWORD *total, size_t *resume);
NET_API_STATUS NetQueryDisplayInformation(LPCWSTR server, DWORD level, DWORD index, DWORD entries,
                                          DWORD length, DWORD *count, void **buffer);

#endif
