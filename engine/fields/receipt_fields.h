#pragma once

#include "engine/fields/evidence.h"
#include "engine/fields/reading_facts.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QTime>

#include <optional>

namespace fennick::engine {

// What a receipt says. Absent = not found; category and summary are always there.
struct ReceiptFields {
    std::optional<QDate> date;
    std::optional<QTime> time;
    std::optional<double> amount;    // the total paid, in units of the currency
    std::optional<QString> currency; // ISO 4217
    std::optional<QString> location; // the seller's name
    QString category;
    QString summary;
    ReceiptEvidence evidence; // where the values stand
};

// What a document says, from one or more readings of it, which vote field by field. None for a document that
// is no receipt: with neither a date nor an amount, nor the name of a company that is sure. Pure; `today`
// bounds the dates that can be true.
[[nodiscard]] std::optional<ReceiptFields> readReceipt(const QList<ReadingFacts> &facts, QDate today);

// Whether the readings agree on date and total so well that further ones would change nothing.
[[nodiscard]] bool isBeyondDoubt(const QList<ReadingFacts> &facts, QDate today);

// Whether nothing in the readings looks like a receipt: no date, no price, and no word, address or number
// that points to a brand, a language or a country. Further looks at such a page find nothing either.
[[nodiscard]] bool showNothing(const QList<ReadingFacts> &facts, QDate today);

} // namespace fennick::engine
