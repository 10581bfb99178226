#ifndef ACCESSMETHODSYSTEM_P_H
#define ACCESSMETHODSYSTEM_P_H

#include <QString>

// What the sources of the account services share. The texts are the same whatever the platform, since the
// same people read them.

namespace AccountServices {

const auto kNoProcessToken = QLatin1String("Could not acquire process token!");
const auto kNoBufferSize = QLatin1String("Could not get the required buffer size");
const auto kNoMemory = QLatin1String("Could not allocate memory for user token");
const auto kNoUserInformation = QLatin1String("Could not get user information");
const auto kNoAccount = QLatin1String("could not lookupAccountSid");
const auto kRestricted = QLatin1String("Restricted authentication");
const auto kNoTokenInformation = QLatin1String("Could not get Token info");
const auto kNoSid = QLatin1String("Could not allocate SID");
const auto kNoAdmin = QLatin1String("No admin rights");
const auto kLoginFailure = QLatin1String("Login failure");

/// Writes one line to the run-time log, under the one source name of the account services.
void log(QLatin1String function, const QString &message, int line = __builtin_LINE());

/// Puts a failure into `error` and into the run-time log. Always false.
bool fail(QLatin1String function, QLatin1String text, QString &error, int line = __builtin_LINE());

/// prefix + "\" + name, or the name alone where there is no prefix.
QString qualifiedName(const QString &prefix, const QString &name);

}  // namespace AccountServices

#endif
