#ifndef SUITEKEY_H
#define SUITEKEY_H

#include <QByteArray>

/// A secret of the suite that wipes itself when it goes out of scope.
class SuiteKey
{
public:
    /// What a key is for. Each purpose has a key of its own.
    enum Purpose : unsigned char { SafeValues = 1, AuditTrailBinding = 2 };

    /// Builds the key at run time; it stands nowhere whole.
    explicit SuiteKey(Purpose purpose);
    ~SuiteKey();

    /// 64 bytes.
    const unsigned char *data() const;
    int size() const;

private:
    Q_DISABLE_COPY(SuiteKey)

    QByteArray m_bytes;
};

#endif
