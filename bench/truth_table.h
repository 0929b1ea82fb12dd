#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace fennick {

// What one picture truly says. What a table does not state is empty.
struct Truth {
    QString file;
    QDate date;
    std::optional<double> total;
    QString currency;
    QString merchant;
    bool isPartOfMerchant = false; // it is enough that the answer contains `merchant`
    QStringList categories;        // any of them is right
};

// The rows of `folder`/truth.csv. Its head names the columns: file, date (ISO 8601) and total; optionally
// currency and categories, separated by blanks; and the seller's name, "company" if it is the whole name and
// "merchant" if it is a part. A whole name is the last column and may hold commas. The error says what cannot
// be read.
[[nodiscard]] std::expected<QList<Truth>, QString> truthTable(const QString &folder);

} // namespace fennick
