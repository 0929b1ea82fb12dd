#include "image_effects.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>

namespace fennick {

namespace {

using Channels = std::array<double, 3>;

Channels channelsAt(const QImage &image, int x, int y, QColor ground) {
    if (x < 0 || y < 0 || x >= image.width() || y >= image.height()) {
        return {static_cast<double>(ground.red()), static_cast<double>(ground.green()),
                static_cast<double>(ground.blue())};
    }
    const QRgb pixel = reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
    return {static_cast<double>(qRed(pixel)), static_cast<double>(qGreen(pixel)),
            static_cast<double>(qBlue(pixel))};
}

// Between the four pixels around the place.
QRgb sampled(const QImage &image, QPointF place, QColor ground) {
    const int x = static_cast<int>(std::floor(place.x()));
    const int y = static_cast<int>(std::floor(place.y()));
    const double right = place.x() - x;
    const double below = place.y() - y;
    const Channels pixels[] = {channelsAt(image, x, y, ground), channelsAt(image, x + 1, y, ground),
                               channelsAt(image, x, y + 1, ground), channelsAt(image, x + 1, y + 1, ground)};
    std::array<int, 3> result{};
    for (size_t channel = 0; channel < result.size(); ++channel) {
        const double upper = pixels[0][channel] * (1 - right) + pixels[1][channel] * right;
        const double lower = pixels[2][channel] * (1 - right) + pixels[3][channel] * right;
        result[channel] = static_cast<int>(upper * (1 - below) + lower * below + 0.5);
    }
    return qRgb(result[0], result[1], result[2]);
}

QRgb changed(QRgb pixel, const auto &change) {
    return qRgb(std::clamp(change(qRed(pixel)), 0, 255), std::clamp(change(qGreen(pixel)), 0, 255),
                std::clamp(change(qBlue(pixel)), 0, 255));
}

} // namespace

QImage remapped(const QImage &image, QSize size, QColor ground,
                const std::function<QPointF(QPointF)> &source) {
    QImage result(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            row[x] = sampled(image, source(QPointF(x, y)), ground);
        }
    }
    return result;
}

void shade(QImage &image, const std::function<double(QPointF)> &factor) {
    for (int y = 0; y < image.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double light = factor(QPointF(x, y));
            row[x] = changed(row[x], [light](int value) { return static_cast<int>(value * light); });
        }
    }
}

void addNoise(QImage &image, int amplitude, SeededRandom &random) {
    for (int y = 0; y < image.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int noise =
                (random.between(-amplitude, amplitude) + random.between(-amplitude, amplitude)) / 2;
            row[x] = changed(row[x], [noise](int value) { return value + noise; });
        }
    }
}

QImage blurred(const QImage &image, double share) {
    const QSize small = image.size() * share;
    return image.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace fennick
