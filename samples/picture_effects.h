#pragma once

#include <QImage>

namespace fennick {

// `paper` turned by `degrees` on a sheet of its own colour, greyish, with the grain of a scanner's sensor.
QImage scanned(const QImage &paper, double degrees);

// `paper` lying on a dark table, lit from one corner, as a phone takes it.
QImage photographed(const QImage &paper);

} // namespace fennick
