#pragma once

#include "engine/text_line.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick {

// The seller's name: the first line at the top that is a name rather than a heading ("Invoice"), an address,
// a number or a greeting. As printed, without what tills put around it ("*** Corner Shop ***").
std::optional<QString> readMerchant(const QList<TextLine> &lines);

} // namespace fennick
