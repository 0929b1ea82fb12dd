#include "documents/pdf_media_box.h"

#include <qpdf/QPDFPageObjectHelper.hh>

#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

namespace fennick {

namespace {

using Box = std::array<double, 4>;

constexpr Box usLetter{0, 0, 612, 792};

constexpr double mostDegrees = 1e9; // whatever is written, it must fit an int

// Nothing for a page without a usable box under this key.
std::optional<Box> boxOf(QPDFPageObjectHelper &page, const char *key) {
    QPDFObjectHandle array = page.getAttribute(key, false);
    Box box{};
    if (!array.isArray() || array.getArrayNItems() != static_cast<int>(box.size())) {
        return std::nullopt;
    }
    for (std::size_t index = 0; index < box.size(); ++index) {
        QPDFObjectHandle number = array.getArrayItem(static_cast<int>(index));
        if (!number.isNumber() || !std::isfinite(number.getNumericValue())) {
            return std::nullopt;
        }
        box[index] = number.getNumericValue();
    }
    if (box[0] > box[2]) {
        std::swap(box[0], box[2]);
    }
    if (box[1] > box[3]) {
        std::swap(box[1], box[3]);
    }
    return box[0] < box[2] && box[1] < box[3] ? std::optional(box) : std::nullopt;
}

Box mediaBoxOf(QPDFPageObjectHelper &page) {
    return boxOf(page, "/MediaBox").value_or(usLetter);
}

QRectF rectOf(const Box &box) {
    return QRectF(QPointF(box[0], box[1]), QPointF(box[2], box[3]));
}

QPDFObjectHandle pdfArray(const Box &box) {
    return QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(box[0], box[1], box[2], box[3]));
}

} // namespace

QSizeF uprightMediaBox(QPDFPageObjectHelper &page) {
    const Box box = mediaBoxOf(page);
    const QSizeF size(box[2] - box[0], box[3] - box[1]);
    return quarterTurns(page) % 2 != 0 ? size.transposed() : size;
}

int quarterTurns(QPDFPageObjectHelper &page) {
    QPDFObjectHandle rotation = page.getAttribute("/Rotate", false);
    if (!rotation.isNumber() || std::abs(rotation.getNumericValue()) > mostDegrees) {
        return 0;
    }
    const int turns =
        static_cast<int>(rotation.getNumericValue()) / 90 % 4; // also when it is written as 90.0
    return (turns + 4) % 4;
}

QRectF visibleBox(QPDFPageObjectHelper &page) {
    const QRectF media = rectOf(mediaBoxOf(page));
    const auto crop = boxOf(page, "/CropBox");
    const QRectF visible = crop ? media.intersected(rectOf(*crop)) : media;
    return visible.isEmpty() ? media : visible;
}

void cropToMediaBox(QPDFPageObjectHelper &page) {
    const Box box = mediaBoxOf(page);
    page.getObjectHandle().replaceKey("/MediaBox", pdfArray(box));
    page.getObjectHandle().replaceKey("/CropBox", pdfArray(box));
}

} // namespace fennick
