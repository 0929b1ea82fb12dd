#pragma once

#include "engine/fields/labelled_amounts.h"

#include <QList>
#include <QMap>
#include <QSet>

namespace fennick::engine {

// The sums that the amounts of one reading add up to: subtotals with tax and rounding, cash less change, the
// table of taxes, the items. They are worked out once, and each candidate for the total is checked against
// them. Amounts are in thousandths of the currency's unit. Never changes; any thread.
class ReceiptSums {
public:
    explicit ReceiptSums(const QList<LabelledAmount> &amounts);

    // How well `thousandths` agrees, as the total, with the other amounts: the sum of the weights of all the
    // rules by which a sum comes out at it, 0 if none does. Cash less change and what a deposit leaves weigh
    // most.
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
    QMap<qint64, double> payments_; // cash less change, with its weight
    QSet<qint64> taxed_;
    QSet<qint64> items_;
};

} // namespace fennick::engine
