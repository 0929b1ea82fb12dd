#pragma once

#include <QStringView>

#include <array>

namespace fennick::GeminiClient {

// The category vocabulary; "misc" is the fallback everywhere. The order is that of the request's schema.
inline constexpr std::array<QStringView, 11> validCategories = {
    u"lunch", u"dinner",    u"breakfast", u"coffee",        u"hotel", u"transport",
    u"fuel",  u"groceries", u"shopping",  u"entertainment", u"misc"};

} // namespace fennick::GeminiClient
