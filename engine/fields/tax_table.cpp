#include "engine/fields/tax_table.h"

#include "engine/fields/number_reader.h"
#include "engine/fields/price_repair.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr double lowestRate = 1;
constexpr double highestRate = 30; // per cent; Hungary's 27 is the highest in use
// Below this any two prices fit one rate or another.
constexpr qint64 leastTax = 100; // thousandths
// For rows whose rate was not read: with a tax this large two wrong prices rarely fit one of the country's.
constexpr qint64 leastUnratedTax = 600;
// Taxes of several items are rounded one by one.
constexpr double roundingError = 10.1;
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

QList<qint64> pricesOf(const QString &text, const PriceStyle &style) {
    QList<qint64> prices;
    const QList<PrintedNumber> numbers = printedNumbers(text, style);
    for (const PrintedNumber &number : numbers) {
        if (number.hasDecimals) {
            prices.append(std::llround(number.value * 1000));
        }
    }
    return prices;
}

// "10 % discount  45.00  4.50" has the same shape.
bool isReduction(const QString &text, const AmountRoles &roles) {
    const AmountRole role = roles.role(text);
    return role == AmountRole::discount || role == AmountRole::charge;
}

// "SR  6.00  50.00  3.00": one of the numbers is the rate of the others.
std::optional<TaxRow> rowWithItsRate(const QString &text, const QList<qint64> &prices) {
    static const QRegularExpression standingAlone(uR"((?<![\w.,])(\d{1,2}(?:[.,]\d{1,2})?)(?![\w.,]))"_s);
    for (const double rate : rates(text, standingAlone)) {
        QList<qint64> others = prices;
        others.removeOne(std::llround(rate * 1000));
        if (const std::optional<TaxRow> row = taxRow(others, {rate}, leastTax)) {
            return row;
        }
    }
    return std::nullopt;
}

QList<TaxRow> taxRows(const Reading &reading, const AmountRoles &roles, const PriceStyle &style,
                      const QList<double> &usualRates) {
    const QList<double> everywhere = percentages(reading);
    bool isInTable = false;
    QList<TaxRow> rows;
    for (qsizetype index = 0; index < reading.size(); ++index) {
        const QString &line = reading[index].text;
        const QString text = style.decimals == 2 ? repairedPrices(line) : line;
        const QList<qint64> prices = pricesOf(text, style);
        // Above such a heading stand the things bought, "10 x  1.50  15.00", among which a price and its
        // tenth are a quantity, not a tax.
        isInTable = isInTable || (prices.isEmpty() && roles.namesTaxColumns(text));
        if (prices.size() < 2 || isReduction(text, roles)) {
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

QList<qint64> taxTableTotals(const Reading &reading, const AmountRoles &roles, const PriceStyle &style,
                             const QList<double> &usualRates) {
    QList<qint64> totals;
    qint64 sum = 0;
    const QList<TaxRow> rows = taxRows(reading, roles, style, usualRates);
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
