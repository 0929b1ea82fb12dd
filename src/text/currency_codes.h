#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

namespace fennick {

// The ISO 4217 codes of the currencies that are in use, in alphabetical order.
QStringList currencyCodesInUse();

// Whether ISO 4217 has, or once had, a currency with this upper-case code.
bool isIsoCurrency(const QString &code);

// The currency's name in the locale's language, such as "Euro"; the code itself if it has no name there.
QString currencyName(const QString &code, const QLocale &locale);

// How many decimals amounts in the currency are written with: none for the yen, two for an unknown code.
int currencyDecimals(const QString &code);

} // namespace fennick
