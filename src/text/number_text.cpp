#include "text/number_text.h"

#include <array>
#include <charconv>
#include <limits>

namespace fennick {

QString twoDecimals(double value) {
    // The longest finite value has 309 digits before the point; sign, point and two decimals follow.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 8> buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 2);
    return QString::fromLatin1(buffer.data(), end.ptr - buffer.data());
}

} // namespace fennick
