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

// Whether the text survives being written as UTF-8.
inline bool isWellFormed(const QString &text) {
    return QString::fromUtf8(text.toUtf8()) == text;
}

} // namespace fennick::fuzz
