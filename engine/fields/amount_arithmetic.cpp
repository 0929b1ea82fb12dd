#include "engine/fields/amount_arithmetic.h"

#include <algorithm>
#include <cstdlib>

namespace fennick::engine {

namespace {

constexpr double cashProof = 4;
constexpr double exactCashProof = 2;
constexpr double sumProof = 2.5;
constexpr double cardProof = 1.5;
constexpr double roundingProof = 1.5;
constexpr double itemProof = 2;
constexpr double taxTableProof = 2.5;
constexpr double restProof = 4; // more than what the items and taxes say for the whole
// Half of the largest coin step in use (Swiss 5 centimes, Malaysian 5 sen, Swedish 1 krona).
constexpr qint64 largestRounding = 50;
constexpr qint64 smallestCoin = 5;
constexpr double leastWeight = 0.3;

QList<qint64> centsOf(const QList<LabelledAmount> &amounts, AmountRole role) {
    QList<qint64> cents;
    for (const LabelledAmount &amount : amounts) {
        if (amount.role == role && amount.weight >= leastWeight && !cents.contains(amount.cents)) {
            cents.append(amount.cents);
        }
    }
    return cents;
}

// Nothing, or one of the amounts: a tax or a charge may be there or not.
QList<qint64> optional(QList<qint64> cents) {
    cents.append(0);
    return cents;
}

// The roundings, with either sign: that is easily lost.
QList<qint64> roundings(const QList<LabelledAmount> &amounts) {
    QList<qint64> steps;
    for (const qint64 step : centsOf(amounts, AmountRole::Rounding)) {
        if (step > 0 && step <= largestRounding) {
            steps << step << -step;
        }
    }
    return steps;
}

// What `cents` can have been rounded to, which coins can pay.
QList<qint64> rounded(qint64 cents, const QList<LabelledAmount> &amounts) {
    QList<qint64> results;
    for (const qint64 step : roundings(amounts)) {
        if ((cents + step) % smallestCoin == 0) {
            results.append(cents + step);
        }
    }
    return results;
}

// Each subtotal with every choice of one tax, charge and discount, or none of it, rounded if the receipt says
// so; not the bare subtotals.
QList<qint64> sums(const QList<LabelledAmount> &amounts) {
    QList<qint64> additions;
    for (const qint64 tax : optional(centsOf(amounts, AmountRole::Tax))) {
        for (const qint64 charge : optional(centsOf(amounts, AmountRole::Charge))) {
            for (const qint64 discount : optional(centsOf(amounts, AmountRole::Discount))) {
                additions.append(tax + charge - discount);
            }
        }
    }
    QList<qint64> found;
    for (const qint64 base : centsOf(amounts, AmountRole::SubTotal)) {
        for (const qint64 addition : std::as_const(additions)) {
            const QList<qint64> results = rounded(base + addition, amounts);
            if (!results.isEmpty()) {
                found += results;
            } else if (addition != 0) {
                found.append(base + addition);
            }
        }
    }
    return found;
}

struct Payment {
    qint64 cents = 0;
    bool hasChange = false;
};

QList<Payment> payments(const QList<LabelledAmount> &amounts) {
    QList<Payment> paid;
    for (const qint64 cash : centsOf(amounts, AmountRole::Tendered)) {
        for (const qint64 change : centsOf(amounts, AmountRole::Change)) {
            if (cash > change) {
                paid.append({cash - change, change > 0});
            }
        }
    }
    return paid;
}

double paymentSupport(qint64 cents, const QList<LabelledAmount> &amounts) {
    double support = 0;
    for (const Payment &payment : payments(amounts)) {
        // Cash pays the rounded total, which not every till prints.
        if (payment.cents == cents || rounded(cents, amounts).contains(payment.cents)) {
            support = std::max(support, payment.hasChange ? cashProof : exactCashProof);
        }
    }
    return support;
}

// "Total 12.39", further down "Total 12.40": rounded to what coins can pay, whether the difference is read
// or not.
bool isRoundedFromAbove(qint64 cents, const QList<LabelledAmount> &amounts) {
    const QList<qint64> totals = centsOf(amounts, AmountRole::Total);
    const qsizetype own = totals.indexOf(cents);
    if (own <= 0 || cents % smallestCoin != 0) {
        return false;
    }
    const qint64 before = totals[own - 1];
    return before % smallestCoin != 0 && std::abs(cents - before) < smallestCoin;
}

// The last amount of each line without a label above the first total, from the lowest line up.
QList<qint64> itemPrices(const QList<LabelledAmount> &amounts) {
    QList<qint64> prices;
    qsizetype line = -1;
    for (const LabelledAmount &amount : amounts) {
        if (amount.role != AmountRole::Unnamed) {
            break;
        }
        if (amount.line == line) {
            prices.first() = amount.cents;
        } else {
            prices.prepend(amount.cents);
        }
        line = amount.line;
    }
    return prices;
}

// Above the items stand addresses and numbers that may look like prices, so the sum may begin anywhere.
bool isSumOfItems(qint64 cents, const QList<LabelledAmount> &amounts) {
    qint64 sum = 0;
    for (const qint64 price : itemPrices(amounts)) {
        sum += price;
        if (sum == cents || rounded(sum, amounts).contains(cents)) {
            return true;
        }
    }
    return false;
}

// What the table of taxes comes to, and what that is rounded to.
QList<qint64> taxedTotals(const QList<LabelledAmount> &amounts) {
    QList<qint64> totals = centsOf(amounts, AmountRole::Taxed);
    for (const qint64 total : centsOf(amounts, AmountRole::Taxed)) {
        totals += rounded(total, amounts);
    }
    return totals;
}

// "Total 900.00, deposit paid 300.00, balance due 600.00".
bool isRestOfTotal(qint64 cents, const QList<LabelledAmount> &amounts) {
    const QList<qint64> totals =
        centsOf(amounts, AmountRole::Total) + centsOf(amounts, AmountRole::FinalTotal);
    for (const qint64 before : centsOf(amounts, AmountRole::PaidBefore)) {
        if (before > 0 && totals.contains(cents + before)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool isRoundedResult(qint64 cents, const QList<LabelledAmount> &amounts) {
    for (const AmountRole role : {AmountRole::Total, AmountRole::FinalTotal, AmountRole::SubTotal}) {
        const QList<qint64> totals = centsOf(amounts, role);
        if (std::ranges::any_of(totals,
                                [&](qint64 total) { return rounded(total, amounts).contains(cents); })) {
            return true;
        }
    }
    return false;
}

QList<qint64> derivedTotals(const QList<LabelledAmount> &amounts) {
    QList<qint64> totals = sums(amounts) + taxedTotals(amounts);
    for (const Payment &payment : payments(amounts)) {
        if (!totals.contains(payment.cents)) {
            totals.append(payment.cents);
        }
    }
    return totals;
}

double arithmeticSupport(qint64 cents, const QList<LabelledAmount> &amounts) {
    double support = paymentSupport(cents, amounts);
    if (sums(amounts).contains(cents)) {
        support += sumProof;
    }
    if (isRestOfTotal(cents, amounts)) {
        support += restProof;
    }
    if (taxedTotals(amounts).contains(cents)) {
        support += taxTableProof;
    }
    if (centsOf(amounts, AmountRole::Card).contains(cents)) {
        support += cardProof;
    }
    const bool isPrinted =
        std::ranges::any_of(amounts, [cents](const LabelledAmount &amount) { return amount.cents == cents; });
    if ((isPrinted && isRoundedResult(cents, amounts)) || isRoundedFromAbove(cents, amounts)) {
        support += roundingProof;
    }
    if (isSumOfItems(cents, amounts)) {
        support += itemProof;
    }
    return support;
}

} // namespace fennick::engine
