#include "CommunicationAndData/actionlog/fileidentity.h"

#include <QDir>

#include <windows.h>

FileIdentity FileIdentity::of(const QString &path)
{
    FileIdentity identity;
    const QString native = QDir::toNativeSeparators(path);
    const HANDLE file = CreateFileW(reinterpret_cast<const wchar_t *>(native.utf16()), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return identity;
    BY_HANDLE_FILE_INFORMATION information = {};
    if (GetFileInformationByHandle(file, &information)) {
        identity.m_exists = true;
        identity.m_volume = information.dwVolumeSerialNumber;
        identity.m_number =
            (static_cast<quint64>(information.nFileIndexHigh) << 32) | information.nFileIndexLow;
    }
    CloseHandle(file);
    return identity;
}
