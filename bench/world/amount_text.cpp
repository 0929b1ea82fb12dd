#include "amount_text.h"

#include <QRegularExpression>

#include <cmath>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

int64_t powerOfTen(int exponent) {
    return static_cast<int64_t>(std::pow(10, exponent) + 0.5);
}

QString grouped(int64_t whole, const QString &separator) {
    QString digits = QString::number(whole);
    for (qsizetype place = digits.size() - 3; place > 0 && !separator.isEmpty(); place -= 3) {
        digits.insert(place, separator);
    }
    return digits;
}

} // namespace

AmountShape AmountShape::of(const QString &sample) {
    static const QRegularExpression pattern(u"^(\\D*)1(\\D*)234(?:(\\D)(500?|00))?(\\D*)$"_s);
    const QRegularExpressionMatch match = pattern.match(sample);
    return {.before = match.captured(1),
            .group = match.captured(2),
            .point = match.captured(3),
            .decimals = static_cast<int>(match.captured(4).size()),
            .after = match.captured(5)};
}

QString amountText(int64_t amount, int digits, const AmountShape &shape) {
    const int64_t unit = powerOfTen(digits);
    const int64_t size = std::abs(amount);
    QString text = grouped(size / unit, shape.group);
    if (shape.decimals > 0) {
        const QString rest = digits > 0 ? u"%1"_s.arg(size % unit, digits, 10, QLatin1Char('0')) : QString();
        text += shape.point + rest.leftJustified(shape.decimals, u'0');
    }
    return (amount < 0 ? u"-"_s : QString()) + shape.before + text + shape.after;
}

bool isExact(int64_t amount, int digits, const AmountShape &shape) {
    return shape.decimals >= digits || amount % powerOfTen(digits) == 0;
}

} // namespace fennick
