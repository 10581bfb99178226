#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QByteArray>

namespace {

// Every program of the suite that opens an encrypted file builds the key from these two.
constexpr unsigned char kSeed[] = {0x4b, 0x12, 0x9e, 0x73, 0xd5, 0x28, 0x60, 0xbf, 0x04, 0xc9, 0x37};
constexpr unsigned char kBase = 0xa6;
constexpr int kLongestSeed = 255;

}  // namespace

QString databaseKey()
{
    QByteArray bytes(reinterpret_cast<const char *>(kSeed), qMin<int>(sizeof kSeed, kLongestSeed));
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bytes.at(i)) ^ ((i + kBase) & 0xff));
    return QString::fromLatin1(bytes.toBase64());
}

QStringList databaseKeyStatements()
{
    return {QStringLiteral("PRAGMA key = '%1';").arg(databaseKey()),
            QStringLiteral("PRAGMA cipher = 'aes-256-cfb';")};
}
