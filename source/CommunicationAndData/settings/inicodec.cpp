#include "CommunicationAndData/settings/inicodec.h"

#include <QTextCodec>

namespace {

constexpr int kNoStandardNumber = -41801;

class IniCodec : public QTextCodec
{
public:
    QByteArray name() const override
    {
        return QByteArrayLiteral("CORVANE-INI-UTF-8");
    }

    int mibEnum() const override
    {
        return kNoStandardNumber;
    }

protected:
    QString convertToUnicode(const char *bytes, int length, ConverterState *) const override
    {
        ConverterState wholeText(IgnoreHeader);
        return utf8()->toUnicode(bytes, length, &wholeText);
    }

    /// Keeps the first half of a pair until the second comes, which is at the next call.
    QByteArray convertFromUnicode(const QChar *text, int length, ConverterState *) const override
    {
        thread_local QChar firstHalf;
        QString whole;
        for (int i = 0; i < length; ++i) {
            if (text[i].isHighSurrogate()) {
                firstHalf = text[i];
                continue;
            }
            if (text[i].isLowSurrogate())
                whole += firstHalf;
            whole += text[i];
            firstHalf = QChar();
        }
        return whole.toUtf8();
    }

private:
    static QTextCodec *utf8()
    {
        static QTextCodec *const codec = codecForName("UTF-8");
        return codec;
    }
};

}  // namespace

QTextCodec *iniUtf8Codec()
{
    // Qt owns every codec, up to the end of the process.
    static QTextCodec *const codec = new IniCodec;
    return codec;
}
