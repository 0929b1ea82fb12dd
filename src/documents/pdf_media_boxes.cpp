#include "documents/pdf_media_boxes.h"

#include "documents/pdf_page_tree.h"

#include <QFile>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <exception>

namespace fennick {

namespace {

using Box = std::array<double, 4>;

// US Letter, which PDF readers take for a page without a usable media box.
constexpr Box fallbackBox{0, 0, 612, 792};

constexpr double mostDegrees = 1e9; // whatever is written, it must fit an int

Box mediaBoxOf(QPDFPageObjectHelper &page) {
    QPDFObjectHandle array = page.getAttribute("/MediaBox", false);
    Box box{};
    if (!array.isArray() || array.getArrayNItems() != static_cast<int>(box.size())) {
        return fallbackBox;
    }
    for (std::size_t index = 0; index < box.size(); ++index) {
        QPDFObjectHandle number = array.getArrayItem(static_cast<int>(index));
        if (!number.isNumber() || !std::isfinite(number.getNumericValue())) {
            return fallbackBox;
        }
        box[index] = number.getNumericValue();
    }
    if (box[0] > box[2]) {
        std::swap(box[0], box[2]);
    }
    if (box[1] > box[3]) {
        std::swap(box[1], box[3]);
    }
    return box[0] < box[2] && box[1] < box[3] ? box : fallbackBox;
}

bool standsOnItsSide(QPDFPageObjectHelper &page) {
    QPDFObjectHandle rotation = page.getAttribute("/Rotate", false);
    if (!rotation.isNumber() || std::abs(rotation.getNumericValue()) > mostDegrees) {
        return false;
    }
    return static_cast<int>(rotation.getNumericValue()) / 90 % 2 != 0; // also when it is written as 90.0
}

QPDFObjectHandle pdfArray(const Box &box) {
    return QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(box[0], box[1], box[2], box[3]));
}

QByteArray rewritten(QPDF &document) {
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setPreserveEncryption(false);
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

MediaBoxPdf cropped(QPDF &document) {
    MediaBoxPdf result;
    for (QPDFPageObjectHelper &page : QPDFPageDocumentHelper(document).getAllPages()) {
        const Box box = mediaBoxOf(page);
        page.getObjectHandle().replaceKey("/MediaBox", pdfArray(box));
        page.getObjectHandle().replaceKey("/CropBox", pdfArray(box));
        const QSizeF size(box[2] - box[0], box[3] - box[1]);
        result.pageSizes.push_back(standsOnItsSide(page) ? size.transposed() : size);
    }
    if (!result.pageSizes.empty()) {
        result.bytes = rewritten(document);
    }
    return result;
}

} // namespace

std::optional<MediaBoxPdf> readWithMediaBoxes(QFile &file) {
    const int descriptor = ::dup(file.handle()); // the library closes what it is given
    std::FILE *const stream = descriptor < 0 ? nullptr : ::fdopen(descriptor, "rb");
    if (stream == nullptr) {
        return std::nullopt;
    }
    // The library reports every failure by an exception; none goes further than this.
    try {
        QPDF document;
        document.setSuppressWarnings(true);
        document.processFile("receipt", stream, true);
        if (!hasReasonablePageTree(document)) {
            return std::nullopt;
        }
        return cropped(document);
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

} // namespace fennick
