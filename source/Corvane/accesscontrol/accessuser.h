#ifndef ACCESSUSER_H
#define ACCESSUSER_H

#include "CommunicationAndData/access/operatormodeldata.h"
#include "ZephanShared/widgets/columnbutton.h"

#include <QMap>

/// The head of a user's row in the table of users: a button with the username that opens the editor.
class AccessUser : public ColumnButton
{
    Q_OBJECT

public:
    /// \param oper  the operator, not null
    AccessUser(OperatorModel oper, QWidget *parent);

    OperatorModel oper() const;

    /// Lets a person change or delete the operator, in the form of its type. The operator takes the values
    /// when the dialog is accepted, which a wish to delete counts as; `deleted()` tells of a confirmed
    /// deletion. A Windows group can only be removed.
    ///
    /// \param organizations  name by id
    /// \param departments    address and name by id, the name last
    /// \param showRemove     whether it can be deleted
    /// \return               the result of the dialog
    int editOperator(const QMap<UuidString, QString> &organizations,
                     const QMultiMap<UuidString, QString> &departments, bool showRemove);

private:
    OperatorModel m_oper;
};

#endif
