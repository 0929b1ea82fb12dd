#include "engine/fields/amount_scores.h"

#include "engine/fields/receipt_sums.h"

#include <QString>

#include <algorithm>

namespace fennick::engine {

namespace {

// What an amount that only follows from others counts before their support: more when it is printed without a
// label that was understood; a share of the label's score when a total differs from it in a single digit.
constexpr double derivedOnly = 0.3;
constexpr double derivedAndPrinted = 1;
constexpr double misreadShare = 0.5;
constexpr double repeatedAmountShare = 0.3;

double labelScore(AmountRole role) {
    switch (role) {
    case AmountRole::finalTotal:
        return 5;
    case AmountRole::total:
        return 4;
    case AmountRole::card:
        return 2;
    case AmountRole::mention:
        return 1.6;
    case AmountRole::subtotal:
    case AmountRole::tendered:
        return 1.2;
    case AmountRole::rounding: // only some tills' "Rounding" above the coins' step: see below
        return 3;
    default:
        return 0;
    }
}

// "Rounding 31.25" names what was rounded to; as an adjustment it is less than a unit.
constexpr qint64 leastRoundedTotal = 1000;

bool isCandidate(const LabelledAmount &amount) {
    if (amount.thousandths <= 0 || labelScore(amount.role) <= 0) {
        return false;
    }
    return amount.role != AmountRole::rounding || amount.thousandths >= leastRoundedTotal;
}

bool differsInOneDigit(qint64 left, qint64 right) {
    const QString leftDigits = QString::number(left);
    const QString rightDigits = QString::number(right);
    if (leftDigits.size() != rightDigits.size()) {
        return false;
    }
    int differences = 0;
    for (qsizetype index = 0; index < leftDigits.size(); ++index) {
        differences += leftDigits[index] == rightDigits[index] ? 0 : 1;
    }
    return differences == 1;
}

bool isPrinted(qint64 thousandths, const QList<LabelledAmount> &amounts) {
    return std::ranges::any_of(amounts, [thousandths](const LabelledAmount &amount) {
        return amount.thousandths == thousandths && amount.role != AmountRole::taxed;
    });
}

// What each amount's labels count, and how much of that is the best one's.
struct LabelScores {
    QMap<qint64, double> best;
    QMap<qint64, double> all;
};

LabelScores labelScores(const QList<LabelledAmount> &amounts) {
    LabelScores scores;
    for (const LabelledAmount &amount : amounts) {
        if (isCandidate(amount)) {
            const double score = labelScore(amount.role) * amount.weight;
            double &best = scores.best[amount.thousandths];
            best = std::max(best, score);
            scores.all[amount.thousandths] += score;
        }
    }
    return scores;
}

// The best of the labels that stand at amounts which differ from this one in a single digit.
double misreadScore(qint64 thousandths, const QMap<qint64, double> &labelled) {
    double score = 0;
    for (auto other = labelled.cbegin(); other != labelled.cend(); ++other) {
        if (differsInOneDigit(thousandths, other.key())) {
            score = std::max(score, misreadShare * other.value());
        }
    }
    return score;
}

// The score of an amount that no label names but the others come to.
double derivedScore(qint64 thousandths, const QList<LabelledAmount> &amounts, const ReceiptSums &sums,
                    const QMap<qint64, double> &labelled) {
    const double support = sums.supportFor(thousandths);
    if (isPrinted(thousandths, amounts)) {
        return derivedAndPrinted + support;
    }
    if (sums.isRoundedResult(thousandths)) {
        // Had the till rounded the total it would have printed it; this is what was paid in coins.
        return derivedOnly + support / 2;
    }
    return std::max(derivedOnly, misreadScore(thousandths, labelled)) + support;
}

// The best label counts in full, further ones less.
QMap<qint64, double> scoredCandidates(const QList<LabelledAmount> &amounts) {
    const ReceiptSums sums(amounts);
    const LabelScores labelled = labelScores(amounts);
    QMap<qint64, double> scores;
    for (auto candidate = labelled.best.cbegin(); candidate != labelled.best.cend(); ++candidate) {
        const qint64 thousandths = candidate.key();
        const double further = std::min(labelled.all[thousandths] - candidate.value(), candidate.value());
        scores[thousandths] =
            candidate.value() + repeatedAmountShare * further + sums.supportFor(thousandths);
    }
    for (const qint64 thousandths : sums.totals()) {
        if (thousandths > 0 && !scores.contains(thousandths)) {
            scores[thousandths] = derivedScore(thousandths, amounts, sums, labelled.best);
        }
    }
    return scores;
}

qint64 largestUnnamedWithCurrency(const QList<LabelledAmount> &amounts) {
    qint64 largest = 0;
    for (const LabelledAmount &amount : amounts) {
        if (amount.role == AmountRole::unnamed && amount.hasCurrency) {
            largest = std::max(largest, amount.thousandths);
        }
    }
    return largest;
}

} // namespace

AmountScores amountScores(const QList<LabelledAmount> &amounts) {
    return {.candidates = scoredCandidates(amounts),
            .largestWithCurrency = largestUnnamedWithCurrency(amounts)};
}

} // namespace fennick::engine
