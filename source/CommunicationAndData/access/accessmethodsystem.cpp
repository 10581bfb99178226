#include "CommunicationAndData/access/accessmethodsystem.h"

#include "CommunicationAndData/access/accessmethodsystem_p.h"
#include "ZephanShared/toolkit/logger.h"

namespace {

const auto kSourceName = QLatin1String(R"(..\..\source\CommunicationAndData\access\accessmethodsystem_win)");
const auto kUnknownSid = QLatin1String("Unknown SID format");

constexpr int kSidParts = 8;  // S, revision, authority, 21, three of the domain, relative id
constexpr int kFirstKeptPart = 4;

constexpr uint kDomainControllers = 8;  // SV_TYPE_DOMAIN_CTRL

}  // namespace

UuidString getUuidFromSid(const QString &sid, QString &error)
{
    const QStringList parts = sid.split(QLatin1Char('-'), Qt::SkipEmptyParts);
    if (parts.size() != kSidParts) {
        AccountServices::fail(QLatin1String("getUuidFromSid"), kUnknownSid, error);
        return UuidString();
    }
    return UuidString(parts.mid(kFirstKeptPart).join(QLatin1Char('-')).right(UuidString::Length));
}

QStringList getServers()
{
    return getServers(kDomainControllers);
}

namespace AccountServices {

void log(QLatin1String function, const QString &message, int line)
{
    Logger::getInstance().log(Logger::Information, Logger::Unnamed, function, line, kSourceName, message);
}

bool fail(QLatin1String function, QLatin1String text, QString &error, int line)
{
    error = text;
    log(function, text, line);
    return false;
}

QString qualifiedName(const QString &prefix, const QString &name)
{
    return prefix.isEmpty() ? name : prefix + QLatin1Char('\\') + name;
}

}  // namespace AccountServices
