#pragma once

#include "model/searchable_receipt.h"

#include <QLocale>
#include <QString>

#include <functional>
#include <vector>

namespace fennick {

// What a person has typed to find receipts. All parts must match: words and numbers in any field ("12,50",
// "12.5"), text in quotes as it stands, amounts beyond a limit (">100", "<=20"), a currency's code, a month
// with or without a year ("march 2024"), and keywords such as "failed". Month names and keywords are
// understood in English and in the language given. A plain value; callable from any thread.
class ReceiptQuery {
public:
    explicit ReceiptQuery(const QString &typed = {}, const QLocale &language = QLocale::c());

    bool isEmpty() const { return conditions_.empty(); }
    [[nodiscard]] bool matches(const SearchableReceipt &receipt) const;

private:
    using Condition = std::function<bool(const SearchableReceipt &)>;

    std::vector<Condition> conditions_;
};

} // namespace fennick
