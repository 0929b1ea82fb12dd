#include "samples/sample_files.h"

#include <QBuffer>
#include <QFile>
#include <QPageSize>
#include <QPdfWriter>
#include <QTransform>

#include <libheif/heif.h>

#include <memory>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int pdfDotsPerInch = 300;
constexpr double pdfRowHeight = 76; // dots: rows of type of 12 points

void prepare(QPdfWriter &writer) {
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(22, 22, 22, 22));
    writer.setResolution(pdfDotsPerInch);
    writer.setCreator(u"make_samples"_s);
}

bool writeBytes(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

// An APP1 segment whose only entry is orientation 6 = "turn 90 degrees clockwise to view" (Exif 2.3, 4.6.4).
QByteArray orientationSegment() {
    const QByteArray header("Exif\0\0", 6);
    const QByteArray tiff("MM\0\x2A\0\0\0\x08", 8);
    const QByteArray directory("\0\x01"           // one entry
                               "\x01\x12"         // orientation
                               "\0\x03\0\0\0\x01" // one 16-bit number
                               "\0\x06\0\0"       // 6, padded
                               "\0\0\0\0",        // no further directory
                               18);
    const QByteArray payload = header + tiff + directory;
    QByteArray segment("\xFF\xE1", 2);
    const auto length = static_cast<quint16>(payload.size() + 2);
    segment.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xFF));
    return segment + payload;
}

} // namespace

bool writeTextPdf(const QString &path, const QList<Page> &pages) {
    QPdfWriter writer(path);
    prepare(writer);
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    for (qsizetype index = 0; index < pages.size(); ++index) {
        if (index > 0) {
            writer.newPage();
        }
        drawPage(painter, pages[index], writer.width(), pdfRowHeight, false);
    }
    return painter.end();
}

bool writeScannedPdf(const QString &path, const QImage &picture) {
    QPdfWriter writer(path);
    prepare(writer);
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    const QSize size = picture.size().scaled(writer.width(), writer.height(), Qt::KeepAspectRatio);
    painter.drawImage(QRect(QPoint(0, 0), size), picture);
    return painter.end();
}

bool writePicture(const QString &path, const QImage &picture, const char *format, int quality) {
    return picture.save(path, format, quality);
}

bool writeTurnedJpeg(const QString &path, const QImage &upright, int quality) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!upright.transformed(QTransform().rotate(-90)).save(&buffer, "JPG", quality)) {
        return false;
    }
    const qsizetype afterStartOfImage = 2;
    return writeBytes(path, QByteArray(buffer.data()).insert(afterStartOfImage, orientationSegment()));
}

bool writeHeic(const QString &path, const QImage &picture, int quality) {
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB888);
    const std::unique_ptr<heif_context, decltype(&heif_context_free)> context(heif_context_alloc(),
                                                                              heif_context_free);
    heif_encoder *encoder = nullptr;
    if (heif_context_get_encoder_for_format(context.get(), heif_compression_HEVC, &encoder).code !=
        heif_error_Ok) {
        return false;
    }
    const std::unique_ptr<heif_encoder, decltype(&heif_encoder_release)> encoderOwner(encoder,
                                                                                      heif_encoder_release);
    heif_encoder_set_lossy_quality(encoder, quality);

    heif_image *image = nullptr;
    if (heif_image_create(pixels.width(), pixels.height(), heif_colorspace_RGB, heif_chroma_interleaved_RGB,
                          &image)
            .code != heif_error_Ok) {
        return false;
    }
    const std::unique_ptr<heif_image, decltype(&heif_image_release)> imageOwner(image, heif_image_release);
    heif_image_add_plane(image, heif_channel_interleaved, pixels.width(), pixels.height(), 8);
    int stride = 0;
    uint8_t *plane = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    for (int y = 0; y < pixels.height(); ++y) {
        std::copy_n(pixels.constScanLine(y), 3 * pixels.width(), plane + static_cast<qsizetype>(y) * stride);
    }

    const heif_error encoded = heif_context_encode_image(context.get(), image, encoder, nullptr, nullptr);
    return encoded.code == heif_error_Ok &&
           heif_context_write_to_file(context.get(), QFile::encodeName(path).constData()).code ==
               heif_error_Ok;
}

} // namespace fennick
