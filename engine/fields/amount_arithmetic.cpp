#include "engine/fields/amount_arithmetic.h"

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

QList<qint64> amountsOf(const QList<LabelledAmount> &amounts, AmountRole role) {
    QList<qint64> thousandths;
    for (const LabelledAmount &amount : amounts) {
        if (amount.role == role && amount.weight >= leastWeight &&
            !thousandths.contains(amount.thousandths)) {
            thousandths.append(amount.thousandths);
        }
    }
    return thousandths;
}

// Nothing, or one of the amounts: a tax or a charge may be there or not.
QList<qint64> optional(QList<qint64> thousandths) {
    thousandths.append(0);
    return thousandths;
}

// The roundings that `total` may have, with either sign: that is easily lost.
QList<qint64> roundings(qint64 total, const QList<LabelledAmount> &amounts) {
    QList<qint64> steps;
    for (const qint64 step : amountsOf(amounts, AmountRole::Rounding)) {
        if (step > 0 && (step <= largestRounding || step * leastShareOfTotal <= total)) {
            steps << step << -step;
        }
    }
    return steps;
}

// What `thousandths` can have been rounded to, which coins can pay.
QList<qint64> rounded(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    QList<qint64> results;
    for (const qint64 step : roundings(thousandths, amounts)) {
        if ((thousandths + step) % smallestCoin == 0) {
            results.append(thousandths + step);
        }
    }
    return results;
}

// Each subtotal with every choice of one tax, charge and discount, or none of it, rounded if the receipt says
// so; not the bare subtotals.
QList<qint64> sums(const QList<LabelledAmount> &amounts) {
    QList<qint64> additions;
    for (const qint64 tax : optional(amountsOf(amounts, AmountRole::Tax))) {
        for (const qint64 charge : optional(amountsOf(amounts, AmountRole::Charge))) {
            for (const qint64 discount : optional(amountsOf(amounts, AmountRole::Discount))) {
                additions.append(tax + charge - discount);
            }
        }
    }
    QList<qint64> found;
    for (const qint64 base : amountsOf(amounts, AmountRole::SubTotal)) {
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
    qint64 thousandths = 0;
    bool hasChange = false;
};

QList<Payment> payments(const QList<LabelledAmount> &amounts) {
    QList<Payment> paid;
    for (const qint64 cash : amountsOf(amounts, AmountRole::Tendered)) {
        for (const qint64 change : amountsOf(amounts, AmountRole::Change)) {
            if (cash > change) {
                paid.append({cash - change, change > 0});
            }
        }
    }
    return paid;
}

double paymentSupport(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    double support = 0;
    for (const Payment &payment : payments(amounts)) {
        // Cash pays the rounded total, which not every till prints.
        if (payment.thousandths == thousandths ||
            rounded(thousandths, amounts).contains(payment.thousandths)) {
            support = std::max(support, payment.hasChange ? cashProof : exactCashProof);
        }
    }
    return support;
}

// "Total 12.39", further down "Total 12.40": rounded to what coins can pay, whether the difference is read
// or not.
bool isRoundedFromAbove(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    const QList<qint64> totals = amountsOf(amounts, AmountRole::Total);
    const qsizetype own = totals.indexOf(thousandths);
    if (own <= 0 || thousandths % smallestCoin != 0) {
        return false;
    }
    const qint64 before = totals[own - 1];
    return before % smallestCoin != 0 && std::abs(thousandths - before) < smallestCoin;
}

// How many of the steps that coins and notes make an amount is a multiple of: rounding leads to more of them.
int roundness(qint64 thousandths) {
    constexpr std::array<qint64, 7> steps = {50, 100, 500, 1000, 5000, 10'000, 100'000};
    return static_cast<int>(
        std::ranges::count_if(steps, [thousandths](qint64 step) { return thousandths % step == 0; }));
}

bool isTotal(const LabelledAmount &amount) {
    return amount.role == AmountRole::Total || amount.role == AmountRole::FinalTotal;
}

// "Total 441.80, rounding 0.20, total 442.00": what is rounded is labelled like what it is rounded to.
double roundingSupport(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    double support = isRoundedFromAbove(thousandths, amounts) ? roundingProof : 0;
    if (!isRoundedResult(thousandths, amounts)) {
        return support;
    }
    for (const LabelledAmount &amount : amounts) {
        if (amount.thousandths == thousandths) {
            support = std::max(support, isTotal(amount) ? labelledRoundingProof : roundingProof);
        }
    }
    return support;
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
            prices.first() = amount.thousandths;
        } else {
            prices.prepend(amount.thousandths);
        }
        line = amount.line;
    }
    return prices;
}

// Above the items stand addresses and numbers that may look like prices, so the sum may begin anywhere.
bool isSumOfItems(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    qint64 sum = 0;
    for (const qint64 price : itemPrices(amounts)) {
        sum += price;
        if (sum == thousandths || rounded(sum, amounts).contains(thousandths)) {
            return true;
        }
    }
    return false;
}

// What the table of taxes comes to, and what that is rounded to.
QList<qint64> taxedTotals(const QList<LabelledAmount> &amounts) {
    QList<qint64> totals = amountsOf(amounts, AmountRole::Taxed);
    for (const qint64 total : amountsOf(amounts, AmountRole::Taxed)) {
        totals += rounded(total, amounts);
    }
    return totals;
}

// "Total 900.00, deposit paid 300.00, balance due 600.00".
bool isRestOfTotal(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    const QList<qint64> totals =
        amountsOf(amounts, AmountRole::Total) + amountsOf(amounts, AmountRole::FinalTotal);
    for (const qint64 before : amountsOf(amounts, AmountRole::PaidBefore)) {
        if (before > 0 && totals.contains(thousandths + before)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool isRoundedResult(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    for (const AmountRole role : {AmountRole::Total, AmountRole::FinalTotal, AmountRole::SubTotal}) {
        for (const qint64 total : amountsOf(amounts, role)) {
            if (roundness(thousandths) > roundness(total) && rounded(total, amounts).contains(thousandths)) {
                return true;
            }
        }
    }
    return false;
}

QList<qint64> derivedTotals(const QList<LabelledAmount> &amounts) {
    QList<qint64> totals = sums(amounts) + taxedTotals(amounts);
    for (const Payment &payment : payments(amounts)) {
        if (!totals.contains(payment.thousandths)) {
            totals.append(payment.thousandths);
        }
    }
    return totals;
}

double arithmeticSupport(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    double support = paymentSupport(thousandths, amounts);
    if (sums(amounts).contains(thousandths)) {
        support += sumProof;
    }
    if (isRestOfTotal(thousandths, amounts)) {
        support += restProof;
    }
    if (taxedTotals(amounts).contains(thousandths)) {
        support += taxTableProof;
    }
    if (amountsOf(amounts, AmountRole::Card).contains(thousandths)) {
        support += cardProof;
    }
    support += roundingSupport(thousandths, amounts);
    if (isSumOfItems(thousandths, amounts)) {
        support += itemProof;
    }
    return support;
}

} // namespace fennick::engine
