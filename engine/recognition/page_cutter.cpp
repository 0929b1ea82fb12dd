#include "engine/recognition/page_cutter.h"

#include "engine/recognition/leptonica_owners.h"

#include <QList>

#include <algorithm>

namespace fennick::engine {

namespace {

constexpr int printBelow = 150;
// Where a heading may end, in heights of a letter and in shares of the page.
constexpr int shortestHeading = 8;
constexpr int longestHeading = 20;
constexpr double largestShare = 0.4;

QList<int> inkPerRow(const GreyPicture &page) {
    const GreyPicture ink(pixThresholdToBinary(page.get(), printBelow));
    const NumberList counts(ink ? pixCountPixelsByRow(ink.get(), nullptr) : nullptr);
    QList<int> rows;
    for (int row = 0; counts && row < numaGetCount(counts.get()); ++row) {
        int count = 0;
        numaGetIValue(counts.get(), row, &count);
        rows.append(count);
    }
    return rows;
}

// The middle of the widest run of rows without more than specks of ink; 0 = none.
int widestGap(const QList<int> &rows, int from, int to, int specks) {
    int best = 0;
    int bestLength = 0;
    int length = 0;
    for (int row = from; row < to; ++row) {
        length = rows[row] <= specks ? length + 1 : 0;
        if (length > bestLength) {
            bestLength = length;
            best = row - length / 2;
        }
    }
    return best;
}

PageStrip strip(const GreyPicture &page, int top, int bottom) {
    const BoxPointer box(boxCreate(0, top, pixGetWidth(page.get()), bottom - top));
    return {GreyPicture(box ? pixClipRectangle(page.get(), box.get(), nullptr) : nullptr), top};
}

} // namespace

std::vector<PageStrip> headingAndRest(const GreyPicture &page, int letterHeight) {
    std::vector<PageStrip> strips;
    if (!page) {
        return strips;
    }
    const int height = pixGetHeight(page.get());
    const QList<int> rows = inkPerRow(page);
    const int last = std::min(longestHeading * letterHeight, static_cast<int>(largestShare * height));
    const int cut = rows.size() == height ? widestGap(rows, std::min(shortestHeading * letterHeight, last),
                                                      last, letterHeight / 8)
                                          : 0;
    if (cut > 0) {
        strips.push_back(strip(page, 0, cut));
    }
    strips.push_back(strip(page, cut, height));
    return strips;
}

} // namespace fennick::engine
