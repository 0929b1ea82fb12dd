#include "documents/picture_decoder.h"

#include "documents/heif_decoder.h"
#include "documents/jpeg_decoder.h"
#include "documents/qt_image_decoder.h"
#include "kinds/document_kind.h"

namespace fennick {

std::expected<StoredPicture, DocumentError>
decodedPicture(const QByteArray &content, const PictureLimits &limits, UsefulSize usefulSize) {
    switch (kindOfContent(content).value_or(DocumentKind::pdf)) {
    case DocumentKind::jpeg:
        return decodedJpeg(content, limits);
    case DocumentKind::heif:
        return decodedHeif(content, limits);
    case DocumentKind::png:
        return decodedPng(content, limits, usefulSize);
    case DocumentKind::webp:
        return decodedWebp(content, limits, usefulSize);
    case DocumentKind::gif:
        return decodedPlain(content, "gif", limits);
    case DocumentKind::bmp:
        return decodedPlain(content, "bmp", limits);
    case DocumentKind::pdf:
        break;
    }
    return std::unexpected(DocumentError::unreadableImage);
}

} // namespace fennick
