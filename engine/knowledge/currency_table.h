#pragma once

#include <QList>
#include <QRegularExpression>
#include <QStringList>

namespace fennick::engine {

enum class SignKind {
    Certain,
    Plain,
    Faint, // counts only if something else points to the country
};

// How a currency is printed beside an amount.
struct CurrencySign {
    SignKind kind = SignKind::Certain;
    QStringList currencies; // ISO 4217; those that the sign may stand for
    QRegularExpression pattern;
};

// All signs, the codes themselves included. Callable from any thread.
[[nodiscard]] const QList<CurrencySign> &currencySigns();

} // namespace fennick::engine
