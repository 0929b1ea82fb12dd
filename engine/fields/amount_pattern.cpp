#include "engine/fields/amount_pattern.h"

#include <QString>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fewestDigitsOfWholeAmount = 3;

// Groups of three, or Indian ones of two before the last three.
bool mayBeGroupedBefore(qsizetype remainingDigits) {
    return remainingDigits % 3 == 0 || (remainingDigits >= 3 && remainingDigits % 2 == 1);
}

QString wholePart(const QString &digits) {
    QString pattern;
    for (qsizetype index = 0; index < digits.size(); ++index) {
        if (index > 0 && mayBeGroupedBefore(digits.size() - index)) {
            pattern += uR"([.,'’ \x{a0}\x{202f}]?)"_s;
        }
        pattern += digits[index];
    }
    return pattern;
}

// The decimals with as many of their last noughts as tills print.
QString decimalPart(const QString &decimals) {
    if (decimals.endsWith(u"00")) {
        return uR"([.,]\s?)"_s + decimals[0] + u"0{0,2}"_s;
    }
    if (decimals.endsWith(u'0')) {
        return uR"([.,]\s?)"_s + decimals.first(2) + u"0?"_s;
    }
    return uR"([.,]\s?)"_s + decimals;
}

} // namespace

QRegularExpression amountPattern(qint64 thousandths) {
    // A currency may stand right before an amount, but "A450" is no whole one.
    static const QString notInNumber = uR"((?<!\d)(?<!\d[.,:/'’\-]))"_s;
    static const QString notInWord = uR"((?<!\p{L}))"_s;
    static const QString end = uR"((?!\d|[.,:/'’\-]\d|\s?%))"_s;
    const QString whole = QString::number(thousandths / 1000);
    const QString decimals = QString::number(thousandths % 1000).rightJustified(3, u'0');
    if (decimals != u"000") {
        return QRegularExpression(notInNumber + wholePart(whole) + decimalPart(decimals) + end);
    }
    QString pattern = notInNumber + wholePart(whole) + uR"((?:[.,]\s?0{2,3}|\s?[:.,]\s?[\-–—]{1,2}))"_s + end;
    if (whole.size() >= fewestDigitsOfWholeAmount) {
        pattern += u'|' + notInNumber + notInWord + wholePart(whole) + end;
    }
    return QRegularExpression(pattern);
}

} // namespace fennick::engine
