#include "engine/fields/receipt_sums.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fennick::engine {

namespace {

constexpr double cashProof = 4;
constexpr double exactCashProof = 2;
constexpr double sumProof = 2.5;
constexpr double cardProof = 1.5;
constexpr double roundingProof = 1.5;
constexpr double labelledRoundingProof = 3; // of a total that a printed rounding leads to
constexpr double itemProof = 2;
constexpr double taxTableProof = 2.5;
constexpr double restProof = 4; // more than what the items and taxes say for the whole
// Half of the largest coin step in use (Swiss 5 centimes, Malaysian 5 sen, Swedish 1 krona).
constexpr qint64 largestRounding = 500;
constexpr qint64 smallestCoin = 50;
// Of currencies that count in hundreds (5 forint, 100 rupiah) the step is a small share of what is rounded.
constexpr qint64 leastShareOfTotal = 200;
constexpr double leastWeight = 0.3;

// Nothing, or one of the amounts: a tax or a charge may be there or not.
QList<qint64> optional(QList<qint64> thousandths) {
    thousandths.append(0);
    return thousandths;
}

// How many of the steps that coins and notes make an amount is a multiple of: rounding leads to more of them.
int roundness(qint64 thousandths) {
    constexpr std::array<qint64, 7> steps = {50, 100, 500, 1000, 5000, 10'000, 100'000};
    return static_cast<int>(
        std::ranges::count_if(steps, [thousandths](qint64 step) { return thousandths % step == 0; }));
}

bool isTotal(const LabelledAmount &amount) {
    return amount.role == AmountRole::total || amount.role == AmountRole::finalTotal;
}

// The last amount of each line without a label above the first total, from the lowest line up.
QList<qint64> itemPrices(const QList<LabelledAmount> &amounts) {
    QList<qint64> prices;
    qsizetype line = -1;
    for (const LabelledAmount &amount : amounts) {
        if (amount.role != AmountRole::unnamed) {
            break;
        }
        if (amount.line == line) {
            prices.first() = amount.thousandths;
        } else {
            prices.prepend(amount.thousandths);
        }
        line = amount.line;
    }
    return prices;
}

} // namespace

ReceiptSums::ReceiptSums(const QList<LabelledAmount> &amounts) {
    for (const LabelledAmount &amount : amounts) {
        printed_.insert(amount.thousandths);
        if (isTotal(amount)) {
            printedTotals_.insert(amount.thousandths);
        }
        QList<qint64> &ofRole = byRole_[amount.role];
        if (amount.weight >= leastWeight && !ofRole.contains(amount.thousandths)) {
            ofRole.append(amount.thousandths);
        }
    }
    sums_ = subtotalsWithAdditions();
    payments_ = payments();
    taxed_ = taxedTotals();
    items_ = sumsOfItems(amounts);
}

// The roundings that `total` may have, with either sign: that is easily lost.
QList<qint64> ReceiptSums::roundings(qint64 total) const {
    QList<qint64> steps;
    for (const qint64 step : amountsOf(AmountRole::rounding)) {
        if (step > 0 && (step <= largestRounding || step * leastShareOfTotal <= total)) {
            steps << step << -step;
        }
    }
    return steps;
}

// What `thousandths` can have been rounded to, which coins can pay.
QList<qint64> ReceiptSums::rounded(qint64 thousandths) const {
    QList<qint64> results;
    for (const qint64 step : roundings(thousandths)) {
        if ((thousandths + step) % smallestCoin == 0) {
            results.append(thousandths + step);
        }
    }
    return results;
}

// Every choice of one tax, charge and discount, or none of it.
QList<qint64> ReceiptSums::additions() const {
    QList<qint64> choices;
    for (const qint64 tax : optional(amountsOf(AmountRole::tax))) {
        for (const qint64 charge : optional(amountsOf(AmountRole::charge))) {
            for (const qint64 discount : optional(amountsOf(AmountRole::discount))) {
                choices.append(tax + charge - discount);
            }
        }
    }
    return choices;
}

// Rounded if the receipt says so; not the bare subtotals.
QSet<qint64> ReceiptSums::subtotalsWithAdditions() const {
    QSet<qint64> found;
    const QList<qint64> choices = additions();
    for (const qint64 base : amountsOf(AmountRole::subtotal)) {
        for (const qint64 addition : choices) {
            const QList<qint64> results = rounded(base + addition);
            found.unite(QSet<qint64>(results.cbegin(), results.cend()));
            if (results.isEmpty() && addition != 0) {
                found.insert(base + addition);
            }
        }
    }
    return found;
}

QMap<qint64, double> ReceiptSums::payments() const {
    QMap<qint64, double> paid;
    for (const qint64 cash : amountsOf(AmountRole::tendered)) {
        for (const qint64 change : amountsOf(AmountRole::change)) {
            if (cash > change) {
                double &proof = paid[cash - change];
                proof = std::max(proof, change > 0 ? cashProof : exactCashProof);
            }
        }
    }
    return paid;
}

// What the table of taxes comes to, and what that is rounded to.
QSet<qint64> ReceiptSums::taxedTotals() const {
    QSet<qint64> totals;
    for (const qint64 total : amountsOf(AmountRole::taxed)) {
        const QList<qint64> results = rounded(total);
        totals.unite(QSet<qint64>(results.cbegin(), results.cend()));
        totals.insert(total);
    }
    return totals;
}

// Above the items stand addresses and numbers that may look like prices, so the sum may begin anywhere.
QSet<qint64> ReceiptSums::sumsOfItems(const QList<LabelledAmount> &amounts) const {
    QSet<qint64> sums;
    qint64 sum = 0;
    for (const qint64 price : itemPrices(amounts)) {
        sum += price;
        const QList<qint64> results = rounded(sum);
        sums.unite(QSet<qint64>(results.cbegin(), results.cend()));
        sums.insert(sum);
    }
    return sums;
}

// Cash pays the rounded total, which not every till prints.
double ReceiptSums::paymentSupport(qint64 thousandths) const {
    double support = payments_.value(thousandths);
    for (const qint64 result : rounded(thousandths)) {
        support = std::max(support, payments_.value(result));
    }
    return support;
}

// "Total 12.39", further down "Total 12.40": rounded to what coins can pay, whether the difference is read
// or not.
bool ReceiptSums::isRoundedFromAbove(qint64 thousandths) const {
    const QList<qint64> totals = amountsOf(AmountRole::total);
    const qsizetype own = totals.indexOf(thousandths);
    if (own <= 0 || thousandths % smallestCoin != 0) {
        return false;
    }
    const qint64 before = totals[own - 1];
    return before % smallestCoin != 0 && std::abs(thousandths - before) < smallestCoin;
}

// "Total 441.80, rounding 0.20, total 442.00": what is rounded is labelled like what it is rounded to.
double ReceiptSums::roundingSupport(qint64 thousandths) const {
    const double support = isRoundedFromAbove(thousandths) ? roundingProof : 0;
    if (!printed_.contains(thousandths) || !isRoundedResult(thousandths)) {
        return support;
    }
    return std::max(support, printedTotals_.contains(thousandths) ? labelledRoundingProof : roundingProof);
}

// "Total 900.00, deposit paid 300.00, balance due 600.00".
bool ReceiptSums::isRestOfTotal(qint64 thousandths) const {
    const QList<qint64> totals = amountsOf(AmountRole::total) + amountsOf(AmountRole::finalTotal);
    for (const qint64 before : amountsOf(AmountRole::paidBefore)) {
        if (before > 0 && totals.contains(thousandths + before)) {
            return true;
        }
    }
    return false;
}

bool ReceiptSums::isRoundedResult(qint64 thousandths) const {
    for (const AmountRole role : {AmountRole::total, AmountRole::finalTotal, AmountRole::subtotal}) {
        for (const qint64 total : amountsOf(role)) {
            if (roundness(thousandths) > roundness(total) && rounded(total).contains(thousandths)) {
                return true;
            }
        }
    }
    return false;
}

QSet<qint64> ReceiptSums::totals() const {
    const QList<qint64> paid = payments_.keys();
    return sums_ + taxed_ + QSet<qint64>(paid.cbegin(), paid.cend());
}

double ReceiptSums::supportFor(qint64 thousandths) const {
    double support = paymentSupport(thousandths) + roundingSupport(thousandths);
    if (sums_.contains(thousandths)) {
        support += sumProof;
    }
    if (isRestOfTotal(thousandths)) {
        support += restProof;
    }
    if (taxed_.contains(thousandths)) {
        support += taxTableProof;
    }
    if (amountsOf(AmountRole::card).contains(thousandths)) {
        support += cardProof;
    }
    if (items_.contains(thousandths)) {
        support += itemProof;
    }
    return support;
}

} // namespace fennick::engine
