#include "converter/converter_fixtures.h"

#include "converter/receipt_image_converter.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace fennick::testing {

const QString cannotRender = u"Could not render page image"_s;

namespace {

constexpr const char *temporaryFolderVariable = "TMPDIR";

template <typename Number>
QByteArray bytesOf(Number value, bool bigEndian) {
    const Number ordered = bigEndian ? qToBigEndian(value) : qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&ordered), sizeof ordered);
}

quint32 pngChecksum(const QByteArray &bytes) {
    quint32 checksum = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        checksum ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1) ^ ((checksum & 1) != 0 ? 0xEDB88320u : 0);
    }
    return ~checksum;
}

int distance(QRgb left, QRgb right) {
    return std::max({std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                     std::abs(qBlue(left) - qBlue(right))});
}

QChar letterOf(QRgb colour) {
    struct Named {
        QRgb colour;
        char16_t letter;
    };
    constexpr std::array<Named, 6> names{{{0xFFFF0000, u'R'},
                                          {0xFF00FF00, u'G'},
                                          {0xFF0000FF, u'B'},
                                          {0xFFFFFF00, u'Y'},
                                          {0xFFFFFFFF, u'W'},
                                          {0xFF000000, u'K'}}};
    constexpr int tolerance = 12;
    for (const Named &name : names) {
        if (distance(name.colour, colour) <= tolerance)
            return name.letter;
    }
    return u'?';
}

} // namespace

ScratchFolder::ScratchFolder()
    : formerTemporaryFolder_(qgetenv(temporaryFolderVariable)) {
    qputenv(temporaryFolderVariable, QFile::encodeName(folder_.path()));
}

ScratchFolder::~ScratchFolder() {
    qputenv(temporaryFolderVariable, formerTemporaryFolder_);
}

QString ScratchFolder::file(const QString &name, const QByteArray &content) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write a test file");
    return file.fileName();
}

QImage ScratchFolder::converted(const QString &name, const QByteArray &content) const {
    const auto result = ReceiptImageConverter::convertToJPEGs(file(name, content), u"Out"_s);
    if (!result || result->size() != 1)
        return {};
    return QImage(result->front(), "jpeg").convertToFormat(QImage::Format_RGB32);
}

QString ScratchFolder::failureOf(const QString &name, const QByteArray &content) const {
    const auto result = ReceiptImageConverter::convertToJPEGs(file(name, content), u"Out"_s);
    return result ? QString() : result.error().errorDescription();
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage fourCorners(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    const int width = size.width() / 5;
    const int height = size.height() / 5;
    QPainter painter(&image);
    painter.fillRect(0, 0, width, height, QColor(255, 0, 0));
    painter.fillRect(size.width() - width, 0, width, height, QColor(0, 255, 0));
    painter.fillRect(0, size.height() - height, width, height, QColor(0, 0, 255));
    painter.fillRect(size.width() - width, size.height() - height, width, height, QColor(255, 255, 0));
    return image;
}

QImage smoothPicture(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(
                x, y, qRgb(x * 255 / size.width(), y * 255 / size.height(), 255 - x * 255 / size.width()));
    }
    return image;
}

QString cornersOf(const QImage &image) {
    if (image.isNull())
        return {};
    const int left = image.width() / 10;
    const int top = image.height() / 10;
    const int right = image.width() - 1 - left;
    const int bottom = image.height() - 1 - top;
    QString letters;
    for (const QPoint corner :
         {QPoint(left, top), QPoint(right, top), QPoint(left, bottom), QPoint(right, bottom)})
        letters += letterOf(image.pixel(corner));
    return letters;
}

int distanceInMiddle(const QImage &image, QRgb colour) {
    return distance(image.pixel(image.width() / 2, image.height() / 2), colour);
}

QByteArray encoded(const QImage &image, const char *format, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image))
        qFatal("cannot encode a test picture");
    return bytes;
}

QByteArray exifData(int orientation, bool bigEndian) {
    constexpr quint16 orientationTag = 0x0112;
    constexpr quint16 shortType = 3;
    QByteArray data(bigEndian ? "MM" : "II");
    data += bytesOf(quint16(42), bigEndian) + bytesOf(quint32(8), bigEndian); // directory right after this
    data += bytesOf(quint16(1), bigEndian);                                   // with one entry
    data += bytesOf(orientationTag, bigEndian) + bytesOf(shortType, bigEndian);
    data += bytesOf(quint32(1), bigEndian) + bytesOf(static_cast<quint16>(orientation), bigEndian);
    data += bytesOf(quint16(0), bigEndian) + bytesOf(quint32(0), bigEndian);
    return data;
}

QByteArray withExifOrientation(QByteArray jpeg, int orientation, bool bigEndian) {
    const QByteArray data = QByteArray("Exif\0\0", 6) + exifData(orientation, bigEndian);
    const QByteArray segment = "\xFF\xE1" + bytesOf(static_cast<quint16>(data.size() + 2), true) + data;
    return jpeg.insert(2, segment);
}

QByteArray pngChunk(const QByteArray &type, const QByteArray &data) {
    return bytesOf(static_cast<quint32>(data.size()), true) + type + data +
           bytesOf(pngChecksum(type + data), true);
}

QByteArray withPngChunk(QByteArray png, const QByteArray &type, const QByteArray &data) {
    constexpr qsizetype endOfHeader = 33;
    return png.insert(endOfHeader, pngChunk(type, data));
}

QByteArray riffChunk(const QByteArray &type, const QByteArray &data) {
    const QByteArray padding(data.size() % 2, '\0');
    return type + bytesOf(static_cast<quint32>(data.size()), false) + data + padding;
}

QByteArray pdfOf(const QList<QByteArray> &objects) {
    QByteArray pdf("%PDF-1.7\n");
    QByteArray table("0000000000 65535 f \n");
    for (qsizetype index = 0; index < objects.size(); ++index) {
        table += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(index + 1) + " 0 obj\n" + objects[index] + "\nendobj\n";
    }
    const QByteArray size = QByteArray::number(objects.size() + 1);
    const QByteArray start = QByteArray::number(pdf.size());
    return pdf + "xref\n0 " + size + '\n' + table + "trailer\n<< /Size " + size +
           " /Root 1 0 R >>\nstartxref\n" + start + "\n%%EOF\n";
}

QByteArray pdfStream(const QByteArray &content) {
    return "<< /Length " + QByteArray::number(content.size()) + " >>\nstream\n" + content + "\nendstream";
}

QByteArray pdfWithPages(const QList<QByteArray> &pageAttributes, const QByteArray &content,
                        const QByteArray &inherited) {
    constexpr int firstPage = 4;
    QByteArray kids;
    QList<QByteArray> pages;
    for (const QByteArray &attributes : pageAttributes) {
        kids += QByteArray::number(firstPage + pages.size()) + " 0 R ";
        pages.append("<< /Type /Page /Parent 2 0 R /Contents 3 0 R " + attributes + " >>");
    }
    return pdfOf(QList<QByteArray>{"<< /Type /Catalog /Pages 2 0 R >>",
                                   "<< /Type /Pages /Kids [" + kids + "] /Count " +
                                       QByteArray::number(pages.size()) + ' ' + inherited + " >>",
                                   pdfStream(content)} +
                 pages);
}

QByteArray fourCornersContent(int left, int bottom, int width, int height) {
    const auto rectangle = [&](const char *colour, bool atRight, bool atTop) {
        const int partWidth = width / 5;
        const int partHeight = height / 5;
        const int x = atRight ? left + width - partWidth : left;
        const int y = atTop ? bottom + height - partHeight : bottom;
        return QByteArray(colour) + " rg " + QByteArray::number(x) + ' ' + QByteArray::number(y) + ' ' +
               QByteArray::number(partWidth) + ' ' + QByteArray::number(partHeight) + " re f\n";
    };
    return rectangle("1 0 0", false, true) + rectangle("0 1 0", true, true) +
           rectangle("0 0 1", false, false) + rectangle("1 1 0", true, false);
}

} // namespace fennick::testing
