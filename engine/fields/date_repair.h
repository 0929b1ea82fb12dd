#pragma once

#include "engine/fields/date_patterns.h"

#include <QList>
#include <QString>

namespace fennick::engine {

// Dates of `line` that recognition garbled so that printedDates() does not see them: letters for digits
// (2O19), a separator that was lost or taken for a digit (261102019 for 26/10/2019), unlike separators
// (26-10.2019), a misread century (26/10/2619). Also dates printed without separators (26102019). Guesses,
// each by itself: many a number has such a shape.
QList<PrintedDate> garbledDates(const QString &line, const DateStyle &style);

} // namespace fennick::engine
