#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <optional>
#include <string_view>

namespace fennick {

// Receives the pieces of a JSON text in order. Texts and keys are unescaped UTF-8 and valid until the call
// returns.
class JsonPieces {
public:
    virtual ~JsonPieces() = default;

    virtual void beginObject() = 0;
    virtual void key(std::string_view key) = 0;
    virtual void endObject() = 0;
    virtual void beginArray() = 0;
    virtual void endArray() = 0;
    virtual void text(std::string_view text) = 0;
    // Infinite if the number is too large for a double. `token` is the number as written.
    virtual void number(double value, std::string_view token) = 0;
    virtual void boolean(bool value) = 0;
    virtual void null() = 0;
};

// Parses the JSON text (RFC 8259) in `json`, reports its pieces to `pieces` and returns whether it is valid
// as a whole; the pieces before an error have been reported. Stricter than most parsers, so that all
// programs agree on what a valid list is: no `.5` or `1.`, no unknown escapes and no line feeds in texts,
// only valid UTF-8. Skips a byte-order mark at the start, replaces unpaired surrogates by U+FFFD, and fails
// beyond 512 levels of nesting.
[[nodiscard]] bool readJson(const QByteArray &json, JsonPieces &pieces);

// The whole text as a value; absent if it is not valid JSON. The last of repeated keys counts. Integers of
// up to 64 bits keep all their digits.
[[nodiscard]] std::optional<QJsonValue> parsedJson(const QByteArray &json);

// Converts UTF-8, which must be valid. Unlike Qt, keeps a byte-order mark at the start.
QString textFromUtf8(std::string_view bytes);

} // namespace fennick
