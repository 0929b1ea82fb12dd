#include "till_style.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// A till that prints whole amounts without decimals does so only if all of them are whole.
bool isExactForAll(const AmountShape &shape, const Purchase &purchase) {
    bool isExactSoFar = true;
    const auto check = [&](int64_t amount) {
        isExactSoFar = isExactSoFar && isExact(amount, purchase.digits, shape);
    };
    for (const PurchaseLine &line : purchase.lines) {
        check(line.amount);
        check(std::lround(line.unitPrice * std::pow(10, purchase.digits)));
    }
    for (const int64_t amount :
         {purchase.subtotal, purchase.service, purchase.total, purchase.due, purchase.given}) {
        check(amount);
    }
    return isExactSoFar;
}

AmountShape exactShape(const QStringList &samples, int digits) {
    for (const QString &sample : samples) {
        if (const AmountShape shape = AmountShape::of(sample); shape.decimals >= digits) {
            return shape;
        }
    }
    return AmountShape::of(u"1234.50"_s);
}

QList<AmountShape> exactShapes(const QStringList &samples, const Purchase &purchase) {
    QList<AmountShape> shapes;
    for (const QString &sample : samples) {
        const AmountShape shape = AmountShape::of(sample);
        if (isExactForAll(shape, purchase)) {
            shapes.append(shape);
        }
    }
    if (shapes.isEmpty()) {
        shapes.append(exactShape(samples, purchase.digits));
    }
    return shapes;
}

AmountShape oneOf(const QList<AmountShape> &shapes, SeededRandom &random) {
    return shapes[random.below(static_cast<int>(shapes.size()))];
}

// One till does not write 1.234 and 1,234.
bool isOfOneTill(const AmountShape &shape, const AmountShape &other) {
    const bool isPointAlike = shape.point.isEmpty() || other.point.isEmpty() || shape.point == other.point;
    const bool isGroupAlike = shape.group.isEmpty() || other.group.isEmpty() || shape.group == other.group;
    const bool isPointNoGroup = (shape.point.isEmpty() || shape.point != other.group) &&
                                (other.point.isEmpty() || other.point != shape.group);
    return isPointAlike && isGroupAlike && isPointNoGroup;
}

AmountShape totalShapeFor(const AmountShape &amount, const QList<AmountShape> &shapes, SeededRandom &random) {
    QList<AmountShape> fitting;
    std::ranges::copy_if(shapes, std::back_inserter(fitting),
                         [&amount](const AmountShape &shape) { return isOfOneTill(shape, amount); });
    return fitting.isEmpty() ? amount : oneOf(fitting, random);
}

} // namespace

TillStyle TillStyle::chosen(const Customs &customs, const Purchase &purchase, SeededRandom &random) {
    TillStyle style;
    constexpr std::array widths = {32, 36, 40, 42, 42, 48};
    style.cutsNames = random.chance(0.5);
    style.columns = widths[static_cast<size_t>(random.below(widths.size()))];
    style.isCapital = random.chance(0.3);
    style.isPlain = random.chance(customs.number(u"plain share"_s, 0.15));
    style.isCentred = random.chance(0.8);
    style.hasRateCodes = customs.has(u"rate codes"_s) && random.chance(0.6);
    style.isMinusBehind = customs.has(u"minus behind"_s) && random.chance(0.5);
    style.numbersItems = random.chance(0.08);
    style.hasBarcodes = random.chance(0.1);
    style.rule = random.oneOf({u"-"_s, u"-"_s, u"="_s, u"*"_s, u"."_s, u""_s, u""_s});
    style.quantity = static_cast<QuantityPlace>(random.below(4));
    style.datePlace = static_cast<DatePlace>(random.below(3));
    style.date = random.oneOf(customs.all(u"date"_s));
    style.time = random.oneOf(customs.all(u"time"_s));
    style.amount = oneOf(exactShapes(customs.all(u"amount"_s), purchase), random);
    style.exactAmount = exactShape(customs.all(u"amount"_s), purchase.digits);
    const QList<AmountShape> totals = exactShapes(customs.all(u"total amount"_s), purchase);
    style.totalAmount = random.chance(0.2) ? style.amount : totalShapeFor(style.amount, totals, random);
    return style;
}

QString TillStyle::signedText(int64_t value, int digits, const AmountShape &shape) const {
    const AmountShape &exact = isExact(value, digits, shape) ? shape : exactAmount;
    return value < 0 && isMinusBehind ? amountText(-value, digits, exact) + u'-'
                                      : amountText(value, digits, exact);
}

} // namespace fennick
