#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <optional>
#include <string_view>

namespace fennick {

// What a JSON text consists of, piece by piece in its order. Texts and keys are UTF-8, without their escapes,
// and valid until the call returns.
class JsonPieces {
public:
    virtual ~JsonPieces() = default;

    virtual void beginObject() = 0;
    virtual void key(std::string_view key) = 0;
    virtual void endObject() = 0;
    virtual void beginArray() = 0;
    virtual void endArray() = 0;
    virtual void text(std::string_view text) = 0;
    // Infinite if it is beyond all doubles. `token` is the number as it is written.
    virtual void number(double value, std::string_view token) = 0;
    virtual void boolean(bool value) = 0;
    virtual void null() = 0;
};

// Hands the pieces of the JSON text (RFC 8259) in `json` to `pieces`; returns whether the whole of it is one.
// The pieces before a fault are handed over. Stricter than most readers, because what one program takes for a
// list must be one for every other: no `.5` or `1.`, no escapes or line feeds of one's own in texts, valid
// UTF-8 only. A byte-order mark at the start is passed over, half a surrogate pair becomes U+FFFD, and
// nothing may be nested deeper than 512 levels.
[[nodiscard]] bool readJson(const QByteArray &json, JsonPieces &pieces);

// The whole text as a value; nothing if it is no JSON. Of a repeated key the last one counts. Whole numbers
// of up to 64 bits keep all their digits.
[[nodiscard]] std::optional<QJsonValue> parsedJson(const QByteArray &json);

// A text in UTF-8 as it stands: a byte-order mark at its start is part of it, which Qt drops. The bytes must
// be valid.
QString textFromUtf8(std::string_view bytes);

} // namespace fennick
