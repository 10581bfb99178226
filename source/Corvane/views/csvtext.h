#ifndef CSVTEXT_H
#define CSVTEXT_H

#include <QStringList>

/// Rows of cells as text for other programs.
namespace CsvText {

/// One record of RFC 4180, with its line end: commas between the fields, and quotes around those that hold a
/// comma, a quote or a line break.
QString record(const QStringList &fields);

/// One line as spreadsheets take it from the clipboard, with its line end: tabs between the fields, and
/// quotes around those that hold a tab, a quote or a line break.
QString tabbedLine(const QStringList &fields);

/// Tabbed lines for the clipboard, from which no program takes texts of any length.
class ClipboardLines
{
public:
    static constexpr int kMost = 200 * 1000 * 1000;

    /// \param most  characters
    explicit ClipboardLines(int most = kMost);

    /// \return  false as soon as there is too much
    bool add(const QStringList &fields);
    const QString &text() const;

private:
    QString m_text;
    int m_most;
};

}  // namespace CsvText

#endif
