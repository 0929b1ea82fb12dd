#pragma once

#include <QDate>
#include <QList>
#include <QString>

namespace fennick::engine {

// How to read 03/04/2024, where nothing in it tells which of the two is the month.
enum class DayMonthOrder {
    DayFirst,
    MonthFirst,
};

// A date as it stands in a line of text.
struct PrintedDate {
    QDate date;
    qsizetype start = 0; // in characters of the line
};

// The dates of `line`, from left to right: 2024-05-01, 2024/05/01, 01.05.2024, 01/05/24, 1 May 2024,
// May 1, 2024, 1. Mai 2024, 2024年5月1日. Years of two digits are of this century. Only days that exist.
QList<PrintedDate> printedDates(const QString &line, DayMonthOrder order);

} // namespace fennick::engine
