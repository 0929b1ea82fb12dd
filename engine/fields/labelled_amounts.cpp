#include "engine/fields/labelled_amounts.h"

#include "engine/fields/number_reader.h"
#include "engine/fields/price_repair.h"
#include "engine/fields/tax_table.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Shares of an amount's weight that remain where its label may mean another one.
constexpr double notTheLast = 0.4;
constexpr double wholeNumber = 0.5;
constexpr double wholeNumberAmongPrices = 0.15;
// "Total 4815" among prices with decimals: the point was too faint.
constexpr double lostDecimalSign = 0.35;
constexpr qint64 leastWithoutSign = 1000; // "100": hundredths as thousandths
constexpr double inTaxTable = 0.25;

qsizetype letterCount(QStringView text) {
    return std::ranges::count_if(text, [](QChar character) { return character.isLetter(); });
}

// Payments and adjustments are printed with a minus or without.
QString withoutMinus(QString line) {
    static const QRegularExpression minus(uR"((?<![\w.,])[\-−–~]\s?(?=\d+[.,]\d{2}(?!\d)))"_s);
    static const QRegularExpression trailing(uR"((\d[.,]\d{2})\s?[\-−–~](?!\S))"_s);
    return line.replace(minus, u" "_s).replace(trailing, u"\\1"_s);
}

// One line's amounts, each with the label before it.
class LineAmounts {
public:
    LineAmounts(const QString &line, QString inheritedLabel, const AmountRoles &roles,
                const PriceStyle &style)
        : label_(std::move(inheritedLabel))
        , roles_(roles) {
        text_ = style.decimals == 2 ? repairedPrices(line) : line;
        const AmountRole role = roles_.role(text_);
        if (role == AmountRole::tendered || role == AmountRole::card || role == AmountRole::rounding ||
            role == AmountRole::discount) {
            text_ = withoutMinus(text_);
        }
        numbers_ = printedNumbers(text_, style);
        const bool hasPrices = std::ranges::any_of(numbers_, &PrintedNumber::hasDecimals);
        numbers_.removeIf([hasPrices](const PrintedNumber &number) {
            return hasPrices && !number.hasDecimals && !number.hasCurrency;
        });
    }

    bool isEmpty() const { return numbers_.isEmpty(); }

    QList<LabelledAmount> amounts() {
        QList<LabelledAmount> found;
        qsizetype end = 0;
        qsizetype firstOfLabel = 0;
        for (const PrintedNumber &number : std::as_const(numbers_)) {
            const QString before = text_.sliced(end, number.start - end);
            // Two letters are a currency or a tax code, not a label of their own.
            if (letterCount(before) > 2) {
                label_ = before;
                firstOfLabel = found.size();
            }
            for (qsizetype index = firstOfLabel; index < found.size(); ++index) {
                found[index].weight = notTheLast;
            }
            found.append({.thousandths = std::llround(number.value * 1000),
                          .role = roles_.role(label_),
                          .hasDecimals = number.hasDecimals,
                          .hasCurrency = number.hasCurrency,
                          .hasGroups = number.hasGroups});
            end = number.start + number.length;
        }
        return found;
    }

private:
    QString text_;
    QString label_;
    const AmountRoles &roles_;
    QList<PrintedNumber> numbers_;
};

} // namespace

QList<LabelledAmount> labelledAmounts(const Reading &reading, const AmountRoles &roles,
                                      const PriceStyle &style, const QList<double> &usualTaxRates) {
    QList<LabelledAmount> all;
    bool isInTaxTable = false;
    QString labelAbove;
    for (qsizetype index = 0; index < reading.size(); ++index) {
        const TextLine &line = reading[index];
        isInTaxTable = isInTaxTable || roles.startsTaxTable(line.text);
        const bool standsAlone = letterCount(line.text) <= 3;
        LineAmounts amounts(line.text, standsAlone ? labelAbove : QString(), roles, style);
        labelAbove = amounts.isEmpty() ? line.text : QString();
        for (LabelledAmount amount : amounts.amounts()) {
            amount.line = index;
            amount.weight *= (isInTaxTable ? inTaxTable : 1.0) * (0.5 + line.confidence / 2);
            all.append(amount);
        }
    }
    const bool hasPrices = std::ranges::any_of(all, &LabelledAmount::hasDecimals);
    for (LabelledAmount &amount : all) {
        if (amount.hasDecimals || amount.hasCurrency) {
            continue;
        }
        const bool isPayable = amount.role == AmountRole::total || amount.role == AmountRole::finalTotal ||
                               amount.role == AmountRole::tendered;
        const bool lacksDecimalSign =
            hasPrices && isPayable && !amount.hasGroups && amount.thousandths >= leastWithoutSign * 100;
        if (lacksDecimalSign) {
            amount.thousandths /= 100;
        }
        amount.weight *=
            lacksDecimalSign ? lostDecimalSign : (hasPrices ? wholeNumberAmongPrices : wholeNumber);
    }
    for (const qint64 total : taxTableTotals(reading, roles, style, usualTaxRates)) {
        all.append(
            {.thousandths = total, .role = AmountRole::taxed, .hasDecimals = true, .line = reading.size()});
    }
    return all;
}

} // namespace fennick::engine
