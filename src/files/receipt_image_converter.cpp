#include "files/receipt_image_converter.h"

#include "files/jpeg_writer.h"
#include "files/orientation.h"
#include "files/pdf_pages.h"
#include "files/picture_file.h"
#include "files/plane_scaling.h"
#include "files/private_folder.h"
#include "text/characters.h"
#include "text/path_text.h"
#include "text/unsafe_characters.h"

#include <exception>
#include <utility>

namespace fennick {

namespace {

using Kind = ConverterError::Kind;
using Result = std::expected<QStringList, ConverterError>;

constexpr int longestSide = 3000;

const QStringList imageExtensions{u"png"_qs, u"jpg"_qs, u"jpeg"_qs, u"heic"_qs, u"webp"_qs};

std::unexpected<ConverterError> failure(Kind kind, const QString &payload = {}) {
    return std::unexpected(ConverterError{kind, payload});
}

QString usableBaseName(const QString &baseName) {
    const QString usable = withoutUnsafeCharacters(baseName);
    return usable.isEmpty() ? u"receipt"_qs : usable;
}

QString pageName(const QString &base, int page, int pageCount) {
    return pageCount == 1 ? base + u".jpg"_qs : base + u" (p%1).jpg"_qs.arg(page + 1);
}

std::expected<void, ConverterError> writePage(PdfPages &pages, int page, const QString &path) {
    QImage image = pages.render(page);
    if (image.isNull()) {
        return failure(Kind::renderFailed);
    }
    YuvPicture picture = yuvPictureFromRgb(image, Chroma::quartered);
    image = {};
    if (picture.planes.empty()) {
        return failure(Kind::renderFailed);
    }
    if (!writeJpeg(std::move(picture), {}, path)) {
        return failure(Kind::encodeFailed);
    }
    return {};
}

Result convertPdf(const QString &filePath, const QString &folder, const QString &base) {
    const std::unique_ptr<PdfPages> pages = PdfPages::open(filePath);
    if (!pages) {
        return failure(Kind::pdfLoad);
    }
    QStringList paths;
    for (int page = 0; page < pages->count(); ++page) {
        const QString path = folder + u'/' + pageName(base, page, pages->count());
        if (const auto written = writePage(*pages, page, path); !written) {
            return std::unexpected(written.error());
        }
        paths.append(path);
    }
    if (paths.isEmpty()) {
        return failure(Kind::renderFailed);
    }
    return paths;
}

Result convertImage(const QString &filePath, const QString &path) {
    std::optional<StoredPicture> stored = readPictureFile(filePath);
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

QString ConverterError::errorDescription() const {
    switch (kind) {
    case Kind::unsupported:
        return u"Unsupported file type: ."_qs + payload;
    case Kind::pdfLoad:
        return u"Could not open PDF"_qs;
    case Kind::renderFailed:
        return u"Could not render page image"_qs;
    case Kind::encodeFailed:
        return u"Could not encode JPEG"_qs;
    case Kind::platform:
        break;
    }
    return payload;
}

Result ReceiptImageConverter::convertToJPEGs(const QString &filePath, const QString &baseName) {
    const auto folder = createPrivateFolder();
    return folder ? convertInto(*folder, filePath, baseName) : failure(Kind::platform, folder.error());
}

Result ReceiptImageConverter::convertInto(const QString &folder, const QString &filePath,
                                          const QString &baseName) {
    const QString extension = lowerCased(pathExtension(filePath));
    const QString base = usableBaseName(baseName);
    const bool isPdf = extension == u"pdf";
    if (!isPdf && !imageExtensions.contains(extension)) {
        return failure(Kind::unsupported, extension);
    }
    // No memory for a large picture is a failure of this receipt, not of the program.
    try {
        return isPdf ? convertPdf(filePath, folder, base)
                     : convertImage(filePath, folder + u'/' + base + u".jpg"_qs);
    } catch (const std::exception &) {
        return failure(Kind::renderFailed);
    }
}

} // namespace fennick
