#include "engine/recognition/print_region.h"

#include "engine/recognition/leptonica_owners.h"

#include <QList>
#include <QMultiMap>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace fennick::engine {

namespace {

// The page is looked at in this size, in which its letters are 3 to 40 pixels high. Further numbers are
// pixels of it.
constexpr double longerSide = 1000;
// Wider than a stroke, narrower than a page's dark surroundings.
constexpr int widestStroke = 13;
// Per cent of the surrounding brightness that ink is darker by at least; and the share of the contrast of the
// page's clearest pixels. The fibres of cardboard and the grain of wood stay below one or the other.
constexpr int leastInk = 12;
constexpr double leastContrast = 0.25;
constexpr double clearestPixels = 0.002;
// Share of the brightness of the page's lightest parts: what is darker is no paper, not even in a shadow.
constexpr double darkestPaper = 0.5;
constexpr float lightestParts = 0.95F;
constexpr int lowestMark = 3;
constexpr int highestMark = 44;
constexpr int widestMark = 160;
// Within a line of print, and between lines of one receipt.
constexpr int gapBetweenWords = 25;
constexpr int gapBetweenLines = 31;
constexpr int fewestMarks = 12;
// Of a mark in a line: the next ones' height and distance, in its own height.
constexpr int fewestNeighbours = 2;
constexpr double mostUneven = 2.5;
constexpr double widestBlank = 1.2;
// Shares: of the width or height that two groups must have in common to belong to the same receipt, and of
// the picture's height or width that may lie between them.
constexpr double leastOverlap = 0.5;
constexpr double largestGap = 0.12;
constexpr double largestGapBetweenColumns = 0.2;

struct Group {
    QRect box;
    int marks = 0;
    int ink = 0;
};

struct Mark {
    QRect box;
    int ink = 0; // pixels
};

// How much darker each pixel is than its surroundings, in per cent of those.
GreyPicture contrastOf(const GreyPicture &picture) {
    const GreyPicture ground(pixCloseGray(picture.get(), widestStroke, widestStroke));
    GreyPicture contrast(pixCreateTemplate(picture.get()));
    if (!ground || !contrast) {
        return {};
    }
    l_uint32 lightest = 0;
    pixGetRankValue(ground.get(), 4, lightestParts, &lightest);
    const int darkest = std::max(1, static_cast<int>(darkestPaper * lightest));
    const auto row = [](const GreyPicture &of, int y) {
        return pixGetData(of.get()) + static_cast<ptrdiff_t>(y) * pixGetWpl(of.get());
    };
    const int width = pixGetWidth(picture.get());
    for (int y = 0; y < pixGetHeight(picture.get()); ++y) {
        const l_uint32 *grounds = row(ground, y);
        const l_uint32 *pixels = row(picture, y);
        l_uint32 *contrasts = row(contrast, y);
        for (int x = 0; x < width; ++x) {
            const int around = GET_DATA_BYTE(grounds, x);
            const int here = GET_DATA_BYTE(pixels, x);
            const int darker = around >= darkest ? 100 * (around - here) / around : 0;
            SET_DATA_BYTE(contrasts, x, static_cast<l_uint8>(darker));
        }
    }
    return contrast;
}

int leastContrastOfInk(const GreyPicture &contrast) {
    const NumberList histogram(pixGetGrayHistogram(contrast.get(), 1));
    const double wanted = clearestPixels * pixGetWidth(contrast.get()) * pixGetHeight(contrast.get());
    double pixels = 0;
    for (int level = 255; histogram && level > leastInk; --level) {
        float count = 0;
        numaGetFValue(histogram.get(), level, &count);
        pixels += static_cast<double>(count);
        if (pixels >= wanted) {
            return std::max(leastInk, static_cast<int>(leastContrast * level));
        }
    }
    return leastInk;
}

QList<Mark> marksOf(const GreyPicture &contrast) {
    const GreyPicture light(pixThresholdToBinary(contrast.get(), leastContrastOfInk(contrast)));
    const GreyPicture ink(light ? pixInvert(nullptr, light.get()) : nullptr);
    if (!ink) {
        return {};
    }
    Pixa *parts = nullptr;
    const BoxList boxes(pixConnComp(ink.get(), &parts, 8));
    const PictureList pictures(parts);
    QList<Mark> marks;
    for (int index = 0; boxes && index < boxaGetCount(boxes.get()); ++index) {
        const QRect box = boxAt(boxes, index);
        const int longer = std::max(box.width(), box.height());
        const int shorter = std::min(box.width(), box.height());
        if (longer < lowestMark || shorter > highestMark || longer > widestMark) {
            continue;
        }
        int pixels = 0;
        const GreyPicture part(pixaGetPix(pictures.get(), index, L_CLONE));
        pixCountPixels(part.get(), &pixels, nullptr);
        marks.append({box, pixels});
    }
    return marks;
}

int gapBetween(const QRect &left, const QRect &right) {
    return std::max(left.left(), right.left()) - std::min(left.right(), right.right()) - 1;
}

// Two marks of one line: of about the same height, beside each other, a letter or a blank apart.
bool areNeighbours(const QRect &left, const QRect &right) {
    const int shorter = std::min(left.height(), right.height());
    const int taller = std::max(left.height(), right.height());
    const int sharedHeight = std::min(left.bottom(), right.bottom()) - std::max(left.top(), right.top()) + 1;
    const int gap = gapBetween(left, right);
    return taller <= mostUneven * shorter && 2 * sharedHeight >= shorter && gap <= widestBlank * taller;
}

// The marks that stand in lines from left to right. What only looks like a letter, such as a fibre, a knot or
// a hole, stands alone.
QList<Mark> inLines(const QList<Mark> &marks) {
    QMultiMap<int, qsizetype> byTop;
    for (qsizetype index = 0; index < marks.size(); ++index) {
        byTop.insert(marks[index].box.top(), index);
    }
    QList<Mark> found;
    for (qsizetype index = 0; index < marks.size(); ++index) {
        const QRect &box = marks[index].box;
        int neighbours = 0;
        for (auto other = byTop.lowerBound(box.top() - highestMark);
             other != byTop.cend() && other.key() <= box.bottom() && neighbours < fewestNeighbours; ++other) {
            neighbours += *other != index && areNeighbours(box, marks[*other].box) ? 1 : 0;
        }
        if (neighbours >= fewestNeighbours) {
            found.append(marks[index]);
        }
    }
    return found;
}

int inkOf(const QList<Mark> &marks) {
    return std::accumulate(marks.cbegin(), marks.cend(), 0,
                           [](int ink, const Mark &mark) { return ink + mark.ink; });
}

QList<Mark> onTheirSide(QList<Mark> marks) {
    for (Mark &mark : marks) {
        mark.box = QRect(mark.box.y(), mark.box.x(), mark.box.height(), mark.box.width());
    }
    return marks;
}

GreyPicture drawn(const QList<Mark> &marks, const GreyPicture &like) {
    GreyPicture picture(pixCreate(pixGetWidth(like.get()), pixGetHeight(like.get()), 1));
    for (const Mark &mark : marks) {
        pixRasterop(picture.get(), mark.box.x(), mark.box.y(), mark.box.width(), mark.box.height(), PIX_SET,
                    nullptr, 0, 0);
    }
    return picture;
}

QList<Group> groupsOf(const QList<Mark> &marks, const GreyPicture &like, bool isUpright) {
    const GreyPicture cover = drawn(marks, like);
    const GreyPicture joined(pixCloseSafeBrick(nullptr, cover.get(),
                                               isUpright ? gapBetweenWords : gapBetweenLines,
                                               isUpright ? gapBetweenLines : gapBetweenWords));
    const BoxList boxes(joined ? pixConnCompBB(joined.get(), 8) : nullptr);
    QList<Group> groups;
    for (int index = 0; boxes && index < boxaGetCount(boxes.get()); ++index) {
        Group group{.box = boxAt(boxes, index)};
        for (const Mark &mark : marks) {
            if (group.box.contains(mark.box.center())) {
                ++group.marks;
                group.ink += mark.ink;
            }
        }
        groups.append(group);
    }
    return groups;
}

// A group above or below the others, or a column beside them.
bool belongTogether(const QRect &region, const QRect &other, QSize page) {
    const int sharedWidth =
        std::min(region.right(), other.right()) - std::max(region.left(), other.left()) + 1;
    const int sharedHeight =
        std::min(region.bottom(), other.bottom()) - std::max(region.top(), other.top()) + 1;
    const bool isInLine = sharedWidth >= leastOverlap * std::min(region.width(), other.width());
    const bool isBeside = sharedHeight >= leastOverlap * std::min(region.height(), other.height());
    return (isInLine && -sharedHeight <= largestGap * page.height()) ||
           (isBeside && -sharedWidth <= largestGapBetweenColumns * page.width());
}

Group regionAround(const Group &first, QList<Group> groups, QSize page) {
    Group region{.box = first.box, .marks = 0, .ink = 0};
    for (bool isGrowing = true; isGrowing;) {
        isGrowing = false;
        for (qsizetype index = 0; index < groups.size(); ++index) {
            if (belongTogether(region.box, groups[index].box, page)) {
                const Group taken = groups.takeAt(index);
                region.box |= taken.box;
                region.marks += taken.marks;
                region.ink += taken.ink;
                isGrowing = true;
                break;
            }
        }
    }
    return region;
}

} // namespace

std::optional<PrintRegion> printRegion(const GreyPicture &picture) {
    if (!picture) {
        return std::nullopt;
    }
    const int longer = std::max(pixGetWidth(picture.get()), pixGetHeight(picture.get()));
    const auto factor = static_cast<float>(std::min(1.0, longerSide / longer));
    const GreyPicture small(pixScaleAreaMap(picture.get(), factor, factor));
    const GreyPicture contrast = small ? contrastOf(small) : GreyPicture();
    if (!contrast) {
        return std::nullopt;
    }
    const QList<Mark> marks = marksOf(contrast);
    const QList<Mark> upright = inLines(marks);
    const QList<Mark> turned = onTheirSide(inLines(onTheirSide(marks)));
    const bool isUpright = 2 * inkOf(upright) >= inkOf(turned);
    const QList<Group> groups = groupsOf(isUpright ? upright : turned, contrast, isUpright);
    const auto largest = std::ranges::max_element(groups, {}, &Group::ink);
    if (largest == groups.cend()) {
        return std::nullopt;
    }
    const Group region =
        regionAround(*largest, groups, QSize(pixGetWidth(small.get()), pixGetHeight(small.get())));
    if (region.marks < fewestMarks) {
        return std::nullopt;
    }
    const QRect &box = region.box;
    const auto enlarged = [factor](int length) {
        return static_cast<int>(std::ceil(static_cast<float>(length) / factor));
    };
    return PrintRegion{
        .box = QRect(enlarged(box.x()), enlarged(box.y()), enlarged(box.width()), enlarged(box.height())),
        .isUpright = isUpright};
}

} // namespace fennick::engine
