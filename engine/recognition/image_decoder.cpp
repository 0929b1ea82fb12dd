#include "engine/recognition/image_decoder.h"

#include "engine/recognition/heif_decoder.h"
#include "engine/recognition/picture_size.h"
#include "kinds/document_kind.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace fennick::engine {

namespace {

// The name of Qt's decoder; empty for anything that is no receipt picture (Qt would also try SVG, ICO ...).
QByteArray decoderName(std::optional<DocumentKind> kind) {
    switch (kind.value_or(DocumentKind::pdf)) {
    case DocumentKind::jpeg:
        return "jpeg";
    case DocumentKind::png:
        return "png";
    case DocumentKind::webp:
        return "webp";
    default:
        return {};
    }
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
    const std::optional<DocumentKind> kind = kindOfContent(bytes);
    if (kind == DocumentKind::heif) {
        return decodedHeif(bytes);
    }

    const QByteArray decoder = decoderName(kind);
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
