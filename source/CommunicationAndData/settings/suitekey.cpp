#include "CommunicationAndData/settings/suitekey.h"

#include <QCryptographicHash>

#include <openssl/crypto.h>

namespace {

// Every program of the suite builds the same keys from these.
constexpr unsigned char kSeed[] = {0xb8, 0x07, 0x8a, 0xc4, 0x88, 0x37, 0x37, 0xe0, 0xbf, 0x5c, 0x03,
                                   0x4a, 0x59, 0x8c, 0x22, 0x7b, 0x82, 0x7a, 0x82, 0x4e, 0x10, 0x2d,
                                   0x05, 0x59, 0xca, 0x86, 0x0f, 0xf3, 0x2f, 0x7f, 0xa4, 0x83};
constexpr unsigned char kBase = 0xb0;

void wipe(QByteArray &bytes)
{
    OPENSSL_cleanse(bytes.data(), static_cast<size_t>(bytes.size()));
}

}  // namespace

SuiteKey::SuiteKey(Purpose purpose)
{
    QByteArray material(reinterpret_cast<const char *>(kSeed), sizeof kSeed);
    for (int i = 0; i < material.size(); ++i)
        material[i] = static_cast<char>(static_cast<unsigned char>(material.at(i)) ^ ((i + kBase) & 0xff));
    material.append(static_cast<char>(purpose));
    m_bytes = QCryptographicHash::hash(material, QCryptographicHash::Sha512);
    wipe(material);
}

SuiteKey::~SuiteKey()
{
    wipe(m_bytes);
}

const unsigned char *SuiteKey::data() const
{
    return reinterpret_cast<const unsigned char *>(m_bytes.constData());
}

int SuiteKey::size() const
{
    return m_bytes.size();
}
