#pragma once

#include <QStringList>

class QWidget;

namespace fennick::test {

// The texts of a window on the screen that cannot be read whole, each after what shows it; empty when all
// fit. Left out are the cells of tables and the lines of ElidedLabel that show a path: they are elided by
// intention, with the whole text in a tool tip.
QString clippedTexts(const QWidget *window);

// The texts of a window, in sight or not, with those for assistive tools, tool tips and menus. The same
// window has as many of them in every language.
QStringList textsOf(const QWidget *window);

} // namespace fennick::test
