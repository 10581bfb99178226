#ifndef PRODUCTTEXTS_H
#define PRODUCTTEXTS_H

#include <QString>

/// What the product says of itself in more than one place.
namespace ProductTexts {

/// The suite's main product.
constexpr char kSuiteName[] = "Halvorn Pulmadesk";
/// This program.
constexpr char kProgramName[] = "Corvane";

/// The maker's notice, one line, in the present language.
QString makersNotice();
/// The note that points to the file with the disclaimer, in the present language.
QString legalNote();

}  // namespace ProductTexts

#endif
