#ifndef CONFIGURATIONIMAGE_H
#define CONFIGURATIONIMAGE_H

#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// The form in which settings travel through the settings database: one line of ASCII text and its checksum.
///
/// The text is the name and the version of the form and, in Base64, a `QDataStream` of the settings as
/// `QMap<QString, QVariant>` under their full keys, in the stream version that belongs to the form's. Every
/// value keeps its type; safe values stand in it in their stored form. The checksum is the SHA-256 of the
/// text in lower-case hexadecimal.
struct ConfigurationImage
{
    QString text;
    QString checksum;

    /// Nothing where a value is of a kind that could not be read back, or there is more than an image may
    /// hold.
    static std::optional<ConfigurationImage> encode(const QMap<QString, QVariant> &settings);

    /// The settings; nothing if the checksum is not that of the text, or the text is not such an image.
    std::optional<QMap<QString, QVariant>> decode() const;

    static QString checksumOf(const QString &text);
};

#endif
