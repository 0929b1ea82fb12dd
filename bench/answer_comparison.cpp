#include "answer_comparison.h"

#include "engine/knowledge/words.h"
#include "text/edit_distance.h"

#include <cmath>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr double leastSimilarity = 0.8;
constexpr double halfACent = 0.005;

Verdict verdict(bool isStated, bool isGiven, bool isRight) {
    if (!isStated) {
        return Verdict::unknown;
    }
    if (!isGiven) {
        return Verdict::absent;
    }
    return isRight ? Verdict::right : Verdict::wrong;
}

QString lettersAndDigits(const QString &text) {
    return engine::wordsOf(text).remove(u' ');
}

bool isSameMerchant(const QString &given, const Truth &truth) {
    if (truth.isPartOfMerchant) {
        return lettersAndDigits(given).contains(lettersAndDigits(truth.merchant));
    }
    return similarity(engine::wordsOf(given).trimmed(), engine::wordsOf(truth.merchant).trimmed()) >=
           leastSimilarity;
}

} // namespace

Verdict dateVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(truth.date.isValid(), fields.date.has_value(), fields.date == truth.date);
}

Verdict totalVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    const bool isRight = fields.amount && truth.total && std::abs(*fields.amount - *truth.total) < halfACent;
    return verdict(truth.total.has_value(), fields.amount.has_value(), isRight);
}

Verdict currencyVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(!truth.currency.isEmpty(), fields.currency.has_value(), fields.currency == truth.currency);
}

Verdict merchantVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(!truth.merchant.isEmpty(), fields.location.has_value(),
                   fields.location && isSameMerchant(*fields.location, truth));
}

// "misc" is what the engine answers when it knows nothing of the category.
Verdict categoryVerdict(const engine::ReceiptFields &fields, const Truth &truth) {
    return verdict(!truth.categories.isEmpty(), fields.category != u"misc"_s,
                   truth.categories.contains(fields.category));
}

} // namespace fennick
