#pragma once

#include <QString>

#include <optional>

namespace fennick {

// What the model has read from a receipt, after normalisation. Checks are of form only: "2024-13-45" is a
// valid date and "99:99" a valid time.
struct GeminiReceiptData {
    std::optional<QString> date;     // YYYY-MM-DD
    std::optional<QString> time;     // HH:MM
    std::optional<double> amount;    // finite, in units of the currency
    std::optional<QString> currency; // three upper-case ASCII letters
    std::optional<QString> location; // trimmed, never empty
    QString category;                // one of GeminiClient::validCategories
    QString summary;                 // trimmed, never empty
};

} // namespace fennick
