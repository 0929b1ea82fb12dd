#include "report/png_stream.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace fennick {

namespace {

constexpr qsizetype signatureSize = 8;
constexpr qsizetype frameSize = 12; // length, name and checksum of a chunk
constexpr qsizetype headerSize = 13;

enum ColourType { grey = 0, rgb = 2, indexed = 3 };

// Chunks that change what the pixels mean.
constexpr std::array<QByteArrayView, 5> otherMeanings{"tRNS", "iCCP", "gAMA", "cHRM", "acTL"};

// A PDF reader needs neither interlacing nor more than eight bits.
bool readHeader(QByteArrayView header, PngStream &stream) {
    constexpr int mostBits = 8;
    if (header.size() != headerSize || header[12] != 0) {
        return false;
    }
    stream.width = qFromBigEndian<quint32>(header.data());
    stream.height = qFromBigEndian<quint32>(header.data() + 4);
    stream.bits = static_cast<uchar>(header[8]);
    const int type = static_cast<uchar>(header[9]);
    stream.channels = type == rgb ? 3 : 1;
    return stream.bits <= mostBits && (type == grey || type == rgb || type == indexed);
}

} // namespace

std::optional<PngStream> pngStream(const QByteArray &file) {
    PngStream stream;
    const QByteArrayView bytes(file);
    bool hasHeader = false;
    bool isIndexed = false;
    qsizetype place = signatureSize;
    while (place + frameSize <= bytes.size()) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<quint32>(bytes.data() + place));
        if (length > bytes.size() - place - frameSize) {
            return std::nullopt;
        }
        const QByteArrayView name = bytes.sliced(place + 4, 4);
        const QByteArrayView data = bytes.sliced(place + 8, length);
        if (name == "IHDR") {
            hasHeader = readHeader(data, stream);
            isIndexed = hasHeader && data[9] == indexed;
        } else if (name == "PLTE" && isIndexed) {
            stream.palette = data.toByteArray();
        } else if (name == "IDAT") {
            stream.pixels += data;
        } else if (std::ranges::find(otherMeanings, name) != otherMeanings.end()) {
            return std::nullopt;
        }
        if (!hasHeader) {
            return std::nullopt;
        }
        place += frameSize + length;
    }
    const bool isComplete = !stream.pixels.isEmpty() && isIndexed == !stream.palette.isEmpty();
    return isComplete ? std::optional(std::move(stream)) : std::nullopt;
}

} // namespace fennick
