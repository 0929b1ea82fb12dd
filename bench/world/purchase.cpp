#include "purchase.h"

#include "purchase_sums.h"

#include <QTimeZone>

#include <algorithm>
#include <array>
#include <cmath>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

struct Trade {
    const char *name;
    int leastItems;
    int mostItems;
    int opens; // hour
    int closes;
    double reducedRate; // share of the items with the lower rate
    double takesBack;   // share of refunds
};

constexpr std::array trades = {
    Trade{"supermarket", 2, 11, 7, 21, 0.75, 0.04},
    Trade{"cafe", 1, 4, 7, 18, 0.2, 0},
    Trade{"restaurant", 2, 7, 11, 22, 0.15, 0},
    Trade{"bakery", 1, 4, 6, 18, 0.9, 0},
    Trade{"pharmacy", 1, 4, 8, 19, 0.5, 0.06},
    Trade{"fuel", 1, 1, 5, 23, 0, 0},
    Trade{"taxi", 1, 2, 0, 23, 0.8, 0},
    Trade{"rail", 1, 1, 5, 22, 0.8, 0},
    Trade{"hotel", 1, 3, 6, 12, 0.9, 0},
    Trade{"cinema", 1, 3, 14, 22, 0.3, 0},
    Trade{"bookshop", 1, 4, 9, 19, 0.8, 0.08},
    Trade{"hardware", 1, 5, 7, 19, 0, 0.1},
};

const Trade &tradeNamed(const QString &name) {
    return *std::ranges::find_if(trades,
                                 [&name](const Trade &trade) { return name == QLatin1String(trade.name); });
}

QStringList tradesIn(const Customs &customs) {
    QStringList names;
    for (const Trade &trade : trades) {
        const QString name = QLatin1String(trade.name);
        if (customs.has(u"items "_s + name) && customs.has(u"names "_s + name)) {
            names.append(name);
        }
    }
    return names;
}

QDateTime momentAt(const Trade &trade, const Customs &customs, SeededRandom &random) {
    const QDate from = QDate::fromString(customs.first(u"from"_s), Qt::ISODate);
    const QDate until = QDate::fromString(customs.first(u"until"_s), Qt::ISODate);
    const QDate first = from.isValid() ? from : QDate(2018, 1, 1);
    const QDate last = until.isValid() ? until : QDate(2026, 6, 30);
    const QDate date = first.addDays(random.below(static_cast<int>(first.daysTo(last))));
    return {date, QTime(random.between(trade.opens, trade.closes), random.below(60), random.below(60)),
            QTimeZone::utc()};
}

double unitsOf(int digits) {
    return std::pow(10, digits);
}

// Prices end as they do in shops: on 9, on 5, on 0, and some on anything.
int64_t priceNear(double price, const Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const auto exact = static_cast<int64_t>(std::lround(price * unitsOf(purchase.digits)));
    const auto step = static_cast<int64_t>(customs.number(u"price step"_s, 1));
    if (step > 1) {
        return std::max(step, (exact + step / 2) / step * step);
    }
    const int64_t tens = std::max<int64_t>(1, (exact + 5) / 10) * 10;
    switch (random.below(5)) {
    case 0:
        return std::max<int64_t>(1, exact);
    case 1:
        return tens;
    case 2:
        return tens - 5;
    default:
        return tens - 1;
    }
}

int rateFor(const Trade &trade, const Purchase &purchase, SeededRandom &random) {
    return purchase.rates.size() > 1 && random.chance(trade.reducedRate) ? 1 : 0;
}

void addFuel(Purchase &purchase, PurchaseLine line, double price, const Customs &customs,
             SeededRandom &random) {
    const double litresInUnit = customs.first(u"fuel unit"_s) == u"gal" ? 3.785 : 1;
    const double places = purchase.digits == 0 ? 1 : 1000;
    line.quantity = std::round(random.between(12.0, 58.0) / litresInUnit * 100) / 100;
    line.unitPrice = std::round(price * litresInUnit * places) / places;
    line.amount = std::lround(line.quantity * line.unitPrice * unitsOf(purchase.digits));
    purchase.lines.append(line);
}

int quantityFor(const QString &trade, SeededRandom &random) {
    if (trade == u"hotel") {
        return random.between(1, 4);
    }
    return trade == u"taxi" || trade == u"rail" || random.chance(0.72) ? 1 : random.between(2, 4);
}

void addItem(Purchase &purchase, const QString &item, const Customs &customs, SeededRandom &random) {
    const Trade &trade = tradeNamed(purchase.trade);
    const double base = item.section(u'=', -1).toDouble() * customs.number(u"price factor"_s, 1);
    const double price = base * random.between(0.85, 1.25);
    PurchaseLine line{.name = item.section(u'=', 0, -2).trimmed(), .rate = rateFor(trade, purchase, random)};
    if (purchase.trade == u"fuel") {
        addFuel(purchase, line, price, customs, random);
        return;
    }
    const int64_t single = priceNear(price, purchase, customs, random);
    line.quantity = quantityFor(purchase.trade, random);
    line.unitPrice = static_cast<double>(single) / unitsOf(purchase.digits);
    line.amount = single * static_cast<int64_t>(line.quantity);
    purchase.lines.append(line);
}

void addItems(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const Trade &trade = tradeNamed(purchase.trade);
    QStringList items = customs.all(u"items "_s + purchase.trade);
    const int count = random.between(trade.leastItems, trade.mostItems);
    const bool isInOrder = purchase.trade == u"hotel" || purchase.trade == u"taxi";
    for (int index = 0; index < count && !items.isEmpty(); ++index) {
        addItem(purchase, items.takeAt(isInOrder ? 0 : random.below(static_cast<int>(items.size()))), customs,
                random);
    }
}

void addExtras(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const bool isShop = purchase.trade == u"supermarket" || purchase.trade == u"hardware";
    const auto step = static_cast<int64_t>(customs.number(u"price step"_s, 1));
    if (isShop && customs.has(u"discount"_s) && random.chance(0.3)) {
        PurchaseLine discount = purchase.lines.last();
        const int64_t size = std::max<int64_t>(step, discount.amount / random.between(4, 10) / step * step);
        discount.name = random.oneOf(customs.all(u"discount"_s));
        discount.quantity = 1;
        discount.amount = -size;
        discount.isExtra = true;
        purchase.lines.append(discount);
    }
    if (purchase.trade == u"supermarket" && customs.has(u"deposit"_s) && random.chance(0.4)) {
        const double price = 0.25 * customs.number(u"price factor"_s, 1) * random.between(1, 3);
        purchase.lines.append({.name = random.oneOf(customs.all(u"deposit"_s)),
                               .amount = std::max<int64_t>(step, priceNear(price, purchase, customs, random)),
                               .isExtra = true});
    }
}

} // namespace

Purchase madePurchase(const Customs &customs, SeededRandom &random) {
    Purchase purchase;
    purchase.trade = random.oneOf(tradesIn(customs));
    const Trade &trade = tradeNamed(purchase.trade);
    purchase.moment = momentAt(trade, customs, random);
    purchase.digits = static_cast<int>(customs.number(u"decimals"_s, 2));
    for (const QString &rate : customs.all(u"rates"_s)) {
        purchase.rates.append(rate.toDouble());
    }
    addItems(purchase, customs, random);
    addExtras(purchase, customs, random);
    addUp(purchase, customs, random);
    if (customs.has(u"refund"_s) && random.chance(trade.takesBack)) {
        turnAround(purchase);
    }
    return purchase;
}

QStringList categoriesOf(const Purchase &purchase) {
    static const QHash<QString, QString> categories = {
        {u"supermarket"_s, u"groceries shopping"_s},
        {u"cafe"_s, u"coffee breakfast lunch"_s},
        {u"bakery"_s, u"groceries breakfast coffee lunch"_s},
        {u"pharmacy"_s, u"shopping"_s},
        {u"fuel"_s, u"fuel"_s},
        {u"taxi"_s, u"transport"_s},
        {u"rail"_s, u"transport"_s},
        {u"hotel"_s, u"hotel"_s},
        {u"cinema"_s, u"entertainment"_s},
        {u"bookshop"_s, u"shopping"_s},
        {u"hardware"_s, u"shopping"_s},
    };
    if (purchase.trade == u"restaurant") {
        return purchase.moment.time().hour() < 17 ? QStringList{u"lunch"_s} : QStringList{u"dinner"_s};
    }
    return categories.value(purchase.trade).split(u' ');
}

} // namespace fennick
