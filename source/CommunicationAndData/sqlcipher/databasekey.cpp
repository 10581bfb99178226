#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QByteArray>

namespace {

// Every program of the suite that opens an encrypted file builds the key from these two; the seed is ASCII.
constexpr unsigned char kSeed[] = {0x4b, 0x72, 0x37, 0x77, 0x7e, 0x65, 0x51, 0x32, 0x24, 0x62, 0x5a};
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
