#ifndef FITTEDTEXT_H
#define FITTEDTEXT_H

class QFont;
class QLabel;
class QSize;
class QString;

/// The font itself, or as many pixels smaller as a text takes to fit into the room. There is a smallest size.
///
/// \param flags  how the text is laid out, as for `QFontMetrics::boundingRect`
QFont fittedFont(QFont font, const QSize &room, int flags, const QString &text);

/// Shows a text in a label of fixed size that wraps its words, in letters small enough for all of it. Some
/// languages need two lines.
void showFitted(QLabel &label, const QString &text);

#endif
