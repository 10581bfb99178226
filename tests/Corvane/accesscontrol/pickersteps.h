#ifndef TESTS_PICKERSTEPS_H
#define TESTS_PICKERSTEPS_H

#include "Corvane/accesscontrol/userfixture.h"

class QRadioButton;

// Entries of the list of domains
constexpr int kManual = 0;
constexpr int kLocal = 1;
constexpr int kFirstDomain = 2;

/// An account's name as this computer lists it.
QString onThisComputer(const QString &name);
/// The accounts on offer, in the order of their listing.
QList<QRadioButton *> accounts(QDialog &dialog);
bool isSavable(QDialog &dialog);

// Steps
EditorSteps::Step chooseDomain(int index);
EditorSteps::Step clickAccount(int index);

/// Runs the choice of a group, or of a user and then its form.
OperatorModel pick(bool group, const QList<EditorSteps::Step> &steps, const QStringList &domains = {});

#endif
