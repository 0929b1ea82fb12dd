#pragma once

#include "engine/knowledge/country_table.h"
#include "engine/knowledge/word_table.h"

#include <QDate>
#include <QList>
#include <QString>

namespace fennick::engine {

// How dates are written where a receipt comes from.
struct DateStyle {
    DateOrder order = DateOrder::dayFirst;
    Languages languages = {};      // of the names of months, besides English
    bool hasBuddhistYears = false; // short ones too: 67 is 2024
};

// A date as it stands in a line of text.
struct PrintedDate {
    QDate date;
    qsizetype start = 0; // in characters of the line
    qsizetype length = 0;
};

// The dates of `line`, from left to right: 2024-05-01, 2024/05/01, 01.05.2024, 01/05/24, 1 May 2024,
// May 1, 2024, 1. Mai 2024, 2024年5月1日. Years of two digits are of this century, those from 2443 on of the
// Buddhist era. Only days that exist.
[[nodiscard]] QList<PrintedDate> printedDates(const QString &line, const DateStyle &style);

} // namespace fennick::engine
