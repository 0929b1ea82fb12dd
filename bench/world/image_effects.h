#pragma once

#include "seeded_random.h"

#include <QImage>
#include <QPointF>

#include <functional>

namespace fennick {

// All take and give pictures of 32 bits for each pixel.

// Each pixel from where `source` says; `ground` where that is outside.
[[nodiscard]] QImage remapped(const QImage &image, QSize size, QColor ground,
                              const std::function<QPointF(QPointF)> &source);

// Each pixel's colours times `factor` of its place.
void shade(QImage &image, const std::function<double(QPointF)> &factor);

void addNoise(QImage &image, int amplitude, SeededRandom &random);

[[nodiscard]] QImage blurred(const QImage &image, double share);

} // namespace fennick
