#include "CommunicationAndData/access/accesscontrol.h"

#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/access/operatorlookup.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QSqlDatabase>

namespace {

constexpr char kNoMethod[] = "none";
constexpr char kInternalUsers[] = "Internal users";
constexpr char kWindowsGroups[] = "Windows group based";
constexpr char kWindowsUsers[] = "Windows user based";

/// What a sign-in came to.
struct Outcome
{
    ZephanError error = ZephanErrors::kNone;
    QString cause;
};

OperatorModel operatorWithoutRow(const QString &user)
{
    return OperatorModel::create(UuidString(), QString(), user, QList<uint>(), QStringList(), QString(),
                                 QString(), QString(), MappedStrings(), MappedStrings(), QString(), QString(),
                                 OperatorModelData::WindowsUser);
}

bool equalIgnoringCase(const QString &a, const QString &b)
{
    // Stored names were turned to upper case, where some letters become two.
    return a.compare(b, Qt::CaseInsensitive) == 0 || a.toUpper() == b.toUpper();
}

/// Whether a stored account name means one of these accounts, "PREFIX\name". A stored name without a prefix
/// means the account of that name under any.
bool meansOneOf(const QString &stored, const QStringList &accounts)
{
    const QLatin1Char separator('\\');
    const bool qualified = stored.contains(separator);
    for (const QString &account : accounts) {
        const QString name = qualified ? account : account.section(separator, -1);
        if (!name.isEmpty() && equalIgnoringCase(stored, name))
            return true;
    }
    return false;
}

QList<OperatorModel> operatorsMeaning(const QList<OperatorModel> &operators, const QStringList &accounts)
{
    QList<OperatorModel> meant;
    for (const OperatorModel &candidate : operators) {
        if (meansOneOf(candidate->username(), accounts))
            meant.append(candidate);
    }
    return meant;
}

/// The person who signs in by a group, since the audit trail names persons. The id is the account's own, or
/// that of the group's row where the account has none.
OperatorModel currentAccountIn(const OperatorModel &group)
{
    QString sid;
    QString error;
    const OperatorModel account = operatorWithoutRow(currentUsername(sid, error));
    const UuidString accountId = getUuidFromSid(sid, error);
    account->setOperatorID(accountId.isNull() ? group->operatorID() : accountId);
    account->setOperatorType(OperatorModelData::WindowsGroup);
    return account;
}

}  // namespace

class AccessControl::Private
{
public:
    Outcome authenticate(const QString &user, const QString &password);
    Outcome takeAsGiven(const QString &user);
    Outcome findInternalUser(const QString &user, const QString &password);
    Outcome findGroups();
    Outcome findAccount();
    Outcome admit(OperatorLookup &lookup, const QList<OperatorModel> &rows,
                  const OperatorModel &operatorInfo);

    QString method;
    QSqlDatabase *database = nullptr;
    OperatorModel signedIn;
    int rights = NoAccess;
};

AccessControl::AccessControl(QObject *parent, QString method, QSqlDatabase *database,
                             SqlStorage::SqlDatabaseType type)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    Q_UNUSED(type)  // all statements are common to the four kinds of database
    d->method = std::move(method);
    d->database = database;
}

AccessControl::~AccessControl() = default;

void AccessControl::login(const QString &user, const QString &password)
{
    d->signedIn.reset();
    d->rights = NoAccess;
    const Outcome outcome = d->authenticate(user, password);
    QVariant data;
    if (outcome.error != ZephanErrors::kNone) {
        data = user;
        // A refusal is the listener's to tell; the cause of a fault would be lost.
        if (outcome.error != ZephanErrors::kLoginFailed)
            CORVANE_LOG(Logger::Warning, Logger::Console, "AccessControl::login", outcome.cause);
    }
    QMetaObject::invokeMethod(
        this, [this, data, outcome] { emit loginResult(outcome.error, data, outcome.cause); },
        Qt::QueuedConnection);
}

OperatorModel AccessControl::getOperator() const
{
    return d->signedIn;
}

bool AccessControl::isAllowed(AccessType type) const
{
    return (d->rights & type) == type;
}

AccessType AccessControl::allowedAccessTypes() const
{
    return static_cast<AccessType>(d->rights);
}

Outcome AccessControl::Private::authenticate(const QString &user, const QString &password)
{
    if (method == QLatin1String(kNoMethod))
        return takeAsGiven(user);
    if (!database || !database->isOpen())
        return {ZephanErrors::kNoConnection, QStringLiteral("No connection to the access database")};
    if (method == QLatin1String(kInternalUsers))
        return findInternalUser(user, password);
    if (method == QLatin1String(kWindowsGroups))
        return findGroups();
    if (method == QLatin1String(kWindowsUsers))
        return findAccount();
    return {ZephanErrors::kLoginFailed, QStringLiteral("Unknown access method")};
}

Outcome AccessControl::Private::takeAsGiven(const QString &user)
{
    signedIn = operatorWithoutRow(user);
    rights =
        SettingsHandler::getInstance()->safeValue(QLatin1String(SettingsKeys::kDefaultRights), 0).toInt();
    return {};
}

Outcome AccessControl::Private::findInternalUser(const QString &user, const QString &password)
{
    OperatorLookup lookup(*database);
    OperatorModel match;
    for (const OperatorModel &row : lookup.operators(OperatorModelData::InternalUser, user)) {
        if (PasswordHelper::isPassword(password, row->salt(), row->passwordHash()) && !match)
            match = row;
    }
    return admit(lookup, match ? QList<OperatorModel>{match} : QList<OperatorModel>(), match);
}

Outcome AccessControl::Private::findGroups()
{
    OperatorLookup lookup(*database);
    const QList<OperatorModel> groups =
        operatorsMeaning(lookup.operators(OperatorModelData::WindowsGroup), currentUserGroups());
    return admit(lookup, groups, groups.isEmpty() ? OperatorModel() : currentAccountIn(groups.first()));
}

Outcome AccessControl::Private::findAccount()
{
    QString sid;
    QString error;
    const QStringList account = {currentUsername(sid, error)};
    OperatorLookup lookup(*database);
    const QList<OperatorModel> rows =
        operatorsMeaning(lookup.operators(OperatorModelData::WindowsUser), account);
    return admit(lookup, rows.mid(0, 1), rows.value(0));
}

Outcome AccessControl::Private::admit(OperatorLookup &lookup, const QList<OperatorModel> &rows,
                                      const OperatorModel &operatorInfo)
{
    if (lookup.failed())
        return {ZephanErrors::kStatementFailed, lookup.errorText()};
    if (rows.isEmpty())
        return {ZephanErrors::kLoginFailed, QStringLiteral("No operator of this name and password")};
    const int allRights = lookup.rights(rows, operatorInfo);
    if (lookup.failed())
        return {ZephanErrors::kStatementFailed, lookup.errorText()};
    signedIn = operatorInfo;
    rights = allRights;
    return {};
}
