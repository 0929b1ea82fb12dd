#include "files/picture_file.h"

#include "files/decoded_image.h"
#include "files/heic_image.h"
#include "files/jpeg_decoder.h"
#include "files/pixel_limits.h"

#include <QFile>
#include <QFileInfo>

namespace fennick {

namespace {

// Empty when the file cannot be read. Anything but a regular file could keep the reader waiting for ever.
QByteArray contentOf(const QString &path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > maximumFileSize) {
        return {};
    }
    QByteArray content = file.read(file.size()); // as much memory as asked for is taken at once
    return file.error() == QFileDevice::NoError ? content : QByteArray();
}

} // namespace

std::optional<StoredPicture> readPictureFile(const QString &path) {
    const QByteArray content = contentOf(path);
    if (content.startsWith("\xFF\xD8\xFF")) {
        return decodeJpeg(content);
    }
    if (content.startsWith("\x89PNG\r\n\x1A\n")) {
        return decodePng(content);
    }
    if (content.startsWith("RIFF") && content.mid(8, 4) == QByteArrayView("WEBP")) {
        return decodeWebp(content);
    }
    if (looksLikeHeif(content)) {
        return decodeHeif(content);
    }
    return std::nullopt;
}

} // namespace fennick
