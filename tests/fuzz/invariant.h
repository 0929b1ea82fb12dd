#pragma once

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <source_location>

namespace fennick::fuzz {

// Ends the process, and with it the search, when something does not hold that must hold for any input.
inline void require(bool holds, const char *what,
                    std::source_location place = std::source_location::current()) {
    if (!holds) {
        std::fprintf(stderr, "%s:%u: does not hold: %s\n", place.file_name(), place.line(), what);
        std::abort();
    }
}

// Whether the text survives being written as UTF-8: it has no half of a character. (Comparing it with what
// QString::fromUtf8 reads back would not do: that drops a byte-order mark at the beginning.)
inline bool isWellFormed(const QString &text) {
    return text.isValidUtf16();
}

} // namespace fennick::fuzz
