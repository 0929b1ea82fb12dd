#include "engine/fields/refund.h"

#include "engine/fields/number_reader.h"

#include <QRegularExpression>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Directly before the digits or a currency, or directly behind them: a dash with blanks around it leads from
// a label to its amount.
const QRegularExpression &minusBefore() {
    static const QRegularExpression pattern(
        uR"((?<![^\s(:*])[\-−–](?=(?:(?:\p{Sc}|\p{L}{1,3})\s?)?\d{1,3}(?:[.,' ]?\d{3})*(?:[.,]\d{2,3})?(?![\d\-/:.,]\d)))"_s);
    return pattern;
}

const QRegularExpression &minusBehind() {
    static const QRegularExpression pattern(uR"((?<=\d[.,]\d{2})[\-−–](?!\S))"_s);
    return pattern;
}

bool isTotal(const QString &line, const AmountRoles &roles) {
    const AmountRole role = roles.role(line);
    return role == AmountRole::total || role == AmountRole::finalTotal;
}

bool hasMinus(const QString &line) {
    return minusBefore().match(line).hasMatch() || minusBehind().match(line).hasMatch();
}

bool hasAmount(const QString &line) {
    return std::ranges::any_of(printedNumbers(line), [](const PrintedNumber &number) {
        return number.value != 0 && (number.hasDecimals || number.hasCurrency);
    });
}

} // namespace

bool isRefund(const Reading &reading, const AmountRoles &roles) {
    bool hasNegativeTotal = false;
    for (const TextLine &line : reading) {
        if (!hasMinus(line.text)) {
            continue;
        }
        hasNegativeTotal = hasNegativeTotal || isTotal(line.text, roles);
    }
    return hasNegativeTotal && std::ranges::none_of(reading, [&roles](const TextLine &line) {
               return !hasMinus(line.text) && hasAmount(line.text) && isTotal(line.text, roles);
           });
}

Reading withoutMinuses(Reading reading) {
    for (TextLine &line : reading) {
        line.text.remove(minusBefore()).remove(minusBehind());
    }
    return reading;
}

} // namespace fennick::engine
