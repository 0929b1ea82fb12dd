#include "renderings.h"

#include "image_effects.h"
#include "sheet_drawing.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr double pi = std::numbers::pi;

struct NamedRendering {
    const char *name;
    Rendering rendering;
};

constexpr std::array namedRenderings = {
    NamedRendering{"text-pdf", Rendering::textPdf}, NamedRendering{"clean", Rendering::clean},
    NamedRendering{"faint", Rendering::faint},      NamedRendering{"warped", Rendering::warped},
    NamedRendering{"page", Rendering::page},        NamedRendering{"photo", Rendering::photo},
};

// The strip of paper, `width` pixels wide.
QImage printed(const ReceiptSheet &sheet, int width, QColor ink, QColor paper, SeededRandom &random) {
    const SheetLook look = chosenLook(sheet, false, random);
    const double margin = width * random.between(0.03, 0.09);
    const double inner = width - 2 * margin;
    const double height = sheetHeight(sheet, look, inner) + 2 * margin + width * random.between(0.02, 0.15);
    QImage image(width, static_cast<int>(height), QImage::Format_RGB32);
    image.fill(paper);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(ink);
    painter.translate(margin, margin);
    drawSheet(painter, sheet, look, inner);
    return image;
}

QColor paperColour(SeededRandom &random) {
    const int brightness = random.between(232, 252);
    return {brightness, brightness - random.below(4), brightness - random.below(12)};
}

QImage clean(const ReceiptSheet &sheet, SeededRandom &random) {
    return printed(sheet, random.between(560, 900), QColor(10, 10, 10), Qt::white, random);
}

// The needles of a printer leave gaps, and an old ribbon or a head that gets cold leaves little ink.
QImage faint(const ReceiptSheet &sheet, SeededRandom &random) {
    const bool isMatrix = random.chance(0.5);
    const int grey = isMatrix ? random.between(60, 110) : random.between(115, 160);
    const QColor ink(grey, grey - random.below(12), grey + random.below(30));
    const int width = random.between(640, 900);
    QImage image = printed(sheet, width, ink, paperColour(random), random);
    const double period = width / random.between(150.0, 210.0);
    const double phase = random.between(0.0, 10.0);
    const double streak = width * random.share();
    const double streakWidth = width * random.between(0.02, 0.06);
    const QImage inked = image;
    const QRgb paper = inked.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        const double cold = 0.82 + 0.18 * std::sin(y * 2 * pi / image.height() + phase);
        for (int x = 0; x < image.width(); ++x) {
            const bool isGap =
                isMatrix && (std::fmod(x, period) < period * 0.3 || std::fmod(y, period) < period * 0.3);
            const double strength =
                cold * (isGap ? 0.35 : 1) * (std::abs(x - streak) < streakWidth ? 0.55 : 1);
            const QRgb pixel = inked.pixel(x, y);
            const auto mixed = [strength](int print, int ground) {
                return static_cast<int>(ground + (print - ground) * strength);
            };
            image.setPixel(x, y,
                           qRgb(mixed(qRed(pixel), qRed(paper)), mixed(qGreen(pixel), qGreen(paper)),
                                mixed(qBlue(pixel), qBlue(paper))));
        }
    }
    image = blurred(image, 0.8);
    addNoise(image, 12, random);
    return image;
}

// Waves, folds across, and the far end smaller.
QImage warped(const ReceiptSheet &sheet, SeededRandom &random) {
    QImage flat = printed(sheet, random.between(700, 900), QColor(25, 25, 30), paperColour(random), random);
    const double width = flat.width();
    const double height = flat.height();
    const double border = width * 0.08;
    const double wave = width * random.between(0.004, 0.016);
    const double length = width * random.between(0.6, 1.6);
    const double phase = random.between(0.0, 2 * pi);
    const double lean = random.between(-0.06, 0.06);
    const double taper = random.between(0.0, 0.07);
    const double fold = height * random.between(0.3, 0.7);
    const auto source = [=](QPointF place) {
        const double y = place.y() - border;
        const double narrow = 1 - taper * (1 - y / height);
        const double x =
            (place.x() - border - width / 2 - lean * (y - height / 2) * 0.5) / narrow + width / 2;
        return QPointF(x + wave * 0.6 * std::sin(2 * pi * y / length + phase),
                       y + wave * std::sin(2 * pi * x / length * 1.3 + phase) +
                           wave * std::abs(y - fold) / width);
    };
    const QSize size(static_cast<int>(width + 2 * border), static_cast<int>(height + 2 * border));
    QImage image = remapped(flat, size, QColor(70, 64, 60), source);
    const double dark = random.between(0.5, 0.75);
    const bool isLitFromLeft = random.chance(0.5);
    shade(image, [=](QPointF place) {
        const double across = place.x() / size.width();
        const double light = dark + (1 - dark) * (isLitFromLeft ? 1 - across : across);
        const double crease = std::exp(-std::pow((place.y() - border - fold) / (width * 0.015), 2));
        const double waves = 0.04 * std::sin(2 * pi * (place.y() - border) / length + phase);
        return light * (1 - 0.25 * crease) + waves;
    });
    addNoise(image, 7, random);
    return image;
}

QTransform lyingAnyhow(SeededRandom &random) {
    QTransform turn;
    const double lying = random.share();
    turn.rotate(lying < 0.1 ? 90 : lying < 0.17 ? 270 : lying < 0.27 ? 180 : 0);
    turn.rotate(random.between(-4.0, 4.0));
    return turn;
}

// A4 at 150 or 200 dots an inch, with a strip of 57 to 80 mm somewhere on it.
QImage page(const ReceiptSheet &sheet, SeededRandom &random) {
    const double dots = random.chance(0.5) ? 200 : 150;
    const QSize size(static_cast<int>(8.27 * dots), static_cast<int>(11.69 * dots));
    const int width = static_cast<int>(random.between(2.6, 3.15) * dots);
    const bool isDark = random.chance(0.35);
    const QColor paper = isDark ? paperColour(random) : QColor(249, 249, 248);
    QImage strip = printed(sheet, width, QColor(30, 30, 30), paper, random)
                       .transformed(lyingAnyhow(random), Qt::SmoothTransformation);
    if (strip.height() > size.height() * 0.97 || strip.width() > size.width() * 0.97) {
        strip = strip.scaled(size * 0.97, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    QImage image(size, QImage::Format_RGB32);
    image.fill(isDark ? QColor(48, 48, 50) : QColor(253, 253, 253));
    QPainter painter(&image);
    const QPointF place((size.width() - strip.width()) * random.share(),
                        (size.height() - strip.height()) * random.share());
    painter.drawImage(place, strip);
    painter.end();
    addNoise(image, 5, random);
    return image;
}

// Boards, cloth or stone.
QImage ground(QSize size, SeededRandom &random) {
    static const std::array colours = {QColor(124, 86, 54), QColor(92, 96, 104), QColor(176, 160, 138),
                                       QColor(58, 52, 50), QColor(150, 120, 90)};
    QImage image(size, QImage::Format_RGB32);
    image.fill(colours[static_cast<size_t>(random.below(colours.size()))]);
    const double board = random.between(40.0, 160.0);
    const double grain = random.between(2.0, 9.0);
    const double bend = random.between(0.0, 0.4);
    shade(image, [=](QPointF place) {
        const double x = place.x() + bend * 30 * std::sin(place.y() / 90);
        const double line = std::fmod(x + 1000, board) < 2 ? 0.6 : 1;
        return line * (0.92 + 0.1 * std::sin(x / grain + std::sin(place.y() / 37) * 2));
    });
    addNoise(image, 16, random);
    return image;
}

QPolygonF corners(QSizeF paper, QSizeF frame, SeededRandom &random) {
    QTransform turn;
    turn.translate(frame.width() / 2, frame.height() / 2);
    turn.rotate(random.between(-5.0, 5.0));
    QPolygonF shape =
        turn.map(QPolygonF(QRectF(-paper.width() / 2, -paper.height() / 2, paper.width(), paper.height())));
    shape.removeLast();
    for (QPointF &corner : shape) {
        corner += QPointF(random.between(-0.02, 0.02), random.between(-0.02, 0.02)) * paper.width();
    }
    return shape;
}

// Taken with a small camera, or made small by a messenger.
QImage photo(const ReceiptSheet &sheet, SeededRandom &random) {
    const QImage flat = printed(sheet, 900, QColor(35, 35, 40), paperColour(random), random);
    const int rows = static_cast<int>(sheet.rows.size());
    const int height = std::clamp(rows * 18, 700, 1000);
    const double paperHeight = height * random.between(0.86, 0.95);
    const QSizeF paper(paperHeight * flat.width() / flat.height(), paperHeight);
    const QSize frame(std::max(static_cast<int>(height * 0.75), static_cast<int>(paper.width() * 1.15)),
                      height);
    QPolygonF from(QRectF(flat.rect()));
    from.removeLast();
    QTransform transform;
    if (!QTransform::quadToQuad(from, corners(paper, frame, random), transform)) {
        return flat;
    }
    QImage image = ground(frame, random);
    const QTransform back = transform.inverted();
    QPainter painter(&image);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    const QImage halved = flat.scaledToHeight(static_cast<int>(paperHeight), Qt::SmoothTransformation);
    QTransform scale;
    scale.scale(static_cast<double>(flat.width()) / halved.width(),
                static_cast<double>(flat.height()) / halved.height());
    painter.setTransform(scale * back.inverted());
    painter.drawImage(0, 0, halved);
    painter.end();
    const QPointF lamp(frame.width() * random.share(), height * random.between(0.0, 0.6));
    const double fall = random.between(0.2, 0.5);
    shade(image, [=](QPointF place) {
        const QPointF way = place - lamp;
        return 1.02 - fall * std::hypot(way.x(), way.y()) / height;
    });
    addNoise(image, 9, random);
    return image;
}

} // namespace

std::optional<Rendering> renderingNamed(const QString &name) {
    for (const NamedRendering &named : namedRenderings) {
        if (name == QLatin1String(named.name)) {
            return named.rendering;
        }
    }
    return {};
}

QString nameOf(Rendering rendering) {
    return QLatin1String(namedRenderings[static_cast<size_t>(rendering)].name);
}

QImage pictureOf(const ReceiptSheet &sheet, Rendering rendering, SeededRandom &random) {
    switch (rendering) {
    case Rendering::faint:
        return faint(sheet, random);
    case Rendering::warped:
        return warped(sheet, random);
    case Rendering::page:
        return page(sheet, random);
    case Rendering::photo:
        return photo(sheet, random);
    case Rendering::textPdf:
    case Rendering::clean:
        break;
    }
    return clean(sheet, random);
}

} // namespace fennick
