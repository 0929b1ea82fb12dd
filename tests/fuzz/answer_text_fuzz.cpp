// Any text that a model may answer, through normalisation.
#include "extraction/normalisation.h"
#include "extraction/valid_categories.h"
#include "fuzz/invariant.h"
#include "text/characters.h"
#include "text/pattern.h"
#include "text/white_space.h"

#include <algorithm>
#include <cmath>

using namespace fennick;
using fuzz::require;

namespace {

void checkOptional(const std::optional<QString> &text, const char *pattern, const char *what) {
    require(!text || matchesWhole(*text, pattern), what);
}

void checkText(const QString &text, const char *what) {
    require(!text.isEmpty() && trimmedOfWhiteSpace(text) == text && fuzz::isWellFormed(text), what);
}

void check(const GeminiReceiptData &data) {
    checkOptional(data.date, R"(\d{4}-\d{2}-\d{2})", "the date has its form");
    checkOptional(data.time, R"(\d{2}:\d{2})", "the time has its form");
    checkOptional(data.currency, "[A-Z]{3}", "the currency has its form");
    require(!data.amount || std::isfinite(*data.amount), "the amount is a number");
    if (data.location) {
        checkText(*data.location, "the location is a trimmed text");
    }
    checkText(data.summary, "the summary is a trimmed text");
    require(std::ranges::find(GeminiClient::validCategories, data.category) !=
                GeminiClient::validCategories.end(),
            "the category is one of the vocabulary");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto object = GeminiClient::extractJSON(text);
    if (object) {
        check(GeminiClient::normalize(*object));
        return 0;
    }
    require(object.error().kind == GeminiError::Kind::parse, "the only failure is that of parsing");
    require(text.startsWith(object.error().text), "the failure shows the beginning of the text");
    require(firstCharacters(object.error().text, 500) == object.error().text, "500 characters are shown");
    return 0;
}
