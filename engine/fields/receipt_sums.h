#pragma once

#include "engine/fields/labelled_amounts.h"

#include <QList>
#include <QMap>
#include <QSet>

namespace fennick::engine {

// What the amounts of one reading come to with one another: subtotals with tax and rounding, cash less
// change, the table of taxes, the items. Worked out once; then each candidate for the total is held against
// it. Used on one thread.
class ReceiptSums {
public:
    explicit ReceiptSums(const QList<LabelledAmount> &amounts);

    // How well `thousandths` agrees, as the total, with the other amounts: 0 = no sum comes out at it. Cash
    // less change and what a deposit leaves count most; subtotal with tax, charges and rounding, the table of
    // taxes, a card payment, and the sum of the items follow.
    [[nodiscard]] double supportFor(qint64 thousandths) const;

    // The totals that the amounts come to, printed or not: cash less change, each subtotal with its tax,
    // charges, discount and rounding, and the table of taxes.
    [[nodiscard]] QSet<qint64> totals() const;

    // Whether `thousandths` is what one of the totals or subtotals comes to after a rounding that is printed.
    [[nodiscard]] bool isRoundedResult(qint64 thousandths) const;

private:
    QList<qint64> amountsOf(AmountRole role) const { return byRole_.value(role); }
    QList<qint64> roundings(qint64 total) const;
    QList<qint64> rounded(qint64 thousandths) const;
    QList<qint64> additions() const;
    QSet<qint64> subtotalsWithAdditions() const;
    QMap<qint64, double> payments() const;
    QSet<qint64> taxedTotals() const;
    QSet<qint64> sumsOfItems(const QList<LabelledAmount> &amounts) const;

    double paymentSupport(qint64 thousandths) const;
    double roundingSupport(qint64 thousandths) const;
    bool isRoundedFromAbove(qint64 thousandths) const;
    bool isRestOfTotal(qint64 thousandths) const;

    QMap<AmountRole, QList<qint64>> byRole_; // the legible ones, each once, from top to bottom
    QSet<qint64> printed_;
    QSet<qint64> printedTotals_;
    QSet<qint64> sums_;
    QMap<qint64, double> payments_; // cash less change, with what it proves
    QSet<qint64> taxed_;
    QSet<qint64> items_;
};

} // namespace fennick::engine
