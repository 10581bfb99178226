#ifndef INICODEC_H
#define INICODEC_H

class QTextCodec;

/// UTF-8 for `QSettings::setIniCodec`. The files are the same as with Qt's own codec, but nothing is lost:
/// `QSettings` hands text over in single units of 16 bits, in which Qt's codec loses every character beyond
/// the first 65536, and in pieces, from whose beginning it takes what looks like a byte order mark.
QTextCodec *iniUtf8Codec();

#endif
