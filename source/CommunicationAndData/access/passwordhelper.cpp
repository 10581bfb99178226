#include "CommunicationAndData/access/passwordhelper.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <openssl/crypto.h>

namespace {

constexpr quint32 kSaltLetters = 25;

bool equalInConstantTime(const QByteArray &a, const QByteArray &b)
{
    return a.size() == b.size() &&
           CRYPTO_memcmp(a.constData(), b.constData(), static_cast<size_t>(a.size())) == 0;
}

}  // namespace

QString PasswordHelper::generateSalt(int length)
{
    QString salt;
    for (int i = 0; i < length; ++i) {
        const quint32 letter = QRandomGenerator::system()->bounded(kSaltLetters);
        salt.append(QLatin1Char(static_cast<char>('a' + letter)));
    }
    return salt;
}

QString PasswordHelper::hashPassword(const QString &password, const QString &salt)
{
    const QByteArray bytes = (password + salt).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

bool PasswordHelper::isPassword(const QString &password, const QString &salt, const QString &hash)
{
    const QByteArray expected = hashPassword(password, salt).toUtf8();
    const bool equal = equalInConstantTime(expected, hash.toUtf8());
    return equal && !salt.isEmpty();
}
