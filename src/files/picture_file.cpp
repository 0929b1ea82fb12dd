#include "files/picture_file.h"

#include "files/decoded_image.h"
#include "files/heic_image.h"
#include "files/jpeg_decoder.h"
#include "platform/regular_file.h"

namespace fennick {

std::optional<StoredPicture> readPictureFile(QFile &file) {
    const QByteArray content = readWhole(file).value_or(QByteArray());
    if (content.startsWith("\xFF\xD8\xFF")) {
        return decodeJpeg(content);
    }
    if (content.startsWith("\x89PNG\r\n\x1A\n")) {
        return decodePng(content);
    }
    if (content.startsWith("RIFF") && content.mid(8, 4) == QByteArrayView("WEBP")) {
        return decodeWebp(content);
    }
    // No kinds that are taken in, but a camera or a scanner may give them a name that is.
    if (content.startsWith("BM")) {
        return decodePlain(content, "bmp");
    }
    if (content.startsWith("GIF8")) {
        return decodePlain(content, "gif");
    }
    if (looksLikeHeif(content)) {
        return decodeHeif(content);
    }
    return std::nullopt;
}

} // namespace fennick
