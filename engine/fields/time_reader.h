#pragma once

#include "engine/knowledge/word_table.h"
#include "engine/recognition/text_line.h"

#include <QList>
#include <QTime>

#include <optional>

namespace fennick::engine {

// A time of day as it stands in a line of text.
struct PrintedTime {
    QTime time;
    qsizetype start = 0; // in characters of the line
    qsizetype length = 0;
};

// The times of `line`.
[[nodiscard]] QList<PrintedTime> printedTimes(const QString &line);

// The time of the purchase, to the minute: 14:32, 2:32 PM, 14h32, 14.32 Uhr. The one beside the date (on line
// `dateLine`) wins, then a labelled one, then the one nearest to the date; opening hours ("9:00 - 18:00") do
// not count.
[[nodiscard]] std::optional<QTime> readTime(const QList<TextLine> &lines, std::optional<qsizetype> dateLine,
                                            const Languages &languages);

} // namespace fennick::engine
