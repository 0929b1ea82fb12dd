#include "documents/pdf_media_box.h"

#include <qpdf/QPDFPageObjectHelper.hh>

#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace fennick {

namespace {

using Box = std::array<double, 4>;

constexpr Box usLetter{0, 0, 612, 792};

constexpr double mostDegrees = 1e9; // whatever is written, it must fit an int

Box mediaBoxOf(QPDFPageObjectHelper &page) {
    QPDFObjectHandle array = page.getAttribute("/MediaBox", false);
    Box box{};
    if (!array.isArray() || array.getArrayNItems() != static_cast<int>(box.size())) {
        return usLetter;
    }
    for (std::size_t index = 0; index < box.size(); ++index) {
        QPDFObjectHandle number = array.getArrayItem(static_cast<int>(index));
        if (!number.isNumber() || !std::isfinite(number.getNumericValue())) {
            return usLetter;
        }
        box[index] = number.getNumericValue();
    }
    if (box[0] > box[2]) {
        std::swap(box[0], box[2]);
    }
    if (box[1] > box[3]) {
        std::swap(box[1], box[3]);
    }
    return box[0] < box[2] && box[1] < box[3] ? box : usLetter;
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

} // namespace

QSizeF uprightMediaBox(QPDFPageObjectHelper &page) {
    const Box box = mediaBoxOf(page);
    const QSizeF size(box[2] - box[0], box[3] - box[1]);
    return standsOnItsSide(page) ? size.transposed() : size;
}

void cropToMediaBox(QPDFPageObjectHelper &page) {
    const Box box = mediaBoxOf(page);
    page.getObjectHandle().replaceKey("/MediaBox", pdfArray(box));
    page.getObjectHandle().replaceKey("/CropBox", pdfArray(box));
}

} // namespace fennick
