#include "ui/summary/expenses.h"

#include "text/currency_text.h"

#include <QSet>

namespace fennick {

namespace {

QSet<QString> currenciesOf(const QList<Expense> &expenses) {
    QSet<QString> currencies;
    for (const Expense &expense : expenses) {
        currencies.insert(expense.currency);
    }
    return currencies;
}

// A ledger writes two decimals of every currency.
QString currencyOfText(const QString &amountText, double amount, const QSet<QString> &currencies,
                       AmountFormatter &ledgerForm) {
    for (const QString &currency : currencies) {
        if (!currency.isEmpty() && ledgerForm.text(amount, currency) == amountText) {
            return currency;
        }
    }
    return {};
}

} // namespace

QList<Expense> expensesOf(const QList<Receipt> &receipts) {
    QList<Expense> expenses;
    for (const Receipt &receipt : receipts) {
        if (receipt.amount) {
            expenses.append({.date = receipt.date.value_or(QString()),
                             .category = receipt.category,
                             .currency = receipt.currency.value_or(QString()),
                             .amount = *receipt.amount});
        }
    }
    return expenses;
}

QList<Expense> expensesOf(const QList<ArchivedReceipt> &archived, const QList<Expense> &others) {
    QSet<QString> currencies = currenciesOf(others);
    for (const ArchivedReceipt &receipt : archived) {
        currencies.insert(receipt.row.currency);
    }
    AmountFormatter ledgerForm(FractionDigits::two);
    QList<Expense> expenses;
    for (const ArchivedReceipt &receipt : archived) {
        const ExportService::LedgerRow &row = receipt.row;
        if (!row.amount) {
            continue;
        }
        expenses.append({.date = row.date,
                         .category = row.category,
                         .currency = row.amountText.isEmpty() ? row.currency
                                                              : currencyOfText(row.amountText, *row.amount,
                                                                               currencies, ledgerForm),
                         .amount = *row.amount});
    }
    return expenses;
}

} // namespace fennick
