#include "engine/recognition/image_decoder.h"

#include "engine/recognition/heif_decoder.h"
#include "engine/recognition/picture_size.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace fennick::engine {

namespace {

// The name of Qt's decoder; empty for anything that is no receipt picture (Qt would also try SVG, ICO ...).
QByteArray decoderName(const QByteArray &bytes) {
    if (bytes.startsWith("\xFF\xD8\xFF")) {
        return "jpeg";
    }
    if (bytes.startsWith("\x89PNG\r\n\x1A\n")) {
        return "png";
    }
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP") {
        return "webp";
    }
    return {};
}

QImage onWhite(const QImage &picture) {
    if (!picture.hasAlphaChannel()) {
        return picture;
    }
    QImage page(picture.size(), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter(&page).drawImage(0, 0, picture);
    return page;
}

// Qt refuses pictures above 128 MB by default; the size check here is the stricter one for small files.
void raiseAllocationLimit() {
    static const bool raised = [] {
        QImageReader::setAllocationLimit(512);
        return true;
    }();
    Q_UNUSED(raised)
}

} // namespace

std::expected<QImage, ReadError> decodedImage(const QByteArray &bytes) {
    if (looksLikeHeif(bytes)) {
        return decodedHeif(bytes);
    }

    const QByteArray decoder = decoderName(bytes);
    if (decoder.isEmpty()) {
        return std::unexpected(ReadError::UnreadableImage);
    }
    raiseAllocationLimit();
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, decoder);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty()) {
        return std::unexpected(ReadError::UnreadableImage);
    }
    if (!isDecodableSize(size)) {
        return std::unexpected(ReadError::ImageTooLarge);
    }
    if (const QSize useful = recognisableSize(size); useful != size) {
        reader.setScaledSize(useful);
    }

    const QImage picture = reader.read();
    if (picture.isNull()) {
        return std::unexpected(ReadError::UnreadableImage);
    }
    return onWhite(picture);
}

} // namespace fennick::engine
