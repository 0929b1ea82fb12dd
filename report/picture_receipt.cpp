#include "report/picture_receipt.h"

#include "documents/jpeg_decoder.h"
#include "documents/jpeg_encoder.h"
#include "documents/picture_decoder.h"
#include "documents/plane_scaling.h"
#include "documents/qt_image_decoder.h"
#include "kinds/document_kind.h"
#include "report/pdf_output.h"
#include "report/png_stream.h"
#include "report/receipt_page.h"
#include "report/table_pages.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>

#include <algorithm>
#include <array>
#include <optional>

namespace fennick {

namespace {

// A picture that is decoded here is held as pixels and once more while it is stored.
constexpr PictureLimits losslessLimits{.pixels = 80'000'000, .memory = 640'000'000};

constexpr int highQuality = 95;

// An image in the report, and how it has to be turned.
struct StoredImage {
    int number = 0; // its object
    QSize size;     // in pixels, as stored
    int orientation = 1;
};

using StoredResult = std::expected<StoredImage, DocumentError>;

QByteArray imageEntries(QSize size, int bits) {
    return "/Type/XObject/Subtype/Image/Width " + QByteArray::number(size.width()) + "/Height " +
           QByteArray::number(size.height()) + "/BitsPerComponent " + QByteArray::number(bits);
}

QByteArray deviceColours(int channels) {
    switch (channels) {
    case 1:
        return "/DeviceGray";
    case 3:
        return "/DeviceRGB";
    default:
        return "/DeviceCMYK";
    }
}

// Whether the profile is one for so many channels, by the name of colours that stands in its header.
bool isProfileFor(const QByteArray &profile, int channels) {
    constexpr qsizetype leastSize = 128;
    constexpr qsizetype placeOfName = 16;
    const QByteArrayView name = channels == 1 ? "GRAY" : channels == 3 ? "RGB " : "CMYK";
    return profile.size() > leastSize && QByteArrayView(profile).sliced(placeOfName, name.size()) == name;
}

QByteArray coloursOf(const JpegFacts &facts, PdfOutput &output) {
    QByteArray device = deviceColours(facts.channels);
    if (!isProfileFor(facts.iccProfile, facts.channels)) {
        return device;
    }
    const int profile = output.addStream("/N " + QByteArray::number(facts.channels) + "/Alternate" + device,
                                         facts.iccProfile);
    return "[/ICCBased " + pdfReference(profile) + ']';
}

StoredImage storedJpeg(const QByteArray &file, const JpegFacts &facts, PdfOutput &output) {
    const QSize size(facts.width, facts.height);
    QByteArray entries =
        imageEntries(size, 8) + "/ColorSpace" + coloursOf(facts, output) + "/Filter/DCTDecode";
    if (facts.isRgb && !facts.hasAdobeMark) {
        entries += "/DecodeParms<</ColorTransform 0>>";
    }
    if (facts.channels == 4 && facts.hasAdobeMark) {
        entries += "/Decode[1 0 1 0 1 0 1 0]";
    }
    return {.number = output.addStream(entries, file), .size = size, .orientation = facts.orientation};
}

StoredImage storedPng(const PngStream &png, int orientation, PdfOutput &output) {
    const QSize size(static_cast<int>(png.width), static_cast<int>(png.height));
    QByteArray colours = deviceColours(png.channels);
    if (!png.palette.isEmpty()) {
        colours = "[/Indexed/DeviceRGB " + QByteArray::number(png.palette.size() / 3 - 1) + '<' +
                  png.palette.toHex() + ">]";
    }
    const QByteArray entries = imageEntries(size, png.bits) + "/ColorSpace" + colours +
                               "/Filter/FlateDecode/DecodeParms<</Predictor 15/Colors " +
                               QByteArray::number(png.channels) + "/BitsPerComponent " +
                               QByteArray::number(png.bits) + "/Columns " + QByteArray::number(size.width()) +
                               ">>";
    return {.number = output.addStream(entries, png.pixels), .size = size, .orientation = orientation};
}

// Qt's own PNG of opaque pixels is one that a PDF can hold.
std::optional<PngStream> storedPixels(QImage image) {
    image.convertTo(image.allGray() ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    image.setColorSpace({});
    image.setDotsPerMeterX(0);
    image.setDotsPerMeterY(0);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "PNG")) {
        return std::nullopt;
    }
    image = {};
    return pngStream(buffer.data());
}

StoredResult losslessImage(const QByteArray &file, PdfOutput &output) {
    auto decoded = decodedLossless(file, losslessLimits);
    if (!decoded) {
        return std::unexpected(decoded.error());
    }
    const bool isPng = kindOfContent(file) == DocumentKind::png;
    std::optional<PngStream> stream = isPng ? pngStream(file) : std::nullopt;
    if (!stream) {
        stream = storedPixels(std::move(decoded->image));
    }
    if (!stream) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    return storedPng(*stream, decoded->orientation, output);
}

StoredResult encodedAgain(const QByteArray &file, PdfOutput &output) {
    auto decoded = decodedPicture(file, converterLimits);
    if (!decoded) {
        return std::unexpected(decoded.error());
    }
    const QSize size(decoded->picture.width, decoded->picture.height);
    auto picture = scaledPicture(std::move(decoded->picture), size);
    const auto jpeg =
        picture ? encodedJpeg(std::move(*picture), decoded->iccProfile, highQuality) : std::nullopt;
    const auto facts = jpeg ? jpegFacts(*jpeg) : std::nullopt;
    if (!facts) {
        return std::unexpected(DocumentError::imageTooLarge);
    }
    StoredImage stored = storedJpeg(*jpeg, *facts, output);
    stored.orientation = decoded->orientation;
    return stored;
}

// The whole picture is decoded once: a file that is cut off must not pass for a receipt.
StoredResult jpegImage(const QByteArray &file, PdfOutput &output) {
    const auto facts = jpegFacts(file);
    if (!facts) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    const bool isUsual = facts->channels == 1 || facts->channels == 3 || facts->channels == 4;
    if (facts->isArithmetic || !isUsual) {
        return encodedAgain(file, output);
    }
    if (const auto decoded = decodedJpeg(file, converterLimits); !decoded) {
        return std::unexpected(decoded.error());
    }
    return storedJpeg(file, *facts, output);
}

bool isLosslessWebp(const QByteArray &file) {
    constexpr qsizetype placeOfFirstChunk = 12;
    const QByteArrayView first = QByteArrayView(file).sliced(std::min(placeOfFirstChunk, file.size()));
    return first.startsWith("VP8L") ||
           (first.startsWith("VP8X") && file.contains("VP8L") && !file.contains("VP8 "));
}

StoredResult storedImage(const QByteArray &file, PdfOutput &output) {
    switch (kindOfContent(file).value_or(DocumentKind::pdf)) {
    case DocumentKind::jpeg:
        return jpegImage(file, output);
    case DocumentKind::png:
    case DocumentKind::gif:
    case DocumentKind::bmp:
        return losslessImage(file, output);
    case DocumentKind::webp:
        return isLosslessWebp(file) ? losslessImage(file, output) : encodedAgain(file, output);
    case DocumentKind::heif:
        return encodedAgain(file, output);
    case DocumentKind::pdf:
        break;
    }
    return std::unexpected(DocumentError::unreadableImage);
}

// The size on the page: that of a sheet of A4 at most, and never larger than a pixel a point.
QSizeF pageSizeOf(QSize upright) {
    const QSizeF sheet = upright.width() > upright.height() ? reportPageSize.transposed() : reportPageSize;
    const QSizeF size(upright);
    const double scale = std::min({1.0, sheet.width() / size.width(), sheet.height() / size.height()});
    return size * scale;
}

// From the unit square of the image as it is stored to the upright page, by the values of the EXIF tag.
QByteArray placement(QSizeF page, int orientation) {
    const double w = page.width();
    const double h = page.height();
    const std::array<std::array<double, 6>, 8> matrices{{{w, 0, 0, h, 0, 0},
                                                         {-w, 0, 0, h, w, 0},
                                                         {-w, 0, 0, -h, w, h},
                                                         {w, 0, 0, -h, 0, h},
                                                         {0, -h, -w, 0, w, h},
                                                         {0, -h, w, 0, 0, h},
                                                         {0, h, w, 0, 0, 0},
                                                         {0, h, -w, 0, w, 0}}};
    QByteArray text;
    for (const double number : matrices.at(static_cast<std::size_t>(std::clamp(orientation, 1, 8) - 1))) {
        text += pdfNumber(number) + ' ';
    }
    return text;
}

} // namespace

std::expected<QList<int>, DocumentError> writePictureReceipt(const QByteArray &file, int receipt,
                                                             PdfOutput &output, ReceiptPageWriter &writer) {
    const StoredResult image = storedImage(file, output);
    if (!image) {
        return std::unexpected(image.error());
    }
    constexpr int firstOnItsSide = 5;
    const QSize upright = image->orientation >= firstOnItsSide ? image->size.transposed() : image->size;
    const QSizeF size = pageSizeOf(upright);
    // The margin's line needs some width.
    constexpr double leastWidth = 240;
    const double width = std::max(size.width(), leastWidth);
    const double left = (width - size.width()) / 2;
    const int drawing = output.addStream({}, "q 1 0 0 1 " + pdfNumber(left) + " 0 cm " +
                                                 placement(size, image->orientation) + "cm /Receipt Do Q");
    const ReceiptPage page{.visible = QRectF(0, 0, width, size.height()),
                           .quarterTurns = 0,
                           .contents = pdfReference(drawing),
                           .states = {},
                           .resources = {},
                           .xObjects = {{"/Receipt", pdfReference(image->number)}},
                           .entries = {}};
    return QList<int>{writer.write(page, receipt)};
}

} // namespace fennick
