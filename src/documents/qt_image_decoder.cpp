#include "documents/qt_image_decoder.h"

#include "documents/colour_profile.h"
#include "documents/exif_orientation.h"
#include "kinds/document_kind.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>

#include <algorithm>
#include <mutex>

namespace fennick {

namespace {

// Qt refuses pictures over 128 MB by default, which is a photo of 32 megapixels. Its limit is one for the
// whole process; the limit of ours is checked before, and is never above this one.
void raiseAllocationLimit() {
    static std::once_flag raised;
    std::call_once(raised, [] {
        constexpr qint64 bytesPerMegabyte = 1 << 20;
        QImageReader::setAllocationLimit(static_cast<int>(converterLimits.memory / bytesPerMegabyte) + 1);
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
bool fitsInto(const PictureLimits &limits, const QImageReader &reader) {
    const QSize size = reader.size();
    const QImage::Format format = reader.imageFormat();
    const qint64 bitsAsRead =
        format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    const bool isConverted = format != QImage::Format_RGB32 && format != QImage::Format_ARGB32;
    constexpr qint64 bitsConverted = 32;
    constexpr qint64 bitsOfPlanes = 12; // 8 of brightness, and two chroma samples for four pixels
    const qint64 bits = std::max(isConverted ? bitsAsRead + bitsConverted : 0, bitsConverted + bitsOfPlanes);
    return limits.allow(size.width(), size.height()) &&
           qint64(size.width()) * size.height() * bits / 8 <= limits.memory;
}

// In sRGB; opaque ones have the format RGB32, others ARGB32.
std::expected<QImage, DocumentError> decodedImage(const QByteArray &file, const char *format,
                                                  const PictureLimits &limits, UsefulSize usefulSize) {
    raiseAllocationLimit();
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(false);
    if (reader.size().isEmpty()) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    if (!fitsInto(limits, reader)) {
        return std::unexpected(DocumentError::imageTooLarge);
    }
    if (usefulSize != nullptr && usefulSize(reader.size()) != reader.size()) {
        reader.setScaledSize(usefulSize(reader.size()));
    }

    // A palette with transparent entries turns black on the way through formats without alpha.
    QImage image = reader.read();
    const bool isOpaque = !image.hasAlphaChannel();
    image.convertTo(isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    if (image.isNull()) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    if (image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
        convertToSrgb(image, profileFromIcc(image.colorSpace().iccProfile()));
    }
    return image;
}

std::expected<StoredPicture, DocumentError> decoded(const QByteArray &file, const char *format,
                                                    const PictureLimits &limits, UsefulSize usefulSize,
                                                    int orientation) {
    auto image = decodedImage(file, format, limits, usefulSize);
    if (!image) {
        return std::unexpected(image.error());
    }
    std::optional<YuvPicture> picture =
        image->hasAlphaChannel() ? yuvPictureOnWhite(*std::move(image)) : yuvPicture(*image);
    if (!picture) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    return StoredPicture{std::move(*picture), orientation, {}};
}

struct LosslessKind {
    const char *format;
    int orientation;
};

std::optional<LosslessKind> losslessKind(const QByteArray &file) {
    constexpr int upright = 1;
    switch (kindOfContent(file).value_or(DocumentKind::pdf)) {
    case DocumentKind::png:
        return LosslessKind{"png", pngOrientation(file)};
    case DocumentKind::webp:
        return LosslessKind{"webp", webpOrientation(file)};
    case DocumentKind::gif:
        return LosslessKind{"gif", upright};
    case DocumentKind::bmp:
        return LosslessKind{"bmp", upright};
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<YuvPicture> yuvPictureOnWhite(QImage image) {
    blendOntoWhite(image);
    return yuvPicture(image);
}

std::expected<StoredPicture, DocumentError> decodedPng(const QByteArray &file, const PictureLimits &limits,
                                                       UsefulSize usefulSize) {
    return decoded(file, "png", limits, usefulSize, pngOrientation(file));
}

std::expected<StoredPicture, DocumentError> decodedWebp(const QByteArray &file, const PictureLimits &limits,
                                                        UsefulSize usefulSize) {
    return decoded(file, "webp", limits, usefulSize, webpOrientation(file));
}

std::expected<StoredPicture, DocumentError> decodedPlain(const QByteArray &file, const char *format,
                                                         const PictureLimits &limits) {
    constexpr int upright = 1;
    return decoded(file, format, limits, nullptr, upright);
}

std::expected<LosslessPicture, DocumentError> decodedLossless(const QByteArray &file,
                                                              const PictureLimits &limits) {
    const auto kind = losslessKind(file);
    if (!kind) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    auto image = decodedImage(file, kind->format, limits, nullptr);
    if (!image) {
        return std::unexpected(image.error());
    }
    if (image->hasAlphaChannel()) {
        blendOntoWhite(*image);
        image->reinterpretAsFormat(QImage::Format_RGB32);
    }
    return LosslessPicture{*std::move(image), kind->orientation};
}

} // namespace fennick
