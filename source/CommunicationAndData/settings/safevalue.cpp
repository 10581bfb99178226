#include "CommunicationAndData/settings/safevalue.h"

#include "CommunicationAndData/settings/suitekey.h"

#include <QDataStream>

#include <algorithm>
#include <memory>

#include <openssl/crypto.h>
#include <openssl/evp.h>

namespace {

constexpr char kMark = '\0';
constexpr char kVersion = 1;
constexpr int kTagSize = 16;
constexpr int kSmallestSealed = 1 + kTagSize + 1;  // version, tag, at least one byte

// The form outlives the library that wrote it.
constexpr auto kStreamVersion = QDataStream::Qt_5_12;

struct CipherDeleter
{
    void operator()(EVP_CIPHER *cipher) const
    {
        EVP_CIPHER_free(cipher);
    }
    void operator()(EVP_CIPHER_CTX *context) const
    {
        EVP_CIPHER_CTX_free(context);
    }
};

using Cipher = std::unique_ptr<EVP_CIPHER, CipherDeleter>;
using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, CipherDeleter>;

const EVP_CIPHER *sivCipher()
{
    static const Cipher cipher(EVP_CIPHER_fetch(nullptr, "AES-256-SIV", nullptr));
    return cipher.get();
}

unsigned char *bytesOf(QByteArray &array)
{
    return reinterpret_cast<unsigned char *>(array.data());
}

const unsigned char *bytesOf(const QByteArray &array)
{
    return reinterpret_cast<const unsigned char *>(array.constData());
}

/// The tag and then the encrypted bytes; empty on failure.
QByteArray seal(const QByteArray &plain)
{
    const CipherContext context(EVP_CIPHER_CTX_new());
    const SuiteKey key(SuiteKey::SafeValues);
    QByteArray tag(kTagSize, '\0');
    QByteArray sealed(plain.size(), '\0');
    int written = 0;
    const bool done =
        context && sivCipher() &&
        EVP_EncryptInit_ex2(context.get(), sivCipher(), key.data(), nullptr, nullptr) == 1 &&
        EVP_EncryptUpdate(context.get(), bytesOf(sealed), &written, bytesOf(plain), plain.size()) == 1 &&
        EVP_EncryptFinal_ex(context.get(), bytesOf(sealed), &written) == 1 &&
        EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_GET_TAG, kTagSize, tag.data()) == 1;
    return done ? tag + sealed : QByteArray();
}

/// The plain bytes of what `seal` made; nothing if they are not exactly that.
std::optional<QByteArray> open(const QByteArray &bytes)
{
    const CipherContext context(EVP_CIPHER_CTX_new());
    const SuiteKey key(SuiteKey::SafeValues);
    QByteArray tag = bytes.left(kTagSize);
    const QByteArray sealed = bytes.mid(kTagSize);
    QByteArray plain(sealed.size(), '\0');
    int written = 0;
    const bool done =
        context && sivCipher() &&
        EVP_DecryptInit_ex2(context.get(), sivCipher(), key.data(), nullptr, nullptr) == 1 &&
        EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_SET_TAG, kTagSize, tag.data()) == 1 &&
        EVP_DecryptUpdate(context.get(), bytesOf(plain), &written, bytesOf(sealed), sealed.size()) == 1 &&
        EVP_DecryptFinal_ex(context.get(), bytesOf(plain), &written) == 1;
    if (!done)
        return std::nullopt;
    return plain;
}

/// An empty text is the same value whether or not it is a null one, and equal values have equal forms.
QVariant withoutNullText(const QVariant &value)
{
    const bool isEmptyText = value.userType() == QMetaType::QString && value.toString().isEmpty();
    return isEmptyText ? QVariant(QLatin1String("")) : value;
}

bool isLowerHex(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
}

}  // namespace

QByteArray SafeValue::encipher(const QVariant &value)
{
    QByteArray plain;
    QDataStream stream(&plain, QIODevice::WriteOnly);
    stream.setVersion(kStreamVersion);
    stream << withoutNullText(value);
    const QByteArray sealed = seal(plain);
    OPENSSL_cleanse(plain.data(), static_cast<size_t>(plain.size()));
    if (sealed.isEmpty())
        return QByteArray();
    return QByteArray(1, kMark) + (QByteArray(1, kVersion) + sealed).toHex();
}

std::optional<QVariant> SafeValue::decipher(const QByteArray &stored)
{
    if (!hasStoredShape(stored))
        return std::nullopt;
    const QByteArray bytes = QByteArray::fromHex(stored.mid(1));
    if (bytes.at(0) != kVersion)
        return std::nullopt;
    std::optional<QByteArray> plain = open(bytes.mid(1));
    if (!plain)
        return std::nullopt;
    QDataStream stream(*plain);
    stream.setVersion(kStreamVersion);
    QVariant value;
    stream >> value;
    const bool whole = stream.status() == QDataStream::Ok && stream.atEnd();
    OPENSSL_cleanse(plain->data(), static_cast<size_t>(plain->size()));
    if (!whole)
        return std::nullopt;
    return value;
}

bool SafeValue::hasStoredShape(const QByteArray &stored)
{
    return stored.size() >= 1 + 2 * kSmallestSealed && stored.size() % 2 == 1 && stored.at(0) == kMark &&
           std::all_of(stored.begin() + 1, stored.end(), isLowerHex);
}
