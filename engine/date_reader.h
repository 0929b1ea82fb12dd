#pragma once

#include "engine/date_patterns.h"
#include "engine/text_line.h"

#include <QDate>
#include <QList>

#include <optional>

namespace fennick {

// A receipt's date and the line it stands on, where its time often stands too.
struct FoundDate {
    QDate date;
    qsizetype line = 0; // index into the lines given
};

// The day of the purchase: a date that is labelled as such, else the topmost one; dates of something else
// (due, arrival, best before ...) only when there is no other. Dates before 1990 and after the day that
// follows `today` are misreadings.
std::optional<FoundDate> readDate(const QList<TextLine> &lines, DayMonthOrder order, QDate today);

} // namespace fennick
