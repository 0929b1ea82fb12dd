#include "engine/recognition/paper_finder.h"

#include "engine/recognition/leptonica_owners.h"
#include "engine/recognition/light_sheet.h"

#include <QLineF>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace fennick::engine {

namespace {

// Shares of the whole picture.
constexpr double smallestSheet = 0.12;
constexpr double largestSheet = 0.97;
// Share of the sheet's area by which its outline may differ from four straight lines.
constexpr double largestMisfit = 0.04;
// Share of a side's length within which an outline's points belong to it; the middle of the side tells its
// direction, as corners are bent and torn.
constexpr double nearSide = 0.05;
constexpr double middleFrom = 0.08;
// In pixels of the sheet's small picture.
constexpr double clearOfEdge = 1.5;
// Degrees.
constexpr double largestTurn = 40;
constexpr double turnLeftToStraightener = 8;
constexpr double leastConvergence = 1.5;

// The points of the outline that reach furthest to the four diagonals: the corners of a sheet that is turned
// by less than 45 degrees.
PaperCorners extremes(const QList<QPointF> &outline) {
    const auto sum = [](const QPointF &point) {
        return point.x() + point.y();
    };
    const auto difference = [](const QPointF &point) {
        return point.x() - point.y();
    };
    return {*std::ranges::min_element(outline, {}, sum), *std::ranges::max_element(outline, {}, difference),
            *std::ranges::max_element(outline, {}, sum), *std::ranges::min_element(outline, {}, difference)};
}

// The straight line closest to those of `outline` that lie along `side`; `side` when they are too few.
QLineF fitted(const QLineF &side, const QList<QPointF> &outline) {
    const QPointF along = (side.p2() - side.p1()) / side.length();
    const QPointF across(-along.y(), along.x());
    QList<QPointF> offsets; // along the side and away from it
    for (const QPointF &point : outline) {
        const QPointF from = point - side.p1();
        const QPointF offset(QPointF::dotProduct(from, along), QPointF::dotProduct(from, across));
        const double share = offset.x() / side.length();
        if (share > middleFrom && share < 1 - middleFrom && std::abs(offset.y()) < nearSide * side.length()) {
            offsets.append(offset);
        }
    }
    if (offsets.size() < 8) {
        return side;
    }
    // The median slope and height bear a fold or a finger on the side.
    const qsizetype half = offsets.size() / 2;
    std::ranges::sort(offsets, {}, &QPointF::x);
    QList<double> slopes;
    for (qsizetype index = 0; index + half < offsets.size(); ++index) {
        const QPointF step = offsets[index + half] - offsets[index];
        if (step.x() > side.length() / 8) {
            slopes.append(step.y() / step.x());
        }
    }
    if (slopes.isEmpty()) {
        return side;
    }
    std::ranges::nth_element(slopes, slopes.begin() + slopes.size() / 2);
    const double slope = slopes[slopes.size() / 2];
    QList<double> heights;
    for (const QPointF &offset : std::as_const(offsets)) {
        heights.append(offset.y() - slope * offset.x());
    }
    std::ranges::nth_element(heights, heights.begin() + heights.size() / 2);
    const double height = heights[heights.size() / 2];
    const QPointF start = side.p1() + across * height;
    return QLineF(start, start + (along + across * slope) * side.length());
}

std::optional<PaperCorners> refined(const PaperCorners &rough, const QList<QPointF> &outline) {
    std::array<QLineF, 4> sides;
    for (size_t index = 0; index < 4; ++index) {
        const QLineF side(rough[index], rough[(index + 1) % 4]);
        if (side.length() < 20) {
            return std::nullopt;
        }
        sides[index] = fitted(side, outline);
    }
    PaperCorners corners;
    for (size_t index = 0; index < 4; ++index) {
        if (sides[(index + 3) % 4].intersects(sides[index], &corners[index]) == QLineF::NoIntersection) {
            return std::nullopt;
        }
    }
    return corners;
}

bool fits(const PaperCorners &corners, const LightSheet &sheet) {
    const QPolygonF polygon(QList<QPointF>(corners.begin(), corners.end()));
    qsizetype differing = 0;
    for (int y = 0; y < sheet.size.height(); ++y) {
        for (int x = 0; x < sheet.size.width(); ++x) {
            const bool isInside = polygon.containsPoint(QPointF(x + 0.5, y + 0.5), Qt::OddEvenFill);
            differing += isInside != sheet.contains(x, y) ? 1 : 0;
        }
    }
    return static_cast<double>(differing) <= largestMisfit * static_cast<double>(sheet.area);
}

// How far `side` is from `direction` (0 = to the right, 90 = down), in degrees from -180 to 180.
double turn(QPointF from, QPointF to, double direction) {
    const QPointF step = to - from;
    return std::remainder(std::atan2(step.y(), step.x()) * 180 / M_PI - direction, 360);
}

struct Turns {
    double top, right, bottom, left;
};

Turns turnsOf(const PaperCorners &corners) {
    return {turn(corners[0], corners[1], 0), turn(corners[1], corners[2], 90),
            turn(corners[3], corners[2], 0), turn(corners[0], corners[3], 90)};
}

bool isUpright(const PaperCorners &corners) {
    const Turns turns = turnsOf(corners);
    return std::ranges::all_of(std::array{turns.top, turns.right, turns.bottom, turns.left},
                               [](double turned) { return std::abs(turned) <= largestTurn; });
}

bool isSeenWhole(const PaperCorners &corners, QSize size) {
    const QRectF inner =
        QRectF(QPointF(0, 0), size).adjusted(clearOfEdge, clearOfEdge, -clearOfEdge, -clearOfEdge);
    return std::ranges::all_of(corners, [&](const QPointF &corner) { return inner.contains(corner); });
}

bool isWorthTheWarp(const PaperCorners &corners) {
    const Turns turns = turnsOf(corners);
    return std::abs(turns.top - turns.bottom) > leastConvergence ||
           std::abs(turns.left - turns.right) > leastConvergence ||
           std::abs(turns.left) > turnLeftToStraightener;
}

PointList pointList(const PaperCorners &corners) {
    PointList points(ptaCreate(4));
    for (const QPointF &corner : corners) {
        ptaAddPt(points.get(), static_cast<float>(corner.x()), static_cast<float>(corner.y()));
    }
    return points;
}

DerivedPicture warped(GreyPicture picture, const PaperCorners &corners) {
    const auto length = [&](size_t from, size_t to) {
        return QLineF(corners[from], corners[to]).length();
    };
    const double width = std::max(length(0, 1), length(3, 2));
    const double height = std::max(length(0, 3), length(1, 2));
    // Leptonica's result is as large as its source.
    const double scale =
        std::min({1.0, pixGetWidth(picture.get()) / width, pixGetHeight(picture.get()) / height});
    const QSizeF size = QSizeF(width, height) * scale;
    const PaperCorners straight = {QPointF(0, 0), QPointF(size.width(), 0),
                                   QPointF(size.width(), size.height()), QPointF(0, size.height())};
    const PointList from = pointList(corners);
    const PointList to = pointList(straight);
    const GreyPicture above(pixProjectivePta(picture.get(), to.get(), from.get(), L_BRING_IN_WHITE));
    const BoxPointer sheet(boxCreate(0, 0, static_cast<int>(size.width()), static_cast<int>(size.height())));
    GreyPicture cut(above ? pixClipRectangle(above.get(), sheet.get(), nullptr) : nullptr);
    QTransform toSource;
    if (!cut || !QTransform::quadToQuad(QPolygonF(QList(straight.begin(), straight.end())),
                                        QPolygonF(QList(corners.begin(), corners.end())), toSource)) {
        return {.picture = std::move(picture)};
    }
    return {.picture = std::move(cut), .toSource = toSource};
}

} // namespace

std::optional<PaperCorners> paperCorners(const GreyPicture &picture) {
    const std::optional<LightSheet> sheet = largestLightSheet(picture);
    if (!sheet) {
        return std::nullopt;
    }
    const double share = static_cast<double>(sheet->area) / (sheet->size.width() * sheet->size.height());
    if (share < smallestSheet || share > largestSheet) {
        return std::nullopt;
    }
    const std::optional<PaperCorners> corners = refined(extremes(sheet->outline), sheet->outline);
    if (!corners || !isSeenWhole(*corners, sheet->size) || !isUpright(*corners) || !fits(*corners, *sheet)) {
        return std::nullopt;
    }
    PaperCorners enlarged = *corners;
    for (QPointF &corner : enlarged) {
        corner /= sheet->scale;
    }
    return enlarged;
}

DerivedPicture seenFromAbove(GreyPicture picture) {
    const std::optional<PaperCorners> corners = picture ? paperCorners(picture) : std::nullopt;
    if (!corners || !isWorthTheWarp(*corners)) {
        return {.picture = std::move(picture)};
    }
    return warped(std::move(picture), *corners);
}

} // namespace fennick::engine
