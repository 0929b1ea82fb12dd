#include "documents/qt_image_decoder.h"

#include "documents/colour_profile.h"
#include "documents/exif_orientation.h"
#include "documents/picture_limits.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>

#include <algorithm>
#include <mutex>

namespace fennick {

namespace {

// Qt refuses pictures over 128 MB by default, which is a photo of 32 megapixels. Its limit is one for the
// whole process; the pixels of ours have been counted before, and take 8 bytes each at most.
void raiseAllocationLimit() {
    static std::once_flag raised;
    std::call_once(raised, [] {
        constexpr int mostBytesPerPixel = 8;
        QImageReader::setAllocationLimit(maximumPixelCount * mostBytesPerPixel / (1 << 20) + 1);
    });
}

std::optional<YuvPicture> yuvPicture(const QImage &image) {
    YuvPicture picture = yuvPictureFromRgb(image);
    if (picture.planes.empty()) {
        return std::nullopt;
    }
    return picture;
}

// Counts the picture as it is read together with the one of 32 bits that it is turned into, or that one
// together with its planes.
bool isAcceptable(const QImageReader &reader) {
    const QSize size = reader.size();
    if (!isAcceptablePixelCount(size.width(), size.height())) {
        return false;
    }
    const QImage::Format format = reader.imageFormat();
    const qint64 bitsAsRead =
        format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    const bool isConverted = format != QImage::Format_RGB32 && format != QImage::Format_ARGB32;
    constexpr qint64 bitsConverted = 32;
    constexpr qint64 bitsOfPlanes = 12;
    const qint64 bits = std::max(isConverted ? bitsAsRead + bitsConverted : 0, bitsConverted + bitsOfPlanes);
    return qint64(size.width()) * size.height() * bits / 8 <= mostPictureMemory;
}

std::optional<YuvPicture> decoded(const QByteArray &file, const char *format) {
    raiseAllocationLimit();
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(false);
    if (!isAcceptable(reader)) {
        return std::nullopt;
    }

    // A palette with transparent entries turns black on the way through formats without alpha.
    QImage image = reader.read();
    const bool isOpaque = !image.hasAlphaChannel();
    image.convertTo(isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    if (image.isNull()) {
        return std::nullopt;
    }
    if (image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
        convertToSrgb(image, profileFromIcc(image.colorSpace().iccProfile()));
    }
    return isOpaque ? yuvPicture(image) : yuvPictureOnWhite(std::move(image));
}

std::optional<StoredPicture> stored(std::optional<YuvPicture> picture, int orientation) {
    if (!picture) {
        return std::nullopt;
    }
    return StoredPicture{std::move(*picture), orientation, {}};
}

} // namespace

std::optional<YuvPicture> yuvPictureOnWhite(QImage image) {
    blendOntoWhite(image);
    return yuvPicture(image);
}

std::optional<StoredPicture> decodePng(const QByteArray &file) {
    return stored(decoded(file, "png"), pngOrientation(file));
}

std::optional<StoredPicture> decodeWebp(const QByteArray &file) {
    return stored(decoded(file, "webp"), webpOrientation(file));
}

std::optional<StoredPicture> decodePlain(const QByteArray &file, const char *format) {
    constexpr int upright = 1;
    return stored(decoded(file, format), upright);
}

} // namespace fennick
