#pragma once

#include "engine/fields/amount_roles.h"
#include "engine/knowledge/currency_table.h"
#include "engine/recognition/text_line.h"

#include <QList>

namespace fennick::engine {

// An amount and what it is said to be.
struct LabelledAmount {
    qint64 thousandths = 0; // of the currency's unit: some have three decimals
    AmountRole role = AmountRole::unnamed;
    // 0 to 1: how surely this is the amount that the label means. Less for one of several behind a label, for
    // whole numbers, in a table of taxes, and where recognition was unsure.
    double weight = 1;
    bool hasDecimals = false;
    bool hasCurrency = false;
    bool hasGroups = false; // "73,000": no decimal sign was lost
    qsizetype line = 0;     // index into the reading
};

// Every amount of `reading`, from top to bottom and left to right. A label stands before its amount, on the
// same line or on the one above. Last come the sums that its table of taxes proves. `style` is that of the
// reading's currency; `usualTaxRates` are its country's, in per cent.
[[nodiscard]] QList<LabelledAmount> labelledAmounts(const Reading &reading, const AmountRoles &roles,
                                                    const PriceStyle &style,
                                                    const QList<double> &usualTaxRates);

} // namespace fennick::engine
