// Any bytes that a PDF file may hold, through conversion.
#include "documents/pdf_checker.h"
#include "fuzz/conversion.h"
#include "fuzz/invariant.h"

#include <cmath>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

// Larger and longer documents take as long as a hundred small ones and are rendered by the same code.
constexpr double largestArea = 500.0 * 500.0; // square points over all pages
constexpr size_t mostPages = 20;

bool isSmall(const QByteArray &content) {
    const auto document = checkedPdf(content, {.wholeMediaBoxes = true, .annotations = true});
    if (!document) {
        return true;
    }
    double area = 0;
    for (const CheckedPage &page : document->pages) {
        const QSizeF size = page.mediaBox;
        fuzz::require(std::isfinite(size.width()) && std::isfinite(size.height()), "a page has a size");
        fuzz::require(size.width() > 0 && size.height() > 0, "a page has an area");
        area += size.width() * size.height();
    }
    return area <= largestArea && document->pages.size() <= mostPages;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz::prepareConversion();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray content(reinterpret_cast<const char *>(data), qsizetype(size));
    if (isSmall(content)) {
        fuzz::checkConversion(u"receipt.pdf"_s, content, [](QSize) { return true; });
    }
    return 0;
}
