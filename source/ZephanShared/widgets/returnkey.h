#ifndef RETURNKEY_H
#define RETURNKEY_H

class QAbstractButton;

/// Lets Return and Enter click a button that has the keyboard, as Space does. By themselves they click only
/// the push buttons of a dialog. A key that is held down clicks once.
void clickByReturn(QAbstractButton *button);

#endif
