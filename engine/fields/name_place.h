#pragma once

#include <QString>

#include <optional>

namespace fennick::engine {

// Where a name stands in a line, and how surely: 1 = as it is spelled, less for a part of it or a spelling
// that is only like it.
struct NamePlace {
    qsizetype start = 0; // in characters of the line
    qsizetype length = 0;
    double likeness = 0;
};

// The place in `line` that is most like `name`, whatever the case, the accents and the letters that
// recognition takes for each other (0 and O, 1 and l, rn and m). Of a name with an address behind it ("Corner
// Shop, 12 High Street") a part will do, of a name of several words the first one. Nothing if nothing is like
// it. Pure.
[[nodiscard]] std::optional<NamePlace> placeOfName(const QString &line, const QString &name);

} // namespace fennick::engine
