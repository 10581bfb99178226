#ifndef SAFEVALUE_H
#define SAFEVALUE_H

#include <QByteArray>
#include <QVariant>

#include <optional>

/// The stored form of safe values: what keeps a user name or a password from being read in a settings file.
///
/// The form is one zero byte and then lower-case hexadecimal of a version byte and the AES-256-SIV encryption
/// of the value as a `QDataStream`ed `QVariant`. Nothing but the value and a key of the suite goes into it,
/// so it means the same in every file, on every workstation and for every user; equal values have equal
/// forms; and it survives folding to lower case. The zero byte is its mark and makes its `QVariant::toString`
/// empty.
namespace SafeValue {

/// The stored form of a value; empty only when the cipher is not to be had, in which case nothing may be
/// written in its place.
QByteArray encipher(const QVariant &value);

/// The value of a stored form; nothing when the bytes are no such form, are damaged, or were made with
/// another key.
std::optional<QVariant> decipher(const QByteArray &stored);

/// True if the bytes have the outward shape of a stored form. Says nothing about their being genuine.
bool hasStoredShape(const QByteArray &stored);

}  // namespace SafeValue

#endif
