#include "text/pattern.h"

#include <unicode/regex.h>

namespace fennick {

bool matchesWhole(const QString &text, const char *pattern) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString input(false, text.utf16(), static_cast<int32_t>(text.size()));
    icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(pattern), input, 0, status);
    return matcher.matches(status) && U_SUCCESS(status);
}

} // namespace fennick
