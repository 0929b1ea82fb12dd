#include "engine/recognition/grey_picture.h"

#include <allheaders.h>

#include <cstddef>
#include <span>

namespace fennick::engine {

namespace {

// It reports oddities of pictures on the terminal, to nobody's use. The setting is the whole process's.
void silenceLeptonica() {
    static const int previous = setMsgSeverity(L_SEVERITY_NONE);
    Q_UNUSED(previous)
}

// Leptonica packs four pixels to a word, the leftmost in the highest byte.
void packRow(std::span<const uchar> pixels, std::span<l_uint32> words) {
    for (size_t x = 0; x < pixels.size(); ++x) {
        words[x / 4] |= static_cast<l_uint32>(pixels[x]) << (8 * (3 - x % 4));
    }
}

} // namespace

void GreyPictureDeleter::operator()(Pix *picture) const {
    pixDestroy(&picture);
}

GreyPicture greyPicture(const QImage &picture) {
    silenceLeptonica();
    if (picture.isNull()) {
        return {};
    }
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    GreyPicture packed(pixCreate(grey.width(), grey.height(), 8));
    if (!packed) {
        return {};
    }
    const auto width = static_cast<size_t>(grey.width());
    const auto wordsPerRow = static_cast<size_t>(pixGetWpl(packed.get()));
    const std::span words(pixGetData(packed.get()), wordsPerRow * static_cast<size_t>(grey.height()));
    for (int y = 0; y < grey.height(); ++y) {
        packRow({grey.constScanLine(y), width},
                words.subspan(static_cast<size_t>(y) * wordsPerRow, wordsPerRow));
    }
    return packed;
}

} // namespace fennick::engine
