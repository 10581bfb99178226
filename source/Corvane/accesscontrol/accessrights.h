#ifndef ACCESSRIGHTS_H
#define ACCESSRIGHTS_H

#include <QList>
#include <QPair>
#include <QString>

/// The rows of a table of rights from top to bottom, each a mask of `AccessType` bits with its translated
/// label. The mask 0 is a heading.
QList<QPair<int, QString>> accessRightRows();

/// The rights that follow a right when it is given to a role or taken from it: those that it needs, or those
/// that need it. A right is followed in one step; what the followers would bring along is in the mask already
/// or stays as it is.
///
/// \param right    one right of `accessRightRows`
/// \param checked  whether it is given or taken
/// \return         a mask; 0 where nothing follows
int dependentRights(int right, bool checked);

#endif
