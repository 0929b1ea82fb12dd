#pragma once

#include "model/receipt.h"

namespace fennick {

// What a search looks at in a receipt, prepared once so that a list of 50,000 answers each key at once.
struct SearchableReceipt {
    explicit SearchableReceipt(const Receipt &receipt, bool isPossibleDuplicate = false);

    QString words;      // all texts as searchText() makes them, each on a line of its own
    QString amountText; // with a point and at least two decimals; empty without an amount
    std::optional<double> amount;
    QString currency; // in lower case; empty without one
    int year = 0;     // of the receipt's date; 0 without one
    int month = 0;
    ReceiptStatus status;
    bool addedToPhotos;
    bool mayBeDuplicate;
};

} // namespace fennick
