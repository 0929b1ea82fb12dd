#pragma once

#include "engine/recognition/text_line.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick::engine {

// The ISO 4217 code of the currency that `lines` speak of most: by code (EUR), by symbol (€), by a symbol
// with its country (C$), or by what only one country's receipts bear (Sdn Bhd, ABN). A bare $ is taken for
// the US dollar and ¥ for the yen unless more speaks for another country. None when nothing tells.
std::optional<QString> readCurrency(const Reading &lines);

// Whether a currency symbol or code stands directly before `start` or after `end` in `line`.
bool hasCurrencyBeside(const QString &line, qsizetype start, qsizetype end);

// `amount` as people write it: "$23.50", "€1,200.00", "CHF 23.50", "¥1980"; without a currency "23.50".
QString moneyText(double amount, const std::optional<QString> &currency);

} // namespace fennick::engine
