#pragma once

#include <QRectF>
#include <QString>

#include <optional>

namespace fennick::engine {

// Where a value stands on a document.
struct Evidence {
    int page = 0; // from 0
    QRectF place; // 0 to 1 from the top left corner of the page as it is shown
    QString text; // as printed, or as it was read
};

// Where a receipt's values stand. A value that follows from others, such as the currency of a country, stands
// nowhere.
struct ReceiptEvidence {
    std::optional<Evidence> date;
    std::optional<Evidence> time;
    std::optional<Evidence> total;
    std::optional<Evidence> currency;
    std::optional<Evidence> merchant;
    std::optional<Evidence> category; // only if its word is printed
    std::optional<Evidence> summary;  // only if it is printed word for word
};

} // namespace fennick::engine
