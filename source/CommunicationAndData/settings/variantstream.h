#ifndef VARIANTSTREAM_H
#define VARIANTSTREAM_H

#include <QByteArray>
#include <QDataStream>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// Reading of streamed values that come from outside. `QDataStream` believes the counts that it reads and
/// sets memory aside for them, and follows nested lists to any depth; damaged bytes can end the program. Here
/// the bytes are looked through first.
namespace VariantStream {

/// True if the bytes begin with one streamed `QVariant` that can be read without harm: a known type, counts
/// that fit the bytes that follow, and nesting of a sensible depth.
bool isSound(const QByteArray &bytes, QDataStream::Version version);

/// The map of a stream that consists of nothing else; nothing if the bytes are not that.
std::optional<QMap<QString, QVariant>> readMap(const QByteArray &bytes, QDataStream::Version version);

}  // namespace VariantStream

#endif
