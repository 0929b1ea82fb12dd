#include "engine/recognition/letter_size.h"

#include "engine/recognition/leptonica_owners.h"

#include <QList>

#include <algorithm>

namespace fennick::engine {

namespace {

// Of 256: low enough to leave paper out, high enough that the print of a tired ribbon stays in one piece.
constexpr int letterBelow = 180;
constexpr int lowestLetter = 6;
constexpr int fewestLetters = 8;

QList<QRect> marks(const GreyPicture &picture) {
    const GreyPicture ink(pixThresholdToBinary(picture.get(), letterBelow));
    const GreyPicture inner(ink ? pixRemoveBorderConnComps(ink.get(), 8) : nullptr);
    const GreyPicture closed(inner ? pixCloseSafeBrick(nullptr, inner.get(), 2, 2) : nullptr);
    const BoxList boxes(closed ? pixConnCompBB(closed.get(), 8) : nullptr);
    QList<QRect> found;
    for (int index = 0; boxes && index < boxaGetCount(boxes.get()); ++index) {
        found.append(boxAt(boxes, index));
    }
    return found;
}

// Rules, logos, punctuation and dust are out of proportion.
bool hasLetterShape(const QRect &mark, int pageWidth) {
    const int largest = std::max(pageWidth / 6, lowestLetter);
    return mark.height() >= lowestLetter && mark.height() <= largest && mark.width() >= 2 &&
           mark.width() <= largest && 7 * mark.width() >= mark.height() && mark.width() <= 4 * mark.height();
}

// The height at which half of all heights, added up from the smallest, is reached.
int weightedMedian(QList<int> heights) {
    std::ranges::sort(heights);
    qint64 total = 0;
    for (const int height : std::as_const(heights)) {
        total += height;
    }
    qint64 reached = 0;
    for (const int height : std::as_const(heights)) {
        reached += height;
        if (2 * reached > total) {
            return height;
        }
    }
    return 0;
}

} // namespace

PrintedArea printedArea(const GreyPicture &picture) {
    if (!picture) {
        return {};
    }
    const int pageWidth = pixGetWidth(picture.get());
    const QList<QRect> found = marks(picture);
    QList<int> heights;
    for (const QRect &mark : found) {
        if (hasLetterShape(mark, pageWidth)) {
            heights.append(mark.height());
        }
    }
    if (heights.size() < fewestLetters) {
        return {};
    }
    PrintedArea area{.letterHeight = weightedMedian(heights), .box = {}};
    for (const QRect &mark : found) {
        if (2 * mark.height() >= area.letterHeight && mark.height() <= 4 * area.letterHeight &&
            mark.width() <= pageWidth / 6) {
            area.box |= mark;
        }
    }
    return area;
}

} // namespace fennick::engine
