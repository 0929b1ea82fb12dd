#include "engine/fields/amount_reader.h"

#include "engine/fields/amount_arithmetic.h"

#include <QMap>
#include <QString>

#include <algorithm>

namespace fennick::engine {

namespace {

// Found by trying on scans: below the first more candidates were wrong than right. A lower one will do where
// nothing else comes near: then most looks at a faint page showed nothing, not something else.
constexpr double leastScore = 1.5;
constexpr double leastUnrivalledScore = 1;
constexpr double unrivalledLead = 2;
// How far the best must be ahead: two totals that are nearly as good are the same one, read in two ways.
constexpr double leastLead = 1.06;
constexpr double certainAmountScore = 7;
constexpr double certainAmountLead = 4;
// What an amount that only follows from others counts before their support: more when it is printed without a
// label that was understood; a share of the label's score when a total differs from it in a single digit.
constexpr double derivedOnly = 0.3;
constexpr double derivedAndPrinted = 1;
constexpr double misreadShare = 0.5;
constexpr double repeatedAmountShare = 0.3;

double labelScore(AmountRole role) {
    switch (role) {
    case AmountRole::FinalTotal:
        return 5;
    case AmountRole::Total:
        return 4;
    case AmountRole::Card:
        return 2;
    case AmountRole::Mention:
        return 1.6;
    case AmountRole::SubTotal:
    case AmountRole::Tendered:
        return 1.2;
    case AmountRole::Rounding: // only some tills' "Rounding" above the coins' step: see below
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
    return amount.role != AmountRole::Rounding || amount.thousandths >= leastRoundedTotal;
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
        return amount.thousandths == thousandths && amount.role != AmountRole::Taxed;
    });
}

// The score of an amount that no label names but the others come to.
double derivedScore(qint64 thousandths, const QList<LabelledAmount> &amounts,
                    const QMap<qint64, double> &labelled) {
    const double support = arithmeticSupport(thousandths, amounts);
    if (isPrinted(thousandths, amounts)) {
        return derivedAndPrinted + support;
    }
    if (isRoundedResult(thousandths, amounts)) {
        // Had the till rounded the total it would have printed it; this is what was paid in coins.
        return derivedOnly + support / 2;
    }
    double score = derivedOnly;
    for (auto other = labelled.cbegin(); other != labelled.cend(); ++other) {
        if (differsInOneDigit(thousandths, other.key())) {
            score = std::max(score, misreadShare * other.value());
        }
    }
    return score + support;
}

// A reading's candidates in thousandths, with what it says for each. The best label counts in full, further
// ones less.
QMap<qint64, double> scoredCandidates(const QList<LabelledAmount> &amounts) {
    QMap<qint64, double> best;
    QMap<qint64, double> sum;
    for (const LabelledAmount &amount : amounts) {
        if (!isCandidate(amount)) {
            continue;
        }
        const double score = labelScore(amount.role) * amount.weight;
        best[amount.thousandths] = std::max(best.value(amount.thousandths), score);
        sum[amount.thousandths] += score;
    }
    QMap<qint64, double> scores;
    for (auto candidate = best.cbegin(); candidate != best.cend(); ++candidate) {
        const double further = std::min(sum[candidate.key()] - candidate.value(), candidate.value());
        scores[candidate.key()] =
            candidate.value() + repeatedAmountShare * further + arithmeticSupport(candidate.key(), amounts);
    }
    for (const qint64 thousandths : derivedTotals(amounts)) {
        if (thousandths > 0 && !scores.contains(thousandths)) {
            scores[thousandths] = derivedScore(thousandths, amounts, best);
        }
    }
    return scores;
}

std::optional<FoundAmount> largestWithCurrency(const QList<LabelledAmount> &amounts) {
    qint64 largest = 0;
    for (const LabelledAmount &amount : amounts) {
        const bool isUnnamed = amount.role == AmountRole::Unnamed;
        if (isUnnamed && amount.hasCurrency) {
            largest = std::max(largest, amount.thousandths);
        }
    }
    if (largest == 0) {
        return std::nullopt;
    }
    return FoundAmount{.amount = static_cast<double>(largest) / 1000};
}

} // namespace

std::optional<FoundAmount> readAmount(const QList<QList<LabelledAmount>> &readings) {
    QMap<qint64, double> scores;
    for (const QList<LabelledAmount> &amounts : readings) {
        const QMap<qint64, double> own = scoredCandidates(amounts);
        for (auto candidate = own.cbegin(); candidate != own.cend(); ++candidate) {
            scores[candidate.key()] += candidate.value() / static_cast<double>(readings.size());
        }
    }
    qint64 best = 0;
    double bestScore = 0;
    double second = 0;
    for (auto candidate = scores.cbegin(); candidate != scores.cend(); ++candidate) {
        if (candidate.value() > bestScore) {
            second = bestScore;
            best = candidate.key();
            bestScore = candidate.value();
        } else {
            second = std::max(second, candidate.value());
        }
    }
    if (scores.isEmpty()) {
        return readings.isEmpty() ? std::nullopt : largestWithCurrency(readings.first());
    }
    const bool isUnrivalled = bestScore >= leastUnrivalledScore && bestScore >= unrivalledLead * second;
    const bool isAhead = bestScore >= leastScore && bestScore >= leastLead * second;
    if (!isUnrivalled && !isAhead) {
        return std::nullopt;
    }
    return FoundAmount{.amount = static_cast<double>(best) / 1000,
                       .isCertain =
                           bestScore >= certainAmountScore && bestScore - second >= certainAmountLead};
}

} // namespace fennick::engine
