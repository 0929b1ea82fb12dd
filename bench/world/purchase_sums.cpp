#include "purchase_sums.h"

#include <algorithm>
#include <cmath>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// "GST 5, PST 7": one after the other on the same sum.
void addTaxes(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const int64_t base = purchase.subtotal + purchase.service;
    purchase.total = base;
    for (const QString &tax : random.oneOf(customs.all(u"added"_s)).split(u',', Qt::SkipEmptyParts)) {
        TaxAmount amount{.name = tax.trimmed().section(u' ', 0, -2),
                         .rate = tax.section(u' ', -1).toDouble(),
                         .net = base};
        amount.tax = std::lround(static_cast<double>(base) * amount.rate / 100);
        purchase.total += amount.tax;
        purchase.addedTaxes.append(amount);
    }
}

void splitIncludedTaxes(Purchase &purchase) {
    for (qsizetype rate = 0; rate < purchase.rates.size(); ++rate) {
        int64_t gross = rate == 0 ? purchase.service : 0;
        for (const PurchaseLine &line : purchase.lines) {
            gross += line.rate == rate ? line.amount : 0;
        }
        if (gross != 0) {
            const double percent = purchase.rates[rate];
            const auto net =
                static_cast<int64_t>(std::lround(static_cast<double>(gross) / (1 + percent / 100)));
            purchase.includedTaxes.append({.rate = percent, .net = net, .tax = gross - net});
        }
    }
}

int64_t sumOf(const QList<PurchaseLine> &lines) {
    int64_t sum = 0;
    for (const PurchaseLine &line : lines) {
        sum += line.amount;
    }
    return sum;
}

bool isServed(const Purchase &purchase) {
    return purchase.trade == u"restaurant" || purchase.trade == u"cafe";
}

void addService(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const double rate = customs.number(u"service rate"_s, 0);
    if (rate > 0 && isServed(purchase) && random.chance(0.6)) {
        purchase.service = std::lround(static_cast<double>(purchase.subtotal) * rate / 100);
    }
}

void addTip(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const double habit = customs.has(u"tips"_s) ? 0.35 : 0.06;
    if (customs.has(u"tip"_s) && (isServed(purchase) || purchase.trade == u"taxi") && random.chance(habit)) {
        const auto unit = static_cast<int64_t>(std::max(customs.number(u"price step"_s, 1), 1.0)) * 10;
        purchase.tip = std::max<int64_t>(unit, purchase.total * random.between(8, 20) / 100 / unit * unit);
    }
}

void payInCash(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    const auto coin = static_cast<int64_t>(customs.number(u"cash rounding"_s, 0));
    if (coin > 0 && customs.has(u"rounding"_s)) {
        const int64_t rounded = (purchase.total + coin / 2) / coin * coin;
        purchase.rounding = rounded - purchase.total;
        purchase.due = rounded;
    }
    const auto note = static_cast<int64_t>(
        std::lround(5 * customs.number(u"price factor"_s, 1) * std::pow(10, purchase.digits)));
    const auto magnitude =
        static_cast<int64_t>(std::pow(10, std::floor(std::log10(static_cast<double>(note)))));
    const int64_t least = std::max<int64_t>(coin, magnitude * (random.chance(0.5) ? 5 : 1));
    purchase.given = random.chance(0.25) ? purchase.due : (purchase.due + least - 1) / least * least;
}

} // namespace

void addUp(Purchase &purchase, const Customs &customs, SeededRandom &random) {
    purchase.subtotal = sumOf(purchase.lines);
    addService(purchase, customs, random);
    addTaxes(purchase, customs, random);
    splitIncludedTaxes(purchase);
    addTip(purchase, customs, random);
    purchase.due = purchase.total + purchase.tip;
    purchase.isCash = purchase.tip == 0 && random.chance(0.4);
    if (purchase.isCash) {
        payInCash(purchase, customs, random);
    }
}

void turnAround(Purchase &purchase) {
    purchase.isRefund = true;
    for (PurchaseLine &line : purchase.lines) {
        line.amount = -line.amount;
    }
    for (QList<TaxAmount> *taxes : {&purchase.includedTaxes, &purchase.addedTaxes}) {
        for (TaxAmount &tax : *taxes) {
            tax.net = -tax.net;
            tax.tax = -tax.tax;
        }
    }
    purchase.subtotal = -purchase.subtotal;
    purchase.total = -purchase.total;
    purchase.rounding = -purchase.rounding;
    purchase.due = -purchase.due;
}

} // namespace fennick
