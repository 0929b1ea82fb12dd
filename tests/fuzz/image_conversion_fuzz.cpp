// Any bytes that a picture file may hold, through conversion. What is in them tells which format they are.
#include "fuzz/conversion.h"

#include <QBuffer>
#include <QImageReader>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

// Larger pictures take as long as a hundred small ones and are decoded by the same code.
constexpr qint64 largestPixelCount = 1'000'000;

bool isSmall(QByteArray content) {
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    const QSize size = QImageReader(&buffer).size();
    return !size.isValid() || qint64(size.width()) * size.height() <= largestPixelCount;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz::prepareConversion();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray content(reinterpret_cast<const char *>(data), qsizetype(size));
    if (isSmall(content)) {
        fuzz::checkConversion(u"receipt.jpg"_s, content, [](QSize picture) {
            return picture.width() <= 3000 && picture.height() <= 3000;
        });
    }
    return 0;
}
