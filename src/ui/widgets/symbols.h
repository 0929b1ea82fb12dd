#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

namespace fennick {

// The meaning of a symbol; each has a bundled drawing.
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

// The tint's colour in this palette, readable on its window and base colours, light or dark.
QColor tintColor(Tint tint, const QPalette &palette);

// An icon that is rendered from vectors each time it is painted: sharp at every scale and in the current
// palette's colours, including the one for disabled text.
QIcon symbolIcon(Symbol symbol, Tint tint = Tint::primary);

// The program's own icon, for windows and task bars.
QIcon programIcon();

} // namespace fennick
