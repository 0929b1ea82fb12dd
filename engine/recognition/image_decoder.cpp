#include "engine/recognition/image_decoder.h"

#include "documents/picture_decoder.h"
#include "documents/plane_scaling.h"
#include "documents/upright_picture.h"
#include "engine/recognition/picture_size.h"
#include "kinds/document_kind.h"

#include <cstring>
#include <new>
#include <utility>

namespace fennick::engine {

namespace {

bool isTakenIn(const QByteArray &bytes) {
    const std::optional<DocumentKind> kind = kindOfContent(bytes);
    return kind && !mimeTypeOf(*kind).isEmpty();
}

QImage greyImage(const Plane &plane) {
    QImage image(plane.width(), plane.height(), QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(image.scanLine(y), plane.row(y), static_cast<size_t>(plane.width()));
    }
    return image;
}

// Without its chroma, which says nothing about letters.
std::expected<QImage, ReadError> greyImageOf(StoredPicture stored) {
    YuvPicture picture = std::move(stored.picture);
    picture.planes.erase(picture.planes.begin() + 1, picture.planes.end());
    const QSize size(picture.width, picture.height);
    QSize useful = recognisableSize(size);
    if (useful.width() + 1 >= size.width() && useful.height() + 1 >= size.height()) {
        useful = size; // it has been reduced while it was read, and rounded up
    }
    std::optional<YuvPicture> scaled = scaledPicture(std::move(picture), useful);
    if (!scaled) {
        return std::unexpected(ReadError::unreadableImage);
    }
    return greyImage(uprightPicture(std::move(*scaled), stored.orientation).planes.front());
}

} // namespace

std::expected<QImage, ReadError> decodedImage(const QByteArray &bytes) {
    if (!isTakenIn(bytes)) {
        return std::unexpected(ReadError::unreadableImage);
    }
    try {
        std::expected<StoredPicture, DocumentError> stored =
            decodedPicture(bytes, engineLimits, recognisableSize);
        if (!stored) {
            return std::unexpected(readErrorOf(stored.error()));
        }
        return greyImageOf(*std::move(stored));
    } catch (const std::bad_alloc &) {
        return std::unexpected(ReadError::tookTooMuch);
    }
}

} // namespace fennick::engine
