#pragma once

#include "engine/recognition/text_line.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick {

// Readings of a picture in a file of their own, so that what is made of them can be measured again and again
// without the seconds that recognition takes. One line of text for each line: reading, page, box, confidence
// and text, separated by tabs.
[[nodiscard]] bool keepReadings(const QString &path, const QList<engine::Reading> &readings);

// Nothing if the file cannot be read.
[[nodiscard]] std::optional<QList<engine::Reading>> keptReadings(const QString &path);

} // namespace fennick
