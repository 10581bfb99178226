#include "CommunicationAndData/settings/configurationimage.h"
#include "CommunicationAndData/settings/safevalue.h"
#include "randomsettings.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QLine>
#include <QRect>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

namespace {

using Settings = QMap<QString, QVariant>;

const QString kForm = QStringLiteral("corvane-configuration-1:");

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

/// An image with a checksum that fits.
ConfigurationImage sealed(const QString &text)
{
    return {text, ConfigurationImage::checksumOf(text)};
}

QByteArray streamOf(const ConfigurationImage &image)
{
    return QByteArray::fromBase64(image.text.mid(kForm.size()).toLatin1());
}

ConfigurationImage withStream(const QByteArray &stream)
{
    return sealed(kForm + QString::fromLatin1(stream.toBase64()));
}

ConfigurationImage example()
{
    return *ConfigurationImage::encode({{key("ui/number"), 5}, {key("ui/text"), key("text")}});
}

bool sameValues(const Settings &left, const Settings &right)
{
    if (left.keys() != right.keys())
        return false;
    for (auto it = left.cbegin(); it != left.cend(); ++it) {
        const QVariant other = right.value(it.key());
        if (it.value().userType() != other.userType() || it.value() != other)
            return false;
    }
    return true;
}

}  // namespace

class TestConfigurationImage : public QObject
{
    Q_OBJECT

private slots:
    void valuesKeepTheirTypes_data();
    void valuesKeepTheirTypes();
    void manySettingsComeBack();
    void randomSettingsComeBack();
    void theFormIsFixed();
    void theTextIsOneLineOfAscii();
    void theChecksumIsThatOfTheText();
    void everyChangedCharacterIsNoticed();
    void imageThatIsNoneIsRefused_data();
    void imageThatIsNoneIsRefused();
    void imageCutShortIsRefused();
    void countsThatAreNotThereTakeNoMemory();
    void valueThatCannotBeReadBackIsNotSent();
};

void TestConfigurationImage::valuesKeepTheirTypes_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("text") << QVariant(key("text"));
    QTest::newRow("empty text") << QVariant(QString());
    QTest::newRow("text of many scripts")
        << QVariant(QString::fromUtf8("Größe Ελλάδα 肺 🫁 العربية"));
    QTest::newRow("text with every control character")
        << QVariant(QString::fromLatin1("\0\x01\n\r\t\x7f", 6));
    QTest::newRow("number") << QVariant(-7);
    QTest::newRow("truth") << QVariant(true);
    QTest::newRow("fraction") << QVariant(0.1);
    QTest::newRow("list of texts") << QVariant(QStringList{key("a"), QString(), key("b;c")});
    QTest::newRow("empty list of texts") << QVariant(QStringList());
    QTest::newRow("list of values") << QVariant(QVariantList{1, key("a"), true, QVariantList{2}});
    QTest::newRow("map") << QVariant(QVariantMap{{key("a"), 1}});
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xff\x80 bytes", 9));
    QTest::newRow("safe value") << QVariant(SafeValue::encipher(key("secret")));
    QTest::newRow("time") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(8, 15), Qt::UTC));
    QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("nothing") << QVariant();
}

void TestConfigurationImage::valuesKeepTheirTypes()
{
    QFETCH(QVariant, value);
    const Settings settings{{key("group/key"), value}};
    const auto image = ConfigurationImage::encode(settings);
    QVERIFY(image);
    const auto decoded = image->decode();
    QVERIFY(decoded);
    QVERIFY(sameValues(*decoded, settings));
}

void TestConfigurationImage::manySettingsComeBack()
{
    Settings settings;
    for (int i = 0; i < 2000; ++i)
        settings.insert(QStringLiteral("group_%1/key_%2").arg(i % 7).arg(i), QString(524, QChar(0x80 + i)));
    const auto image = ConfigurationImage::encode(settings);
    QVERIFY(image);
    QVERIFY(sameValues(*image->decode(), settings));
}

void TestConfigurationImage::randomSettingsComeBack()
{
    for (quint32 seed = 0; seed < 200; ++seed) {
        const Settings settings = RandomSettings(seed).map();
        const auto image = ConfigurationImage::encode(settings);
        QVERIFY2(image && sameValues(*image->decode(), settings), qPrintable(QString::number(seed)));
    }
}

/// Written by one release and read by the next.
void TestConfigurationImage::theFormIsFixed()
{
    const ConfigurationImage image{key("corvane-configuration-1:"
                                       "AAAAAgAAAA4AdQBpAC8AdABlAHgAdAAAAAoAAAAACAB0AGUAeAB0AAAAEgB1AGkALwBuA"
                                       "HUAbQBiAGUAcgAAAAIAAAAABQ=="),
                                   key("909d59fb19de4764fa3a771055d4b2c7554c67a9b8db1d6ad6c96dae5f09bab7")};
    const auto settings = image.decode();
    QVERIFY(settings);
    QVERIFY(sameValues(*settings, {{key("ui/number"), 5}, {key("ui/text"), key("text")}}));
}

void TestConfigurationImage::theTextIsOneLineOfAscii()
{
    const auto image =
        ConfigurationImage::encode({{QString::fromUtf8("größe/肺"), QString::fromUtf8("line\nline\0🫁")}});
    QVERIFY(image);
    static const QRegularExpression printable(QStringLiteral("^[!-~]+$"));
    QVERIFY(printable.match(image->text).hasMatch());
}

void TestConfigurationImage::theChecksumIsThatOfTheText()
{
    const ConfigurationImage image = example();
    const QByteArray hash = QCryptographicHash::hash(image.text.toLatin1(), QCryptographicHash::Sha256);
    QCOMPARE(image.checksum, QString::fromLatin1(hash.toHex()));
    QVERIFY(!(ConfigurationImage{image.text, image.checksum.toUpper()}.decode()));
    QVERIFY(!(ConfigurationImage{image.text, QString()}.decode()));
}

void TestConfigurationImage::everyChangedCharacterIsNoticed()
{
    const ConfigurationImage image = example();
    for (int i = 0; i < image.text.size(); ++i) {
        ConfigurationImage changed = image;
        changed.text[i] = changed.text.at(i) == QLatin1Char('A') ? QLatin1Char('B') : QLatin1Char('A');
        QVERIFY2(!changed.decode(), qPrintable(QString::number(i)));
    }
}

void TestConfigurationImage::imageThatIsNoneIsRefused_data()
{
    QTest::addColumn<QString>("text");

    const QString base64 = example().text.mid(kForm.size());
    QTest::newRow("empty") << QString();
    QTest::newRow("the form's name alone") << kForm;
    QTest::newRow("without the form's name") << base64;
    QTest::newRow("a later form") << QStringLiteral("corvane-configuration-2:") + base64;
    QTest::newRow("a form with more digits") << QStringLiteral("corvane-configuration-11:") + base64;
    QTest::newRow("with something before it") << QLatin1Char(' ') + kForm + base64;
    QTest::newRow("with a line end behind it") << kForm + base64 + QLatin1Char('\n');
    QTest::newRow("with a letter that is not of Base64") << kForm + QLatin1Char('*') + base64;
    QTest::newRow("with a letter that is not of Latin-1") << kForm + QString::fromUtf8("肺") + base64;
    QTest::newRow("with bytes behind the settings") << withStream(streamOf(example()) + '\0').text;
}

void TestConfigurationImage::imageThatIsNoneIsRefused()
{
    QFETCH(QString, text);
    QVERIFY(!sealed(text).decode());
}

void TestConfigurationImage::imageCutShortIsRefused()
{
    const QByteArray stream = streamOf(example());
    QVERIFY(withStream(stream).decode());
    for (int size = 0; size < stream.size(); ++size)
        QVERIFY2(!withStream(stream.left(size)).decode(), qPrintable(QString::number(size)));
}

void TestConfigurationImage::countsThatAreNotThereTakeNoMemory()
{
    QVERIFY(!withStream(QByteArray::fromHex("ffffffff")).decode());
    QVERIFY(!withStream(QByteArray::fromHex("00000001"
                                            "fffffffe"
                                            "0061"))
                 .decode());
    QVERIFY(!withStream(QByteArray::fromHex("00000001"
                                            "000000020061"
                                            "0000000900"
                                            "7fffffff"))
                 .decode());
}

void TestConfigurationImage::valueThatCannotBeReadBackIsNotSent()
{
    QVERIFY(!ConfigurationImage::encode({{key("ui/pattern"), QRegularExpression(key("a"))}}));
    QVariant nested = 1;
    for (int depth = 0; depth < 100; ++depth)
        nested = QVariantList{nested};
    QVERIFY(!ConfigurationImage::encode({{key("ui/nested"), nested}}));
}

QTEST_GUILESS_MAIN(TestConfigurationImage)
#include "test_configurationimage.moc"
