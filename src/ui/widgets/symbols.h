#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

namespace fennick {

// What a symbol stands for; each has one bundled drawing.
enum class Symbol {
    addToPhotos,
    archive,
    chooseFolder,
    clear,
    done,
    exportLedger,
    keySaved,
    photos,
    receipts,
    refused,
    retry,
    reveal,
    warning,
    watchedFolder,
};

enum class Tint { primary, secondary, success, warning, failure, selection };

// The tint in this palette, readable on its window and base colours, light or dark.
QColor tintColor(Tint tint, const QPalette &palette);

// An icon that is drawn from its vectors whenever it is painted: sharp at every scale, and in the colours of
// the palette of that moment. Disabled, it is drawn in the palette's disabled text colour.
QIcon symbolIcon(Symbol symbol, Tint tint = Tint::primary);

// The program's own icon, for windows and task bars.
QIcon programIcon();

} // namespace fennick
