#pragma once

#include "engine/knowledge/word_table.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace fennick::engine {

// What an amount on a receipt is, as its label tells.
enum class AmountRole {
    finalTotal, // what is to be paid and nothing else: "Grand total", "Amount due", "Total rounded"
    total,      // "Total", which some tills also print before tax or rounding
    subtotal,   // before tax, charges or rounding
    tax,
    charge, // service charge, tip
    discount,
    rounding,
    tendered, // cash handed over, or the sum paid
    card,     // taken from a card
    change,
    paidBefore, // a deposit or advance that leaves less to pay
    mention,    // "Amount", "Sum": as a last resort
    other,      // counts, points, savings: never what was paid
    taxed,      // what a row of the table of taxes comes to with its tax, printed or not
    unnamed,    // no label that is known: items
};

// What labels mean in English and some other languages. Made once for each reading; used on one thread.
class AmountRoles {
public:
    explicit AmountRoles(const Languages &languages);

    // The role that `label` gives, misread words and all.
    [[nodiscard]] AmountRole role(const QString &label) const;

    // Whether `line` heads the table of taxes, whose totals are not the receipt's.
    [[nodiscard]] bool startsTaxTable(const QString &line) const;

    // Whether `line` names columns of such a table, which may have no heading of its own.
    [[nodiscard]] bool namesTaxColumns(const QString &line) const;

private:
    struct Meaning {
        AmountRole role;
        QStringList phrases;
    };

    QString repairedLabel(const QString &label) const;
    AmountRole totalRole(const QString &words) const;
    bool isTotalAlone(QString words) const;
    bool namesTaxWithin(QString words) const;

    QList<Meaning> inOrder_; // the first that fits decides
    QStringList total_;
    QStringList totalAlone_;
    QStringList partOfTotal_;
    QStringList mention_;
    QStringList tax_;
    QStringList inclusive_;
    QStringList within_;
    QStringList exclusive_;
    QStringList taxTable_;
    QStringList taxColumn_;
    QSet<QString> vocabulary_;
};

} // namespace fennick::engine
