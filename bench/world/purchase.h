#pragma once

#include "customs.h"
#include "seeded_random.h"

#include <QDateTime>
#include <QList>

#include <cstdint>

namespace fennick {

// Amounts are in the currency's smallest units.
struct PurchaseLine {
    QString name;
    double quantity = 1;
    double unitPrice = 0; // in the currency's whole units
    int64_t amount = 0;
    int rate = 0;         // index into `Purchase::rates`
    bool isExtra = false; // a discount or a deposit
};

struct TaxAmount {
    QString name = {};
    double rate = 0;
    int64_t net = 0;
    int64_t tax = 0;
};

// What somebody bought, and what that comes to.
struct Purchase {
    QString trade;
    QDateTime moment;
    int digits = 2; // of the currency, behind the point
    QList<double> rates;
    QList<PurchaseLine> lines;
    int64_t subtotal = 0;
    int64_t service = 0;
    QList<TaxAmount> addedTaxes;
    QList<TaxAmount> includedTaxes;
    int64_t total = 0;
    int64_t tip = 0;
    int64_t rounding = 0;
    int64_t due = 0; // with tip and rounding: what was paid, or given back if below 0
    bool isRefund = false;
    bool isCash = false;
    int64_t given = 0;
};

[[nodiscard]] Purchase madePurchase(const Customs &customs, SeededRandom &random);

// The engine's categories that a reader may choose for it.
[[nodiscard]] QStringList categoriesOf(const Purchase &purchase);

} // namespace fennick
