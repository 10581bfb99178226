#include "Corvane/accesscontrol/accessuser.h"

#include "Corvane/accesscontrol/accessuserwizard.h"

AccessUser::AccessUser(OperatorModel oper, QWidget *parent)
    : ColumnButton(oper->username(), parent)
    , m_oper(std::move(oper))
{}

OperatorModel AccessUser::oper() const
{
    return m_oper;
}

int AccessUser::editOperator(const QMap<UuidString, QString> &organizations,
                             const QMultiMap<UuidString, QString> &departments, bool showRemove)
{
    AccessUserWizard wizard(window());
    if (showRemove)
        wizard.offerRemoval(this);
    const bool managed = m_oper->operatorType() == OperatorModelData::InternalUser;
    wizard.setupOperatorForm(m_oper, managed, organizations, departments);
    return wizard.runFlow(m_oper) ? QDialog::Accepted : QDialog::Rejected;
}
