#ifndef TESTS_USERFIXTURE_H
#define TESTS_USERFIXTURE_H

#include "Corvane/accesscontrol/accessuser.h"
#include "Corvane/accesscontrol/accessuserwizard.h"
#include "Corvane/accesscontrol/editorsteps.h"

Q_DECLARE_METATYPE(EditorSteps::Step)

QString text(const char *utf8);

extern const UuidString kEastClinic;
extern const UuidString kWestClinic;
extern const UuidString kSurgery;
extern const UuidString kOncology;

/// East and West Clinic.
AccessUserWizard::Organizations organizations();
/// Surgery and Oncology, each with an address.
AccessUserWizard::Departments departments();

/// An operator of a type, with the password "secret" where it is an internal user.
OperatorModel storedOperator(uint type, const QString &username);
/// Everything that the editors can change in an operator, for comparing.
QStringList valuesOf(const OperatorModel &oper);

/// Runs the editor on a row's operator with these steps. \return -1 where the steps were not all done
int edit(AccessUser &button, const QList<EditorSteps::Step> &steps, bool showRemove = true);
/// Runs the editor of a new internal user with these steps.
OperatorModel newInternalUser(const QList<EditorSteps::Step> &steps);

#endif
