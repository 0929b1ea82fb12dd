#pragma once

#include <QHash>
#include <QRectF>
#include <QString>
#include <QStringList>

namespace fennick {

// Where something stands on a document.
struct PlaceOnPage {
    int page = 0; // from 0
    QRectF area;  // 0 to 1 from the top left corner of the page as it is shown
    bool operator==(const PlaceOnPage &other) const = default;
};

// Where a receipt's values stand, by the engine's names for them: "date", "time", "total", "currency",
// "merchant", "category", "summary".
struct ValuePlaces {
    QHash<QString, PlaceOnPage> found;
    QStringList missing; // surely nowhere on the pages that were read
    int pages = 0;       // that were read, from the first on
};

} // namespace fennick
