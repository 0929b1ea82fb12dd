#pragma once

#include <QByteArray>
#include <QSizeF>

#include <optional>
#include <vector>

class QFile;

namespace fennick {

// A PDF file made ready for a renderer that shows the crop box.
struct MediaBoxPdf {
    // The file rewritten: decrypted, its damage mended, every page cropped to its whole media box.
    QByteArray bytes;
    // The size in points of each page as it stands upright, width and height exchanged by a quarter turn.
    std::vector<QSizeF> pageSizes;
};

// Reads an open file. Nothing for one that is not a readable PDF, needs a password, or whose page tree has a
// loop.
std::optional<MediaBoxPdf> readWithMediaBoxes(QFile &file);

} // namespace fennick
