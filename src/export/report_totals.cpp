#include "export/report_totals.h"

#include <map>

namespace fennick {

namespace {

using Categories = std::map<QString, double>;

CurrencyTotal totalOf(const QString &currency, const Categories &categories) {
    CurrencyTotal total{.currency = currency, .amount = 0, .categories = {}};
    for (const auto &[category, amount] : categories) {
        total.amount += amount;
        total.categories.append({category, amount});
    }
    return total;
}

} // namespace

QList<CurrencyTotal> totalsByCurrency(const QList<Receipt> &receipts) {
    std::map<QString, Categories> sums;
    for (const Receipt &receipt : receipts) {
        if (receipt.amount) {
            const QString currency = receipt.currency.value_or(QString()).trimmed().toUpper();
            sums[currency][receipt.category] += *receipt.amount;
        }
    }
    QList<CurrencyTotal> totals;
    for (const auto &[currency, categories] : sums) {
        if (!currency.isEmpty()) {
            totals.append(totalOf(currency, categories));
        }
    }
    if (const auto without = sums.find(QString()); without != sums.end()) {
        totals.append(totalOf(QString(), without->second));
    }
    return totals;
}

} // namespace fennick
