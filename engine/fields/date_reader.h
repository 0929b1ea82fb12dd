#pragma once

#include "engine/fields/date_patterns.h"
#include "engine/recognition/text_line.h"

#include <QDate>
#include <QList>

#include <optional>

namespace fennick::engine {

// A receipt's date and the lines it stands on, where its time often stands too.
struct FoundDate {
    QDate date;
    QList<std::optional<qsizetype>>
        lines;              // one for each reading: index of the line; none where it is not read there
    bool isCertain = false; // the readings agree
};

// The day of the purchase: a date that is labelled as such or stands beside a time, else the topmost one;
// dates of something else (due, arrival, best before ...) only when there is no other. The more readings have
// it the better; garbled dates count for little. Dates before 1990 and after the day that follows `today` are
// misreadings.
[[nodiscard]] std::optional<FoundDate> readDate(const QList<Reading> &readings, const DateStyle &style,
                                                QDate today);

// How days and months stand in the dates of `readings`: as in those that can be read in one way only
// (25/03/2018, Mon 03/04/2023); that of `style` when there is none.
[[nodiscard]] DateOrder printedOrder(const QList<Reading> &readings, const DateStyle &style);

} // namespace fennick::engine
