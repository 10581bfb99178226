#ifndef FITTEDTEXT_H
#define FITTEDTEXT_H

class QLabel;
class QString;

/// Shows a text in a label of fixed size that wraps its words, in letters small enough for all of it. Some
/// languages need two lines.
void showFitted(QLabel &label, const QString &text);

#endif
