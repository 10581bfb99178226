#ifndef ACCESSMETHODSYSTEM_H
#define ACCESSMETHODSYSTEM_H

#include "CommunicationAndData/access/accounttoken.h"
#include "ZephanShared/toolkit/uuidstring.h"

#include <QString>
#include <QStringList>

// The accounts of the operating system: who runs the program, which domains, users and groups exist, and who
// is an administrator. Plain functions without state, and the only place that asks the system about accounts.
//
// Every failure goes to the run-time log, and where there is an `error` it takes the same plain text; on
// success it is left as it was. All calls block for as long as the system takes to answer.
//
// On Windows these are the Windows accounts. Elsewhere the computer counts as its own domain, named as the
// host, with the users and groups of its account database, and an account has a security identifier of the
// Windows form, made from the machine id and the user's or group's number.

/// The account that runs the program, as domain + "\" + name, or the name alone where there is no domain.
///
/// \param sid    its security identifier as text, as "S-1-5-21-a-b-c-d"
/// \param error  "Could not acquire process token!", "Could not get the required buffer size", "Could not
///               allocate memory for user token", "Could not get user information" or "could not
///               lookupAccountSid"
/// \return       empty on failure
QString currentUsername(QString &sid, QString &error);

/// The groups of the account that runs the program, as prefix + "\" + name, in the form of
/// `getSystemGroups`. Empty on failure.
QStringList currentUserGroups();

/// The domain or workgroup that a server belongs to; empty when it can't be asked.
///
/// \param server  with or without "\\" in front; empty for this computer
QString getDomainName(const QString &server);

/// The servers of a kind in this network, each with "\\" in front.
///
/// \param serverType  bits as NetServerEnum takes them
QStringList getServers(uint serverType);

/// The domain controllers.
QStringList getServers();

/// The groups that a server knows, first the local ones, each as prefix + "\" + name. The prefix is the
/// server's domain, else the server; for an empty server it is this computer's name.
QStringList getSystemGroups(const QString &server);

/// The users that a server knows, as `getSystemGroups` lists groups.
QStringList getSystemUsers(const QString &server);

/// The one place where the security identifier of an account becomes an operator id.
///
/// The id has a UUID's length but is decimal digits: the rightmost 36 characters of the three
/// sub-authorities of the domain and the relative identifier.
///
/// \param sid    as "S-1-5-21-a-b-c-d"
/// \param error  "Unknown SID format" unless the text has eight parts
/// \return       the nil UUID where the joined parts are shorter than 36 characters
UuidString getUuidFromSid(const QString &sid, QString &error);

/// The id of the account that a token stands for.
///
/// \param error  as those of `currentUsername` and `getUuidFromSid`
/// \return       the nil UUID on failure
UuidString getUuidFromToken(HANDLE token, QString &error);

/// Whether the account that runs the program is an administrator of this computer.
///
/// \param id     the account's id, set unless the token is refused; it may be nil for an administrator too,
///               and `error` then says why
/// \param error  "Could not acquire process token!", "Restricted authentication", "Could not get the required
///               buffer size", "Could not get Token info", "Could not allocate SID" or "No admin rights"
bool isCurrentUserAdmin(UuidString &id, QString &error);

/// Whether the password is that of the account, and the account an administrator's.
///
/// Elsewhere than on Windows a process without root's rights can have a local account's password checked only
/// where the account is its own.
///
/// \param user    name without the domain, or "name@domain" beside an empty domain
/// \param domain  empty for an account of this computer
/// \param error   "Login failure", else those of `isCurrentUserAdmin`
bool logonAdmin(const QString &user, const QString &domain, const QString &password, UuidString &id,
                QString &error);

#endif
