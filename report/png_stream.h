#pragma once

#include <QByteArray>

#include <optional>

namespace fennick {

// The pixels of a PNG file as they are stored, which a PDF takes without another encoding.
struct PngStream {
    quint32 width = 0;
    quint32 height = 0;
    int bits = 8;
    int channels = 1;
    QByteArray palette; // red, green, blue of each entry; empty for a picture without one
    QByteArray pixels;
};

// Nothing for a file whose pixels a PDF would show otherwise: interlaced, partly transparent, with 16 bits a
// sample, or with colours that are not sRGB. The file must be whole.
[[nodiscard]] std::optional<PngStream> pngStream(const QByteArray &file);

} // namespace fennick
