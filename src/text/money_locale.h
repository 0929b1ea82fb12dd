#pragma once

#include <QLocale>

namespace fennick {

// The locale in which the user wants money written: the first of LC_ALL, LC_MONETARY, LC_NUMERIC and LANG
// that the environment sets. A desktop may set the language and the ways of writing apart.
QLocale moneyLocale();

} // namespace fennick
