#pragma once

#include <QString>

namespace fennick::engine {

// What an amount on a receipt is, as its label tells.
enum class AmountRole {
    FinalTotal, // what is to be paid and nothing else: "Grand total", "Amount due", "Total rounded"
    Total,      // "Total", which some tills also print before tax or rounding
    SubTotal,   // before tax, charges or rounding
    Tax,
    Charge, // service charge, tip
    Discount,
    Rounding,
    Tendered, // cash handed over, or the sum paid
    Card,     // taken from a card
    Change,
    PaidBefore, // a deposit or advance that leaves less to pay
    Mention,    // "Amount", "Sum": as a last resort
    Other,      // counts, points, savings: never what was paid
    Taxed,      // what a row of the table of taxes comes to with its tax, printed or not
    Unnamed,    // no label that is known: items
};

// The role that `label` gives, misread words and all.
AmountRole amountRole(const QString &label);

// Whether `line` heads the table of taxes, whose totals are not the receipt's.
bool startsTaxTable(const QString &line);

} // namespace fennick::engine
