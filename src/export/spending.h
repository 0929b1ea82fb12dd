#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace fennick {

struct Expense {
    QString date; // yyyy-MM-dd, or anything else for none
    QString category;
    QString currency; // empty without one
    double amount = 0;
};

// What was spent in one currency, by month and category.
struct Spending {
    struct Sum {
        double total = 0;
        QHash<QString, double> byCategory;
    };
    struct Month {
        QString month; // yyyy-MM; empty for what has no date
        Sum sum;
    };

    QString currency; // empty for amounts without one
    int receipts = 0;
    QStringList categories; // on which most was spent first
    QList<Month> months;    // the latest first, what has no date last
    Sum whole;
};

// Each currency by itself: amounts of different currencies are never added. The currency of most receipts
// comes first.
[[nodiscard]] QList<Spending> spendingByCurrency(const QList<Expense> &expenses);

} // namespace fennick
