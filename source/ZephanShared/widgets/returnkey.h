#ifndef RETURNKEY_H
#define RETURNKEY_H

class QAbstractButton;
class QLineEdit;

/// Lets Return and Enter click a button that has the keyboard, as Space does. By themselves they click only
/// the push buttons of a dialog. A key that is held down clicks once.
void clickByReturn(QAbstractButton *button);

/// Lets a field answer to Return and Enter once for each press, however long the key is held down.
void takeReturnOnce(QLineEdit *field);

#endif
