#ifndef PASSWORDHELPER_H
#define PASSWORDHELPER_H

#include <QString>

/// The rule by which the passwords of internal users are kept: a salt and a hash of the two together.
class PasswordHelper
{
public:
    /// Characters in a stored salt.
    static constexpr int SaltLength = 16;

    /// Random letters from 'a' to 'y'. The alphabet ends there in all databases of the suite.
    static QString generateSalt(int length);

    /// SHA-256 of the UTF-8 bytes of password and salt together, as 64 characters of lower-case hexadecimal.
    static QString hashPassword(const QString &password, const QString &salt);

    /// Whether the password is the one whose salt and hash are given. Takes the same time wherever the hashes
    /// differ. An empty hash or salt fits no password.
    static bool isPassword(const QString &password, const QString &salt, const QString &hash);
};

#endif
