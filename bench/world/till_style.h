#pragma once

#include "amount_text.h"
#include "customs.h"
#include "purchase.h"
#include "seeded_random.h"

namespace fennick {

enum class QuantityPlace {
    belowItem,
    aboveItem,
    beforeName,
    column,
};

enum class DatePlace {
    top,
    beforeItems,
    bottom,
};

// How one till prints: chosen once for each receipt, from what the customs allow.
struct TillStyle {
    int columns = 42;
    bool isCapital = false;
    bool isPlain = false; // without accents
    bool isCentred = true;
    bool hasRateCodes = false;
    bool isMinusBehind = false;
    bool cutsNames = false; // long ones end at the amount, instead of taking a row of their own
    bool numbersItems = false;
    bool hasBarcodes = false; // the numbers of goods above their names
    QString rule;             // empty for a drawn line
    QuantityPlace quantity = QuantityPlace::belowItem;
    DatePlace datePlace = DatePlace::top;
    QString date;
    QString time;
    AmountShape amount;
    AmountShape totalAmount;
    AmountShape exactAmount; // for what the others would leave out

    static TillStyle chosen(const Customs &customs, const Purchase &purchase, SeededRandom &random);

    QString text(int64_t value, int digits) const { return signedText(value, digits, amount); }
    QString totalText(int64_t value, int digits) const { return signedText(value, digits, totalAmount); }

private:
    QString signedText(int64_t value, int digits, const AmountShape &shape) const;
};

} // namespace fennick
