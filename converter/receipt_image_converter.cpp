#include "converter/receipt_image_converter.h"

#include "conversion/private_folder.h"
#include "converter/jpeg_writer.h"
#include "converter/pages_ahead.h"
#include "documents/pdf_pages.h"
#include "documents/picture_decoder.h"
#include "documents/picture_limits.h"
#include "documents/plane_scaling.h"
#include "documents/upright_picture.h"
#include "kinds/document_kind.h"
#include "platform/regular_file.h"
#include "text/characters.h"
#include "text/path_text.h"
#include "text/unsafe_characters.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

using Kind = ConverterError::Kind;
using Result = std::expected<QStringList, ConverterError>;

constexpr int longestSide = 3000;

// PDF points are 1/72 inch, the pictures have 200 pixels an inch.
constexpr double pixelsPerPoint = 200.0 / 72.0;

std::unexpected<ConverterError> failure(Kind kind, const QString &payload = {}) {
    return std::unexpected(ConverterError{kind, payload});
}

bool isPdf(const QString &fileName) {
    return kindOfName(fileName) == DocumentKind::pdf;
}

// Nothing for a file of a kind that is converted.
std::optional<ConverterError> refusal(const QString &fileName) {
    if (kindOfName(fileName)) {
        return std::nullopt;
    }
    return ConverterError{Kind::unsupported, lowerCased(pathExtension(fileName))};
}

QString usableBaseName(const QString &baseName) {
    const QString usable = withoutUnsafeCharacters(baseName);
    return usable.isEmpty() ? u"receipt"_s : usable;
}

QString pageName(const QString &base, int page, int pageCount) {
    return pageCount == 1 ? base + u".jpg"_s : base + u" (p%1).jpg"_s.arg(page + 1);
}

// Null for a page that is too large.
QSize pixelSize(QSizeF points) {
    const double width = std::max(1.0, std::round(points.width() * pixelsPerPoint));
    const double height = std::max(1.0, std::round(points.height() * pixelsPerPoint));
    if (width * height > static_cast<double>(converterLimits.pixels)) {
        return {};
    }
    return QSize(static_cast<int>(width), static_cast<int>(height));
}

std::expected<void, ConverterError> writePage(PdfPages &pages, int page, const QString &path) {
    const QSize size = pixelSize(pages.page(page).mediaBox);
    QImage image = size.isEmpty() ? QImage() : pages.render(page, size);
    if (image.isNull()) {
        return failure(Kind::renderFailed);
    }
    YuvPicture picture = yuvPictureFromRgb(image);
    image = {};
    if (picture.planes.empty()) {
        return failure(Kind::renderFailed);
    }
    if (!writeJpeg(std::move(picture), {}, path)) {
        return failure(Kind::encodeFailed);
    }
    return {};
}

Result convertPdf(QFile &file, const QString &folder, const QString &base, int processes) {
    const auto opened = PdfPages::open(readWhole(file).value_or(QByteArray()),
                                       {.wholeMediaBoxes = true, .annotations = true});
    if (!opened) {
        return failure(opened.error() == DocumentError::emptyPdf ? Kind::renderFailed : Kind::pdfLoad);
    }
    PdfPages &pages = **opened;
    const int count = pages.count();
    const auto path = [&](int page) {
        return joinedPath(folder, pageName(base, page, count));
    };
    std::vector<bool> written(static_cast<std::size_t>(count));
    if (processes > 1 && count > 1) {
        written = writePagesAhead(count, processes,
                                  [&](int page) { return writePage(pages, page, path(page)).has_value(); });
    }
    QStringList paths;
    for (int page = 0; page < count; ++page) {
        if (!written[static_cast<std::size_t>(page)]) {
            if (const auto now = writePage(pages, page, path(page)); !now) {
                return std::unexpected(now.error());
            }
        }
        paths.append(path(page));
    }
    return paths;
}

Result convertImage(QFile &file, const QString &path) {
    auto stored = decodedPicture(readWhole(file).value_or(QByteArray()), converterLimits);
    if (!stored) {
        return failure(Kind::renderFailed);
    }
    const QSize size = fittedSize(QSize(stored->picture.width, stored->picture.height), longestSide);
    std::optional<YuvPicture> scaled = scaledPicture(std::move(stored->picture), size);
    if (!scaled) {
        return failure(Kind::renderFailed);
    }
    YuvPicture upright = uprightPicture(std::move(*scaled), stored->orientation);
    if (!writeJpeg(std::move(upright), stored->iccProfile, path)) {
        return failure(Kind::encodeFailed);
    }
    return QStringList{path};
}

} // namespace

Result ReceiptImageConverter::convertToJPEGs(const QString &filePath, const QString &baseName) {
    const auto folder = createPrivateFolder();
    return folder ? convertInto(*folder, filePath, baseName)
                  : failure(Kind::platform, folder.error().description());
}

Result ReceiptImageConverter::convertInto(const QString &folder, const QString &filePath,
                                          const QString &baseName, int processes) {
    if (const auto refused = refusal(filePath)) {
        return std::unexpected(*refused);
    }
    const OpenedFile file = openRegularFile(filePath);
    if (!file) {
        return failure(isPdf(filePath) ? Kind::pdfLoad : Kind::renderFailed);
    }
    return convertInto(folder, **file, filePath, baseName, processes);
}

Result ReceiptImageConverter::convertInto(const QString &folder, QFile &file, const QString &fileName,
                                          const QString &baseName, int processes) {
    if (const auto refused = refusal(fileName)) {
        return std::unexpected(*refused);
    }
    const QString base = usableBaseName(baseName);
    // No memory for a large picture is a failure of this receipt, not of the program.
    try {
        return isPdf(fileName) ? convertPdf(file, folder, base, processes)
                               : convertImage(file, joinedPath(folder, base + u".jpg"_s));
    } catch (const std::exception &) {
        return failure(Kind::renderFailed);
    }
}

} // namespace fennick
