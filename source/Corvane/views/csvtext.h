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

}  // namespace CsvText

#endif
