#pragma once

#include <QList>
#include <QRegularExpression>
#include <QStringList>

#include <optional>

namespace fennick::engine {

enum class SignKind {
    certain,
    plain,
    faint, // counts only if something else points to the country
};

// How a currency is printed beside an amount.
struct CurrencySign {
    SignKind kind = SignKind::certain;
    QStringList currencies; // ISO 4217; those that the sign may stand for
    QRegularExpression pattern;
};

// How prices in a currency are printed.
struct PriceStyle {
    int decimals = 2;              // 0: whole numbers, though some tills print two noughts behind them
    bool groupsWithSpaces = false; // "5 480" is one number whatever stands around it

    bool operator==(const PriceStyle &other) const = default;
};

// Prices have two decimals where `currency` (ISO 4217) is unknown.
[[nodiscard]] PriceStyle priceStyle(const std::optional<QString> &currency);

// What is printed behind amounts of so many decimals whose thousands are separated by blanks.
[[nodiscard]] const QStringList &signsBehindBlankGroups(int decimals);

// All signs, the codes themselves included. Callable from any thread.
[[nodiscard]] const QList<CurrencySign> &currencySigns();

} // namespace fennick::engine
