#include "randomsettings.h"

#include <QDateTime>
#include <QRect>

RandomSettings::RandomSettings(quint32 seed)
    : m_generator(seed)
{}

int RandomSettings::number(int limit)
{
    return m_generator.bounded(limit);
}

QMap<QString, QVariant> RandomSettings::map()
{
    static const char *const groups[] = {"application", "ui", "his", "persondb/params/1", "General"};
    QMap<QString, QVariant> map;
    for (int i = number(30); i >= 0; --i) {
        const QString group = QString::fromLatin1(groups[number(5)]);
        map.insert(QStringLiteral("%1/key_%2").arg(group).arg(number(100)), value());
    }
    return map;
}

QVariant RandomSettings::value()
{
    switch (number(12)) {
    case 0:
        return number(2000) - 1000;
    case 1:
        return number(2) == 1;
    case 2:
        return number(1000) / 7.0;
    case 3:
        return bytes();
    case 4:
        return QStringList{text(), text(), text()};
    case 5:
        return QVariantList{number(9), text(), number(2) == 1};
    case 6:
        return QVariantMap{{text(), number(9)}, {QStringLiteral("list"), QVariantList{text(), bytes()}}};
    case 7:
        return QDateTime(QDate(2000 + number(50), 1 + number(12), 1), QTime(number(24), 30), Qt::UTC);
    case 8:
        return QRect(number(9), number(9), number(9), number(9));
    case 9:
        return QString();
    default:
        return text();
    }
}

QString RandomSettings::text()
{
    static const QStringList pieces{
        QStringLiteral("a"),         QStringLiteral("B"),    QStringLiteral("7"),
        QStringLiteral("\""),        QStringLiteral("\\"),   QStringLiteral(";"),
        QStringLiteral(","),         QStringLiteral("="),    QStringLiteral("@"),
        QStringLiteral("@Variant("), QStringLiteral(")"),    QStringLiteral(" "),
        QStringLiteral("\n"),        QStringLiteral("\r"),   QStringLiteral("\t"),
        QStringLiteral("%20"),       QString(QChar(0)),      QString(QChar(0x7f)),
        QString::fromUtf8("ö"),      QString::fromUtf8("€"), QString::fromUtf8("肺"),
        QString::fromUtf8("🫁"),   QString(QChar(0xfeff)), QStringLiteral("[x]"),
        QStringLiteral("@Invalid()")};
    QString text;
    for (int i = number(10); i > 0; --i)
        text += pieces.at(number(pieces.size()));
    return text;
}

QByteArray RandomSettings::bytes()
{
    QByteArray bytes(number(40), '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(number(256));
    return bytes;
}
