#include "engine/fields/tax_table.h"

#include "engine/fields/amount_roles.h"
#include "engine/fields/number_reader.h"
#include "engine/fields/price_repair.h"
#include "engine/knowledge/words.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <optional>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr double lowestRate = 1;
constexpr double highestRate = 30; // per cent; Hungary's 27 is the highest in use
// Below this any two prices fit one rate or another.
constexpr qint64 leastTax = 10;
// Rates of many countries, for rows whose own was not read; with a tax this large two wrong prices rarely fit
// any of them.
const QList<double> usualRates = {5, 6, 7, 8, 10, 19, 20, 21, 22, 25};
constexpr qint64 leastUnratedTax = 60;
// Taxes of several items are rounded one by one.
constexpr double roundingError = 1.01;
// Rows of goods without tax stand right beside those with.
constexpr qsizetype rowsBetween = 2;

struct TaxRow {
    qsizetype line = 0;
    qint64 net = 0;
    qint64 tax = 0;
};

QList<double> rates(const QString &text, const QRegularExpression &pattern) {
    QList<double> found;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const double rate = matches.next().captured(1).replace(u',', u'.').toDouble();
        if (rate >= lowestRate && rate <= highestRate && !found.contains(rate)) {
            found.append(rate);
        }
    }
    return found;
}

// The rates that are printed as such anywhere.
QList<double> percentages(const Reading &reading) {
    static const QRegularExpression percentage(uR"((?<![\d.,])(\d{1,2}(?:[.,]\d{1,2})?)\s?%)"_s);
    QList<double> found;
    for (const TextLine &line : reading) {
        found += rates(line.text, percentage);
    }
    return found;
}

bool isTaxOn(qint64 net, qint64 tax, double rate) {
    return std::abs(static_cast<double>(net) * rate / 100 - static_cast<double>(tax)) < roundingError;
}

// The two of `prices` of which one is the tax on the other at one of `rates`, and no less than `least`.
std::optional<TaxRow> taxRow(const QList<qint64> &prices, const QList<double> &rates, qint64 least) {
    for (qsizetype first = 0; first < prices.size(); ++first) {
        for (qsizetype second = first + 1; second < prices.size(); ++second) {
            const qint64 net = std::max(prices[first], prices[second]);
            const qint64 tax = std::min(prices[first], prices[second]);
            const bool fits = tax >= least && std::ranges::any_of(rates, [&](double rate) {
                                  return isTaxOn(net, tax, rate);
                              });
            if (fits) {
                return TaxRow{.net = net, .tax = tax};
            }
        }
    }
    return std::nullopt;
}

// "Tax code  %  Amount  GST": above such a table stand the things bought, "10 x  1.50  15.00", among which
// a price and its tenth are a quantity, not a tax.
bool headsTheTable(const QString &line) {
    static const QStringList taxes = {u"tax"_s, u"gst"_s, u"vat"_s, u"sst"_s,  u"mwst"_s,
                                      u"ust"_s, u"tva"_s, u"iva"_s, u"moms"_s, u"btw"_s};
    static const QStringList columns = {u"code"_s,    u"amount"_s,  u"amt"_s,     u"net"_s,    u"rate"_s,
                                        u"summary"_s, u"taxable"_s, u"netto"_s,   u"brutto"_s, u"satz"_s,
                                        u"base"_s,    u"taux"_s,    u"analysis"_s};
    const QString words = wordsOf(line);
    return startsTaxTable(line) || (containsAnyPhrase(words, taxes) && containsAnyPhrase(words, columns));
}

QList<qint64> pricesOf(const QString &text) {
    QList<qint64> prices;
    const QList<PrintedNumber> numbers = printedNumbers(text);
    for (const PrintedNumber &number : numbers) {
        if (number.hasDecimals) {
            prices.append(std::llround(number.value * 100));
        }
    }
    return prices;
}

// "10 % discount  45.00  4.50" has the same shape.
bool isReduction(const QString &text) {
    const AmountRole role = amountRole(text);
    return role == AmountRole::Discount || role == AmountRole::Charge;
}

// "SR  6.00  50.00  3.00": one of the numbers is the rate of the others.
std::optional<TaxRow> rowWithItsRate(const QString &text, const QList<qint64> &prices) {
    static const QRegularExpression standingAlone(uR"((?<![\w.,])(\d{1,2}(?:[.,]\d{1,2})?)(?![\w.,]))"_s);
    for (const double rate : rates(text, standingAlone)) {
        QList<qint64> others = prices;
        others.removeOne(std::llround(rate * 100));
        if (const std::optional<TaxRow> row = taxRow(others, {rate}, leastTax)) {
            return row;
        }
    }
    return std::nullopt;
}

QList<TaxRow> taxRows(const Reading &reading) {
    const QList<double> everywhere = percentages(reading);
    bool isInTable = false;
    QList<TaxRow> rows;
    for (qsizetype index = 0; index < reading.size(); ++index) {
        const QString text = repairedPrices(reading[index].text);
        const QList<qint64> prices = pricesOf(text);
        isInTable = isInTable || (prices.isEmpty() && headsTheTable(text));
        if (prices.size() < 2 || isReduction(text)) {
            continue;
        }
        std::optional<TaxRow> row = taxRow(prices, everywhere, leastTax);
        if (!row && isInTable) {
            row = rowWithItsRate(text, prices);
        }
        if (!row && isInTable) {
            row = taxRow(prices, usualRates, leastUnratedTax);
        }
        const bool isUntaxed =
            prices.last() == 0 && !rows.isEmpty() && index - rows.last().line <= rowsBetween;
        if (!row && isUntaxed) {
            row = TaxRow{.net = prices[prices.size() - 2]};
        }
        if (row) {
            row->line = index;
            rows.append(*row);
        }
    }
    return rows;
}

} // namespace

QList<qint64> taxTableTotals(const Reading &reading) {
    QList<qint64> totals;
    qint64 sum = 0;
    const QList<TaxRow> rows = taxRows(reading);
    for (const TaxRow &row : rows) {
        sum += row.net + row.tax;
        for (const qint64 total : {row.net + row.tax, sum}) {
            if (!totals.contains(total)) {
                totals.append(total);
            }
        }
    }
    return totals;
}

} // namespace fennick::engine
