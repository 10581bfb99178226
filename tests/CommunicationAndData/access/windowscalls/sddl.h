#ifndef TESTS_WINDOWSCALLS_SDDL_H
#define TESTS_WINDOWSCALLS_SDDL_H

#include "windows.h"

BOOL ConvertSidToStringSidW(PSID sid, LPWSTR *text);

#endif
