#ifndef ZEPHANERROR_H
#define ZEPHANERROR_H

#include <QMetaType>

/// An error number of the suite: unsigned, 32 bits, 0 for no error.
///
/// The numbers are opaque. They are written in hexadecimal in the code, shown to people in decimal and
/// stored in the audit trail, where other programs of the suite read them too: none may be renumbered.
using ZephanError = quint32;

namespace ZephanErrors {

constexpr ZephanError kNone = 0;

// Start-up
constexpr ZephanError kStartFailed = 0x01200000;
constexpr ZephanError kActionLogNotOpened = 0x04300000;   ///< neither opened nor made
constexpr ZephanError kActionLogReplaced = 0x04300001;    ///< a damaged one was moved aside: a good start
constexpr ZephanError kActionLogNotWritten = 0x04300002;  ///< an event can't be written
constexpr ZephanError kEngineNotReady = 0x04300003;       ///< started twice, or shut down while not running
constexpr ZephanError kPluginNotInstantiated = 0x09300000;

// Settings and sign-in
constexpr ZephanError kSettingsIncomplete = 0x14100000;
constexpr ZephanError kLoginCancelled = 0x14200000;
constexpr ZephanError kLoginFailed = 0x14200001;
constexpr ZephanError kSettingsNotWritten = 0x14200002;
constexpr ZephanError kLoadingFailed = 0x14200003;
constexpr ZephanError kDeletingFailed = 0x14200004;
constexpr ZephanError kImportFailed = 0x14200005;
constexpr ZephanError kExportFailed = 0x14200006;

// Audit trail
constexpr ZephanError kAuditDatabaseNotOpened = 0x14300000;
constexpr ZephanError kNoAuditLocation = 0x14300001;

// Access database
constexpr ZephanError kNoData = 0x16300000;
constexpr ZephanError kNoConnection = 0x16300001;
constexpr ZephanError kStatementFailed = 0x16300002;

}  // namespace ZephanErrors

#endif
