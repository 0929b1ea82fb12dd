#include "answer_comparison.h"

#include "engine/fields/edit_distance.h"
#include "engine/fields/word_search.h"

#include <cmath>

namespace fennick {

namespace {

constexpr double leastSimilarity = 0.8;
constexpr double halfACent = 0.005;

Verdict verdict(bool isThere, bool isRight) {
    if (!isThere) {
        return Verdict::Absent;
    }
    return isRight ? Verdict::Right : Verdict::Wrong;
}

} // namespace

Verdict dateVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(fields.date.has_value(), fields.date == truth.date);
}

Verdict totalVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(fields.amount.has_value(),
                   fields.amount && std::abs(*fields.amount - truth.total) < halfACent);
}

Verdict merchantVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(fields.location.has_value(),
                   fields.location &&
                       merchantSimilarity(*fields.location, truth.merchant) >= leastSimilarity);
}

double merchantSimilarity(const QString &left, const QString &right) {
    return engine::similarity(engine::wordsOf(left).trimmed(), engine::wordsOf(right).trimmed());
}

} // namespace fennick
