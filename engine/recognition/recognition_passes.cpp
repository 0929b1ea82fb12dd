#include "engine/recognition/recognition_passes.h"

#include "engine/recognition/leptonica_owners.h"
#include "engine/recognition/letter_size.h"
#include "engine/recognition/paper_finder.h"
#include "engine/recognition/paper_straightener.h"
#include "engine/recognition/print_region.h"

#include <algorithm>
#include <cmath>

namespace fennick::engine {

namespace {

constexpr double largestEnlargement = 4.0;
constexpr double smallestEnlargement = 0.3;
constexpr double mostPixels = 12e6;
constexpr double scaledInOneStep = 0.7;
// Shares of the print's width that are kept around it: logos above it and faint lines below it are no print
// that is sure to be found.
constexpr double keptBeside = 0.12;
constexpr double keptAboveAndBelow = 0.4;
// Share of the page's area: a page that is nearly full of print stays as it is.
constexpr double mostlyPrint = 0.6;
// A smaller page is read as quickly with all that surrounds its print, and better.
constexpr double smallPage = 0.25e6;
// The part of a page that shows which way up it is: so many heights of its letters, and a share of the whole.
constexpr int sampleLines = 20;
constexpr int sampleShare = 5;

QRect frameOf(const GreyPicture &picture) {
    return QRect(0, 0, pixGetWidth(picture.get()), pixGetHeight(picture.get()));
}

// Makes the page's picture the derived one.
void take(PreparedPage &page, DerivedPicture derived) {
    page.picture = std::move(derived.picture);
    page.toPage = derived.toSource * page.toPage;
}

void cutTo(PreparedPage &page, const QRect &area, int margin) {
    const QRect wanted = area.adjusted(-margin, -margin, margin, margin) & frameOf(page.picture);
    const BoxPointer box(boxCreate(wanted.x(), wanted.y(), wanted.width(), wanted.height()));
    GreyPicture cut(box ? pixClipRectangle(page.picture.get(), box.get(), nullptr) : nullptr);
    if (cut) {
        take(page,
             {.picture = std::move(cut), .toSource = QTransform::fromTranslate(wanted.x(), wanted.y())});
    }
}

double areaOf(const QRect &area) {
    return static_cast<double>(area.width()) * area.height();
}

QRect withSurroundings(const QRect &print) {
    const int beside = static_cast<int>(keptBeside * print.width());
    const int above = static_cast<int>(keptAboveAndBelow * print.width());
    return print.adjusted(-beside, -above, beside, above);
}

// Clockwise.
void turnByAQuarter(PreparedPage &page) {
    const double height = pixGetHeight(page.picture.get());
    GreyPicture turned(pixRotate90(page.picture.get(), 1));
    if (turned) {
        take(page, {.picture = std::move(turned), .toSource = QTransform(0, -1, 1, 0, 0, height)});
    }
}

// Leaves the table, scanner or cardboard that the receipt lies on.
void cutToPrint(PreparedPage &page, const std::optional<PrintRegion> &region) {
    if (!region) {
        return;
    }
    const QRect whole = frameOf(page.picture);
    const QRect kept = withSurroundings(region->box) & whole;
    if (areaOf(whole) > smallPage && areaOf(kept) < mostlyPrint * areaOf(whole)) {
        cutTo(page, kept, 0);
    }
}

// Works on a copy: Leptonica counts the users of a picture without a lock, also those who only read it, and
// passes on other threads look at the same page.
GreyPicture scaled(const GreyPicture &picture, double factor) {
    GreyPicture copy(pixCopy(nullptr, picture.get()));
    if (!copy || std::abs(factor - 1) < 0.05) {
        return copy;
    }
    const auto step = static_cast<float>(factor);
    return GreyPicture(factor < scaledInOneStep ? pixScaleAreaMap(copy.get(), step, step)
                                                : pixScale(copy.get(), step, step));
}

} // namespace

PreparedPage preparedPage(const QImage &picture) {
    PreparedPage page;
    page.toPage =
        QTransform::fromScale(1.0 / std::max(1, picture.width()), 1.0 / std::max(1, picture.height()));
    take(page, seenFromAbove(greyPicture(picture)));
    std::optional<PrintRegion> region = printRegion(page.picture);
    page.wasOnItsSide = region && !region->isUpright;
    if (page.wasOnItsSide) {
        turnByAQuarter(page);
        region = printRegion(page.picture);
    }
    cutToPrint(page, region);
    take(page, straightened(onEvenPaper(std::move(page.picture))));
    const PrintedArea area = printedArea(page.picture);
    page.letterHeight = area.letterHeight;
    if (area.letterHeight > 0) {
        cutTo(page, area.box, area.letterHeight * 3 / 2);
    }
    return page;
}

void turnUpsideDown(PreparedPage &page) {
    if (page.picture) {
        pixRotate180(page.picture.get(), page.picture.get());
        const QRect frame = frameOf(page.picture);
        page.toPage = QTransform(-1, 0, 0, -1, frame.width(), frame.height()) * page.toPage;
    }
}

PreparedPage sampleOf(const PreparedPage &page) {
    PreparedPage sample{.picture = {}, .letterHeight = page.letterHeight};
    if (!page.picture) {
        return sample;
    }
    const int width = pixGetWidth(page.picture.get());
    const int height = pixGetHeight(page.picture.get());
    const int kept = std::min(height, std::max(sampleLines * page.letterHeight, height / sampleShare));
    const BoxPointer middle(boxCreate(0, (height - kept) / 2, width, kept));
    sample.picture.reset(pixClipRectangle(page.picture.get(), middle.get(), nullptr));
    return sample;
}

DerivedPicture pictureFor(const PreparedPage &page, const RecognitionPass &pass) {
    if (!page.picture) {
        return {};
    }
    const QRect frame = frameOf(page.picture);
    double factor = 1;
    if (page.letterHeight > 0) {
        factor = std::min(static_cast<double>(pass.letterHeight) / page.letterHeight,
                          std::sqrt(mostPixels / areaOf(frame)));
        factor = std::clamp(factor, smallestEnlargement, largestEnlargement);
    }
    GreyPicture picture = withStrokes(scaled(page.picture, factor), pass.strokes);
    if (!picture) {
        return {};
    }
    const QRect scaledFrame = frameOf(picture);
    const QTransform back = QTransform::fromScale(static_cast<double>(frame.width()) / scaledFrame.width(),
                                                  static_cast<double>(frame.height()) / scaledFrame.height());
    return {.picture = std::move(picture), .toSource = back * page.toPage};
}

} // namespace fennick::engine
