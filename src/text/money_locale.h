#pragma once

#include <QLocale>

namespace fennick {

// The locale for formatting money: the first of LC_ALL, LC_MONETARY, LC_NUMERIC and LANG that is set in the
// environment. Desktops let users choose language and formats separately.
QLocale moneyLocale();

} // namespace fennick
