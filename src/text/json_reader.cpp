#include "text/json_reader.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <variant>
#include <vector>

namespace fennick {

namespace {

constexpr int mostLevels = 512; // answers and lists have fewer than ten
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

void appendUtf8(std::string &text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
    } else {
        if (character < 0x10000) {
            text += static_cast<char>(0xE0 | (character >> 12));
        } else {
            text += static_cast<char>(0xF0 | (character >> 18));
            text += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
        }
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    }
    text += static_cast<char>(0x80 | (character & 0x3F));
}

// The exponent in "" or "e" and a number; a value beyond every exponent of a double if it does not fit.
qint64 exponentAt(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    text.remove_prefix(text.starts_with("e+") || text.starts_with("E+") ? 2 : 1);
    qint64 exponent = 0;
    const auto error = std::from_chars(text.data(), text.data() + text.size(), exponent).ec;
    constexpr qint64 beyond = 1LL << 40;
    return error == std::errc() ? std::clamp(exponent, -beyond, beyond)
                                : (text.starts_with('-') ? -beyond : beyond);
}

// The value of a number that fits the grammar, whatever its size.
double valueOf(std::string_view token) {
    double value = 0;
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), value);
    if (error != std::errc::result_out_of_range) {
        return value;
    }
    // Too large or too small: what counts is where the first digit stands that is not zero.
    const size_t mark = std::min(token.find_first_of("eE"), token.size());
    const std::string_view digits = token.substr(0, mark);
    const auto point = static_cast<qint64>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<qint64>(digits.find_first_of("123456789"));
    const bool isLarge = point - first + exponentAt(token.substr(mark)) > 0;
    const double size = isLarge ? std::numeric_limits<double>::infinity() : 0.0;
    return token.starts_with('-') ? -size : size;
}

// Reads from the front of the text; each function returns whether it found what it is named after.
class Reader {
public:
    Reader(std::string_view json, JsonPieces &pieces)
        : at_(json.data())
        , end_(json.data() + json.size())
        , pieces_(pieces) {}

    bool document() {
        skipBlanks();
        if (!value(1)) {
            return false;
        }
        skipBlanks();
        return at_ == end_;
    }

private:
    bool value(int level) {
        if (at_ == end_ || level > mostLevels) {
            return false;
        }
        switch (*at_) {
        case '{':
            return object(level);
        case '[':
            return array(level);
        case '"':
            return text([this](std::string_view found) { pieces_.text(found); });
        case 't':
            return word("true") && (pieces_.boolean(true), true);
        case 'f':
            return word("false") && (pieces_.boolean(false), true);
        case 'n':
            return word("null") && (pieces_.null(), true);
        default:
            return number();
        }
    }

    bool object(int level) {
        pieces_.beginObject();
        const auto member = [this, level] {
            const auto handOver = [this](std::string_view found) {
                pieces_.key(found);
            };
            if (at_ == end_ || *at_ != '"' || !text(handOver)) {
                return false;
            }
            skipBlanks();
            if (!character(':')) {
                return false;
            }
            skipBlanks();
            return value(level + 1);
        };
        if (!sequence('}', member)) {
            return false;
        }
        pieces_.endObject();
        return true;
    }

    bool array(int level) {
        pieces_.beginArray();
        if (!sequence(']', [this, level] { return value(level + 1); })) {
            return false;
        }
        pieces_.endArray();
        return true;
    }

    // Items with commas between them, from an opening bracket to the closing one.
    template <typename Item>
    bool sequence(char closing, Item item) {
        ++at_;
        skipBlanks();
        if (character(closing)) {
            return true;
        }
        while (item()) {
            skipBlanks();
            if (character(closing)) {
                return true;
            }
            if (!character(',')) {
                return false;
            }
            skipBlanks();
        }
        return false;
    }

    template <typename Receiver>
    bool text(Receiver receive) {
        const char *plainFrom = ++at_;
        unescaped_.clear();
        while (at_ != end_) {
            const auto byte = static_cast<unsigned char>(*at_);
            if (byte == '"') {
                const std::string_view plain(plainFrom, static_cast<size_t>(at_ - plainFrom));
                ++at_;
                receive(unescaped_.empty() ? plain : std::string_view(unescaped_.append(plain)));
                return true;
            }
            if (byte < 0x20) {
                return false;
            }
            if (byte != '\\') {
                ++at_;
                continue;
            }
            unescaped_.append(plainFrom, at_);
            if (!escape()) {
                return false;
            }
            plainFrom = at_;
        }
        return false;
    }

    bool escape() {
        ++at_;
        if (at_ == end_) {
            return false;
        }
        constexpr std::string_view letters = "\"\\/bfnrtu";
        constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
        const size_t place = letters.find(*at_++);
        if (place < meanings.size()) {
            unescaped_ += meanings[place];
            return true;
        }
        return place == meanings.size() && unicodeEscape();
    }

    bool unicodeEscape() {
        const auto unit = fourDigits();
        if (!unit) {
            return false;
        }
        if (!QChar::isSurrogate(*unit)) {
            appendUtf8(unescaped_, *unit);
            return true;
        }
        if (QChar::isHighSurrogate(*unit) && end_ - at_ >= 6 && at_[0] == '\\' && at_[1] == 'u') {
            const char *const before = at_;
            at_ += 2;
            const auto second = fourDigits();
            if (second && QChar::isLowSurrogate(*second)) {
                appendUtf8(unescaped_, QChar::surrogateToUcs4(static_cast<char16_t>(*unit),
                                                              static_cast<char16_t>(*second)));
                return true;
            }
            at_ = before;
        }
        appendUtf8(unescaped_, QChar::ReplacementCharacter);
        return true;
    }

    std::optional<char32_t> fourDigits() {
        unsigned unit = 0;
        if (end_ - at_ < 4 || std::from_chars(at_, at_ + 4, unit, 16).ptr != at_ + 4) {
            return std::nullopt;
        }
        at_ += 4;
        return unit;
    }

    bool number() {
        const char *const begin = at_;
        character('-');
        if (!character('0') && !digits()) {
            return false;
        }
        if (character('.') && !digits()) {
            return false;
        }
        if (character('e') || character('E')) {
            if (!character('-')) {
                character('+');
            }
            if (!digits()) {
                return false;
            }
        }
        const std::string_view token(begin, static_cast<size_t>(at_ - begin));
        pieces_.number(valueOf(token), token);
        return true;
    }

    bool digits() {
        const char *const begin = at_;
        at_ = std::find_if_not(at_, end_, isDigit);
        return at_ != begin;
    }

    bool word(std::string_view word) {
        if (!std::string_view(at_, static_cast<size_t>(end_ - at_)).starts_with(word)) {
            return false;
        }
        at_ += word.size();
        return true;
    }

    bool character(char wanted) {
        if (at_ == end_ || *at_ != wanted) {
            return false;
        }
        ++at_;
        return true;
    }

    void skipBlanks() {
        while (at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t')) {
            ++at_;
        }
    }

    const char *at_;
    const char *end_;
    JsonPieces &pieces_;
    std::string unescaped_; // of the text that is being read, up to its last escape
};

// Puts the pieces together again.
class ValueBuilder : public JsonPieces {
public:
    const QJsonValue &value() const { return value_; }

    void beginObject() override { open_.push_back({QJsonObject(), {}}); }
    void key(std::string_view key) override { open_.back().key = textFromUtf8(key); }
    void endObject() override { close(); }
    void beginArray() override { open_.push_back({QJsonArray(), {}}); }
    void endArray() override { close(); }
    void text(std::string_view text) override { add(textFromUtf8(text)); }
    void number(double value, std::string_view token) override {
        qint64 whole = 0;
        const char *const end = token.data() + token.size();
        const auto [rest, error] = std::from_chars(token.data(), end, whole);
        add(rest == end && error == std::errc() ? QJsonValue(whole) : QJsonValue(value));
    }
    void boolean(bool value) override { add(value); }
    void null() override { add(QJsonValue::Null); }

private:
    struct Open {
        std::variant<QJsonObject, QJsonArray> container;
        QString key; // of the member that comes next
    };

    void close() {
        const Open closed = std::move(open_.back());
        open_.pop_back();
        if (const auto *const object = std::get_if<QJsonObject>(&closed.container)) {
            add(*object);
        } else {
            add(std::get<QJsonArray>(closed.container));
        }
    }

    void add(const QJsonValue &value) {
        if (open_.empty()) {
            value_ = value;
        } else if (auto *const object = std::get_if<QJsonObject>(&open_.back().container)) {
            object->insert(open_.back().key, value);
        } else {
            std::get<QJsonArray>(open_.back().container).append(value);
        }
    }

    std::vector<Open> open_;
    QJsonValue value_;
};

} // namespace

bool readJson(const QByteArray &json, JsonPieces &pieces) {
    if (!json.isValidUtf8()) {
        return false;
    }
    std::string_view text(json.constData(), static_cast<size_t>(json.size()));
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    return Reader(text, pieces).document();
}

std::optional<QJsonValue> parsedJson(const QByteArray &json) {
    ValueBuilder builder;
    return readJson(json, builder) ? std::optional(builder.value()) : std::nullopt;
}

QString textFromUtf8(std::string_view bytes) {
    const QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return bytes.starts_with(byteOrderMark) ? QChar(QChar::ByteOrderMark) + text : text;
}

} // namespace fennick
