#include "CommunicationAndData/settings/stashimage.h"
#include "CommunicationAndData/settings/variantstream.h"

#include <QDateTime>
#include <QFont>
#include <QKeySequence>
#include <QLocale>
#include <QRect>
#include <QTest>
#include <QUrl>
#include <QUuid>

namespace {

QByteArray streamed(const QVariant &value, QDataStream::Version version)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream << value;
    return bytes;
}

QVariant nested(int depth)
{
    QVariant value = 1;
    for (int i = 0; i < depth; ++i)
        value = QVariantList{value};
    return value;
}

}  // namespace

class TestVariantStream : public QObject
{
    Q_OBJECT

private slots:
    void whatWasStreamedIsSound_data();
    void whatWasStreamedIsSound();
    void bytesThatDoHarmAreNot_data();
    void bytesThatDoHarmAreNot();
    void anImageMustBeWhole();
};

void TestVariantStream::whatWasStreamedIsSound_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("nothing") << QVariant();
    QTest::newRow("a truth value") << QVariant(true);
    QTest::newRow("a number") << QVariant(-5);
    QTest::newRow("a long number") << QVariant(qint64(1) << 40);
    QTest::newRow("a fraction") << QVariant(2.5);
    QTest::newRow("a short fraction") << QVariant(2.5f);
    QTest::newRow("a character") << QVariant(QChar(0x20ac));
    QTest::newRow("a text") << QVariant(QString::fromUtf8("ö€"));
    QTest::newRow("a null text") << QVariant(QString());
    QTest::newRow("texts") << QVariant(QStringList{QStringLiteral("a"), QString()});
    QTest::newRow("bytes") << QVariant(QByteArray("\0\1", 2));
    QTest::newRow("a list") << QVariant(QVariantList{1, QStringLiteral("a"), QVariantList{}});
    QTest::newRow("a map") << QVariant(QVariantMap{{QStringLiteral("k"), QVariantMap{}}});
    QTest::newRow("a hash") << QVariant(QVariantHash{{QStringLiteral("k"), 1}});
    QTest::newRow("a date") << QVariant(QDate(2024, 2, 29));
    QTest::newRow("a time") << QVariant(QTime(8, 15));
    QTest::newRow("a local time") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(8, 15)));
    QTest::newRow("a time in UTC") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(8, 15), Qt::UTC));
    QTest::newRow("a time with an offset")
        << QVariant(QDateTime(QDate(2024, 2, 29), QTime(8, 15), Qt::OffsetFromUTC, 7200));
    QTest::newRow("a rectangle") << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("a rectangle of fractions") << QVariant(QRectF(1, 2, 3, 4));
    QTest::newRow("a point") << QVariant(QPoint(1, 2));
    QTest::newRow("a size of fractions") << QVariant(QSizeF(1, 2));
    QTest::newRow("an address") << QVariant(QUrl(QStringLiteral("file:///a")));
    QTest::newRow("an id") << QVariant(QUuid::createUuid());
    QTest::newRow("a language") << QVariant(QLocale(QStringLiteral("fi_FI")));
    QTest::newRow("a font") << QVariant(QFont(QStringLiteral("Sans"), 12, QFont::Bold, true));
    QTest::newRow("keys") << QVariant(QKeySequence(Qt::CTRL | Qt::Key_K, Qt::Key_S));
    QTest::newRow("a sensible depth") << nested(20);
}

void TestVariantStream::whatWasStreamedIsSound()
{
    QFETCH(QVariant, value);
    for (const auto version : {QDataStream::Qt_4_0, QDataStream::Qt_5_6, QDataStream::Qt_5_15}) {
        const QByteArray bytes = streamed(value, version);
        QVERIFY2(VariantStream::isSound(bytes, version), qPrintable(QString::number(version)));
        for (int i = 0; i < bytes.size(); ++i)
            QVERIFY(!VariantStream::isSound(bytes.left(i), version));
        const QByteArray map = QByteArray::fromHex("00000001 00000002 0061") + bytes;
        const auto read = VariantStream::readMap(map, version);
        QVERIFY(read && read->value(QStringLiteral("a")).userType() == value.userType());
    }
}

void TestVariantStream::bytesThatDoHarmAreNot_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray flag(1, '\0');
    const QByteArray many = QByteArray::fromHex("7fffffff");
    QTest::newRow("a list that claims two thousand million items")
        << QByteArray::fromHex("00000009") + flag + many;
    QTest::newRow("texts that claim two thousand million items")
        << QByteArray::fromHex("0000000b") + flag + many;
    QTest::newRow("a map that claims two thousand million entries")
        << QByteArray::fromHex("00000008") + flag + many;
    QTest::newRow("a text that claims two thousand million bytes")
        << QByteArray::fromHex("0000000a") + flag + QByteArray::fromHex("7ffffffe");
    QTest::newRow("lists ten thousand deep")
        << (QByteArray::fromHex("00000009") + flag + QByteArray::fromHex("00000001")).repeated(10000) +
               streamed(1, QDataStream::Qt_5_15);
    QTest::newRow("a type of a program's own")
        << QByteArray::fromHex("00000400") + flag + QByteArray::fromHex("00000002") + "X";
    QTest::newRow("a pointer") << QByteArray::fromHex("0000001f") + flag + QByteArray(8, '\x7f');
    QTest::newRow("an unknown type") << QByteArray::fromHex("7fffffff") + flag + QByteArray(64, '\0');
    QTest::newRow("a regular expression") << QByteArray::fromHex("0000001b") + flag + QByteArray(64, '\0');
    QTest::newRow("keys that claim two thousand million keys")
        << QByteArray::fromHex("0000004b") + flag + many + QByteArray(64, '\0');
    QTest::newRow("a font that claims two thousand million families")
        << streamed(QFont(), QDataStream::Qt_5_15).chopped(4) + many;
    QTest::newRow("no bytes") << QByteArray();
}

void TestVariantStream::bytesThatDoHarmAreNot()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!VariantStream::isSound(bytes, QDataStream::Qt_5_15));
}

void TestVariantStream::anImageMustBeWhole()
{
    const QMap<QString, QVariant> map{{QStringLiteral("ui/number"), 5},
                                      {QStringLiteral("ui/texts"), QStringList{QStringLiteral("a")}}};
    QByteArray image;
    QDataStream stream(&image, QIODevice::WriteOnly);
    stream << map;
    QCOMPARE(readStashImage(image).value_or(QMap<QString, QVariant>()), map);
    QVERIFY(!readStashImage(image + '\0'));
    for (int i = 0; i < image.size(); ++i)
        QVERIFY(!readStashImage(image.left(i)));
}

QTEST_MAIN(TestVariantStream)
#include "test_variantstream.moc"
