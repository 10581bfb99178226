#ifndef EVENTTEXT_H
#define EVENTTEXT_H

#include "ZephanShared/toolkit/zephanerror.h"

#include <QVariant>

/// The column `info` of an audit event, as a person reads it.
///
/// Lists are joined by ", ", maps become "key: value" pairs, and what is inside another list or map stands in
/// brackets. Nothing of a text is changed or cut.
QString eventText(const QVariant &value);

/// The column `info` of an audit error: "Error code: " and the number in decimal, as the program shows it to
/// people, then the data.
QString errorEventText(ZephanError error, const QVariant &data);

#endif
