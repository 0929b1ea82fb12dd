#include "engine/recognition/light_sheet.h"

#include "engine/recognition/leptonica_owners.h"

#include <algorithm>

namespace fennick::engine {

namespace {

constexpr double longestSide = 480;
// Lines of print are closer together than this, gaps between two sheets on a table rarely.
constexpr int printCovered = 9;
// Grey levels that a sheet's paper is lighter than what it lies on.
constexpr float leastContrast = 45;

// The grey level between paper and table; none when the picture is not of two such things.
std::optional<int> levelBetween(const GreyPicture &picture) {
    const NumberList histogram(pixGetGrayHistogram(picture.get(), 1));
    int level = 0;
    float darkMean = 0;
    float lightMean = 0;
    if (!histogram || numaSplitDistribution(histogram.get(), 0, &level, &darkMean, &lightMean, nullptr,
                                            nullptr, nullptr) != 0) {
        return std::nullopt;
    }
    return lightMean - darkMean >= leastContrast ? std::optional(level) : std::nullopt;
}

// What is light in `picture`, without gleams beside the paper and with the print on it.
GreyPicture lightParts(const GreyPicture &picture, int level) {
    const GreyPicture dark(pixThresholdToBinary(picture.get(), level));
    const GreyPicture light(dark ? pixInvert(nullptr, dark.get()) : nullptr);
    const GreyPicture opened(light ? pixOpenBrick(nullptr, light.get(), 3, 3) : nullptr);
    return GreyPicture(opened ? pixCloseSafeBrick(nullptr, opened.get(), printCovered, printCovered)
                              : nullptr);
}

// The largest of the connected parts of `parts`, its holes filled, in a picture of the same size.
GreyPicture largestPart(const GreyPicture &parts) {
    Pixa *found = nullptr;
    const BoxList boxes(pixConnComp(parts.get(), &found, 4));
    const PictureList pictures(found);
    int best = -1;
    int bestArea = 0;
    for (int index = 0; pictures && index < pixaGetCount(pictures.get()); ++index) {
        const GreyPicture part(pixaGetPix(pictures.get(), index, L_CLONE));
        int area = 0;
        if (pixCountPixels(part.get(), &area, nullptr) == 0 && area > bestArea) {
            bestArea = area;
            best = index;
        }
    }
    if (best < 0) {
        return {};
    }
    GreyPicture sheet(pixCreateTemplate(parts.get()));
    const GreyPicture part(pixaGetPix(pictures.get(), best, L_CLONE));
    const QRect place = boxAt(boxes, best);
    pixRasterop(sheet.get(), place.x(), place.y(), place.width(), place.height(), PIX_SRC, part.get(), 0, 0);
    const GreyPicture holes(pixHolesByFilling(sheet.get(), 8));
    if (holes) {
        pixOr(sheet.get(), sheet.get(), holes.get());
    }
    return sheet;
}

QList<QPointF> outlineOf(const LightSheet &sheet) {
    QList<QPointF> outline;
    const int width = sheet.size.width();
    const int height = sheet.size.height();
    // The edge of a pixel, not its middle, is where the sheet ends.
    for (int y = 0; y < height; ++y) {
        const auto row = sheet.pixels.cbegin() + static_cast<qsizetype>(y) * width;
        const auto first = std::find(row, row + width, true);
        if (first == row + width) {
            continue;
        }
        const auto last = std::find(std::reverse_iterator(row + width), std::reverse_iterator(row), true);
        outline << QPointF(static_cast<double>(first - row), y + 0.5)
                << QPointF(static_cast<double>(last.base() - row), y + 0.5);
    }
    for (int x = 0; x < width; ++x) {
        int first = 0;
        while (first < height && !sheet.contains(x, first)) {
            ++first;
        }
        if (first == height) {
            continue;
        }
        int last = height;
        while (!sheet.contains(x, last - 1)) {
            --last;
        }
        outline << QPointF(x + 0.5, first) << QPointF(x + 0.5, last);
    }
    return outline;
}

} // namespace

std::optional<LightSheet> largestLightSheet(const GreyPicture &picture) {
    if (!picture) {
        return std::nullopt;
    }
    const int longer = std::max(pixGetWidth(picture.get()), pixGetHeight(picture.get()));
    const auto factor = static_cast<float>(std::min(1.0, longestSide / longer));
    const GreyPicture small(pixScaleAreaMap(picture.get(), factor, factor));
    const std::optional<int> level = small ? levelBetween(small) : std::nullopt;
    const GreyPicture parts = level ? lightParts(small, *level) : GreyPicture();
    const GreyPicture largest = parts ? largestPart(parts) : GreyPicture();
    if (!largest) {
        return std::nullopt;
    }

    LightSheet sheet{.size = QSize(pixGetWidth(largest.get()), pixGetHeight(largest.get())),
                     .scale = static_cast<double>(factor),
                     .pixels = {},
                     .outline = {}};
    sheet.pixels.reserve(static_cast<qsizetype>(sheet.size.width()) * sheet.size.height());
    for (int y = 0; y < sheet.size.height(); ++y) {
        for (int x = 0; x < sheet.size.width(); ++x) {
            l_uint32 value = 0;
            pixGetPixel(largest.get(), x, y, &value);
            sheet.pixels.append(value != 0);
        }
    }
    sheet.area = sheet.pixels.count(true);
    sheet.outline = outlineOf(sheet);
    return sheet;
}

} // namespace fennick::engine
