#pragma once

#include "engine/knowledge/currency_table.h"

#include <QList>
#include <QString>

namespace fennick::engine {

// A number as it stands in a line of text.
struct PrintedNumber {
    double value = 0;
    bool hasDecimals = false; // as many digits after the decimal sign as prices of the currency have
    bool hasGroups = false;   // thousands are set apart
    bool hasCurrency = false; // a currency symbol or code stands right before or after it
    qsizetype start = 0;      // in characters of the line
    qsizetype length = 0;
};

// The numbers of `line` that can be prices of `style`, from left to right, in any usual form: 1234.56,
// 1,234.56, 1.234,56, 1'234.56, 1 234,56, 1,23,456.00, 1234, 12:-, 12,-. Percentages, negative numbers,
// dates, times and numbers inside words or codes ("A4", "12-345") are left out.
[[nodiscard]] QList<PrintedNumber> printedNumbers(const QString &line, const PriceStyle &style = {});

} // namespace fennick::engine
