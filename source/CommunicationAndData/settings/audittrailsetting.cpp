#include "CommunicationAndData/settings/audittrailsetting.h"

#include "CommunicationAndData/settings/suitekey.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>

#include <algorithm>

namespace {

const auto kVersion = QLatin1String("1");
constexpr QLatin1Char kSeparator('.');
constexpr int kEntrySize = 64;  // hexadecimal digits of SHA-256

QByteArray entryOf(const QString &databaseHash, bool enabled)
{
    const SuiteKey key(SuiteKey::AuditTrailBinding);
    QMessageAuthenticationCode code(QCryptographicHash::Sha256);
    code.setKey(QByteArray::fromRawData(reinterpret_cast<const char *>(key.data()), key.size()));
    code.addData(enabled ? "on\n" : "off\n");
    code.addData(databaseHash.toUtf8());
    return code.result().toHex();
}

bool isEntry(const QString &text)
{
    return text.size() == kEntrySize && std::all_of(text.begin(), text.end(), [](QChar c) {
               return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
                      (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
           });
}

}  // namespace

AuditTrailSetting AuditTrailSetting::fromText(const QString &text, bool *readable)
{
    AuditTrailSetting setting;
    QStringList parts = text.split(kSeparator);
    const QString version = parts.takeFirst();
    const bool known = text.isEmpty() || (version == kVersion && !parts.isEmpty() &&
                                          std::all_of(parts.cbegin(), parts.cend(), isEntry));
    if (readable)
        *readable = known;
    if (known) {
        for (const QString &part : qAsConst(parts))
            setting.m_entries.append(part.toLatin1());
    }
    return setting;
}

QString AuditTrailSetting::toText() const
{
    QString text;
    for (const QByteArray &entry : m_entries) {
        text += text.isEmpty() ? QString(kVersion) : QString();
        text += kSeparator + QString::fromLatin1(entry);
    }
    return text;
}

void AuditTrailSetting::setEnabled(const QString &databaseHash, bool enabled)
{
    m_entries.removeAll(entryOf(databaseHash, true));
    m_entries.removeAll(entryOf(databaseHash, false));
    m_entries.append(entryOf(databaseHash, enabled));
}

bool AuditTrailSetting::isEnabled(const QString &databaseHash) const
{
    return m_entries.contains(entryOf(databaseHash, true));
}
