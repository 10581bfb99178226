#ifndef INISCANNER_H
#define INISCANNER_H

#include <QByteArray>
#include <QStringList>

/// One line of an ini file as `QSettings` understands lines: without leading blanks, line end and comment.
struct IniLine
{
    QByteArray text;
    int equals = -1;          ///< position of the "=" between key and value in `text`; -1 without one
    bool openQuote = false;   ///< a quote was still open at the end of the line
    bool openEscape = false;  ///< the text ended behind a backslash
};

/// Goes through the lines of an ini file. Unlike in `QSettings` a quote never goes beyond its line, so that
/// one quote too many cannot swallow what follows it.
class IniScanner
{
public:
    explicit IniScanner(const QByteArray &text);

    /// False at the end of the text.
    bool next(IniLine &line);

private:
    void skipBlanks();
    void skipComment();

    const QByteArray m_text;
    int m_position = 0;
};

/// The items of a value of an ini file, unescaped: one, or as many as commas outside of quotes separate.
QStringList iniItems(const QByteArray &value);

#endif
