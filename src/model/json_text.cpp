#include "model/json_text.h"

#include "text/characters.h"

#include <array>
#include <charconv>
#include <cmath>

namespace fennick {

namespace {

void appendEscape(QByteArray &json, char character) {
    switch (character) {
    case '"':
        json.append(R"(\")");
        return;
    case '\\':
        json.append(R"(\\)");
        return;
    case '/':
        json.append(R"(\/)");
        return;
    case '\n':
        json.append(R"(\n)");
        return;
    case '\r':
        json.append(R"(\r)");
        return;
    case '\t':
        json.append(R"(\t)");
        return;
    default: {
        constexpr const char *digits = "0123456789abcdef";
        json.append(R"(\u00)");
        json.append(digits[(character >> 4) & 0xF]);
        json.append(digits[character & 0xF]);
    }
    }
}

bool needsEscape(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || character == '"' || character == '\\' || character == '/';
}

} // namespace

void appendJsonString(QByteArray &json, const QString &text) {
    const QByteArray bytes = wellFormed(text).toUtf8();
    json.append('"');
    qsizetype plainFrom = 0;
    for (qsizetype index = 0; index < bytes.size(); ++index) {
        if (!needsEscape(bytes[index])) {
            continue;
        }
        json.append(bytes.constData() + plainFrom, index - plainFrom);
        appendEscape(json, bytes[index]);
        plainFrom = index + 1;
    }
    json.append(bytes.constData() + plainFrom, bytes.size() - plainFrom);
    json.append('"');
}

void appendJsonNumber(QByteArray &json, double value) {
    constexpr double largestExactInteger = 9007199254740992.0; // 2^53
    std::array<char, 32> buffer;
    char *const begin = buffer.data();
    char *const end = begin + buffer.size();
    const auto written = std::abs(value) < largestExactInteger
                             ? std::to_chars(begin, end, value)
                             : std::to_chars(begin, end, value, std::chars_format::scientific);
    json.append(begin, written.ptr - begin);
}

} // namespace fennick
