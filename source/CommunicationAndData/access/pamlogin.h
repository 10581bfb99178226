#ifndef PAMLOGIN_H
#define PAMLOGIN_H

#include <QString>

/// Whether an account of this computer has this password and may be used now. Asks PAM, under the service
/// "corvane" or, where that isn't set up, "login".
///
/// An empty password is never right, a locked or expired account never usable. A wrong password is answered
/// after the delay that PAM is set up with.
///
/// \param account  set on success to the account's name, which PAM may have brought into another form
bool pamAccepts(const QString &user, const QString &password, QString &account);

#endif
