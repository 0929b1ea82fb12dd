#include "documents/picture_decoder.h"

#include "documents/heif_decoder.h"
#include "documents/jpeg_decoder.h"
#include "documents/qt_image_decoder.h"
#include "kinds/document_kind.h"
#include "platform/regular_file.h"

namespace fennick {

std::optional<StoredPicture> readPictureFile(QFile &file) {
    const QByteArray content = readWhole(file).value_or(QByteArray());
    switch (kindOfContent(content).value_or(DocumentKind::pdf)) {
    case DocumentKind::jpeg:
        return decodeJpeg(content);
    case DocumentKind::png:
        return decodePng(content);
    case DocumentKind::webp:
        return decodeWebp(content);
    case DocumentKind::heif:
        return decodeHeif(content);
    case DocumentKind::gif:
        return decodePlain(content, "gif");
    case DocumentKind::bmp:
        return decodePlain(content, "bmp");
    case DocumentKind::pdf:
        break;
    }
    return std::nullopt;
}

} // namespace fennick
