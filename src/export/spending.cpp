#include "export/spending.h"

#include <QDate>

#include <algorithm>
#include <functional>
#include <map>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString monthOf(const QString &date) {
    constexpr qsizetype monthLength = 7;
    return QDate::fromString(date, u"yyyy-MM-dd"_s).isValid() ? date.first(monthLength) : QString();
}

void add(Spending::Sum &sum, const Expense &expense) {
    sum.total += expense.amount;
    sum.byCategory[expense.category] += expense.amount;
}

QStringList orderedCategories(const QHash<QString, double> &byCategory) {
    QStringList categories = byCategory.keys();
    std::ranges::sort(categories, [&byCategory](const QString &left, const QString &right) {
        const double leftAmount = byCategory.value(left);
        const double rightAmount = byCategory.value(right);
        return leftAmount != rightAmount ? leftAmount > rightAmount : left < right;
    });
    return categories;
}

Spending spendingIn(const QString &currency, const QList<Expense> &expenses) {
    Spending spending;
    spending.currency = currency;
    spending.receipts = static_cast<int>(expenses.size());
    std::map<QString, Spending::Sum, std::greater<>> months; // no month is less than any
    for (const Expense &expense : expenses) {
        add(spending.whole, expense);
        add(months[monthOf(expense.date)], expense);
    }
    for (const auto &[month, sum] : months) {
        spending.months.append({month, sum});
    }
    spending.categories = orderedCategories(spending.whole.byCategory);
    return spending;
}

} // namespace

QList<Spending> spendingByCurrency(const QList<Expense> &expenses) {
    std::map<QString, QList<Expense>> byCurrency;
    for (const Expense &expense : expenses) {
        byCurrency[expense.currency].append(expense);
    }
    QList<Spending> all;
    for (const auto &[currency, ofCurrency] : byCurrency) {
        all.append(spendingIn(currency, ofCurrency));
    }
    std::ranges::stable_sort(all, std::greater(), &Spending::receipts);
    return all;
}

} // namespace fennick
