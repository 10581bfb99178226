#ifndef SETTINGSLISTS_H
#define SETTINGSLISTS_H

#include <QList>
#include <QStringList>
#include <QVariant>

/// Reads a list of numbers that may have been stored as a single one: the value as a list, and when that is
/// empty as one number. What is no number is skipped.
QList<int> readNumbers(const QVariant &value);

/// The form in which a list of numbers is stored.
QVariant numbersToSetting(const QList<int> &numbers);

/// Copies a stored list of texts over a list of defaults, index by index: a shorter stored list keeps the
/// defaults of the rest, a longer one loses its surplus.
QStringList overlayTexts(const QStringList &defaults, const QVariant &stored);

/// A date's format and separator, packed into one number for an item's data: the format in the high 16 bits,
/// the separator in the low ones.
int packDateFormat(int format, int separator);
int dateFormatOf(int packed);
int dateSeparatorOf(int packed);

#endif
