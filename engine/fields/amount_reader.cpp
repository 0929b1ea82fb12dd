#include "engine/fields/amount_reader.h"

#include <QMap>

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

FoundAmount inUnits(qint64 thousandths, bool isCertain = false) {
    return {.amount = static_cast<double>(thousandths) / 1000, .isCertain = isCertain};
}

QMap<qint64, double> meanScores(const QList<AmountScores> &readings) {
    QMap<qint64, double> scores;
    for (const AmountScores &reading : readings) {
        for (auto candidate = reading.candidates.cbegin(); candidate != reading.candidates.cend();
             ++candidate) {
            scores[candidate.key()] += candidate.value() / static_cast<double>(readings.size());
        }
    }
    return scores;
}

std::optional<FoundAmount> bestOf(const QMap<qint64, double> &scores) {
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
    const bool isUnrivalled = bestScore >= leastUnrivalledScore && bestScore >= unrivalledLead * second;
    const bool isAhead = bestScore >= leastScore && bestScore >= leastLead * second;
    if (!isUnrivalled && !isAhead) {
        return std::nullopt;
    }
    return inUnits(best, bestScore >= certainAmountScore && bestScore - second >= certainAmountLead);
}

} // namespace

std::optional<FoundAmount> readAmount(const QList<AmountScores> &readings) {
    const QMap<qint64, double> scores = meanScores(readings);
    if (!scores.isEmpty()) {
        return bestOf(scores);
    }
    if (readings.isEmpty() || readings.first().largestWithCurrency == 0) {
        return std::nullopt;
    }
    return inUnits(readings.first().largestWithCurrency);
}

} // namespace fennick::engine
