#include "model/receipt_json.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace fennick {

namespace {

namespace dom = simdjson::dom;
using Error = DecodingError;

Error malformed() {
    return {Error::Kind::malformed, {}};
}

// Qt takes a byte-order mark at the start for a mark of the encoding and drops it; here it is part of a name
// or text.
QString toQString(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const QString decoded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return text.starts_with(byteOrderMark) ? QChar(QChar::ByteOrderMark) + decoded : decoded;
}

// One member's value: absent (missing or null), or of one of the types that a receipt has, or of another.
struct Value {
    enum class Type { absent, null, text, number, boolean, other };
    Type type = Type::absent;
    QString text;
    double number = 0;
    bool boolean = false;
};

Value readValue(dom::element json) {
    Value value;
    switch (json.type()) {
    case dom::element_type::STRING:
        value.type = Value::Type::text;
        value.text = toQString(json.get_string().value_unsafe());
        break;
    case dom::element_type::INT64:
    case dom::element_type::UINT64:
    case dom::element_type::DOUBLE:
        value.type = Value::Type::number;
        value.number = json.get_double().value_unsafe();
        break;
    case dom::element_type::BOOL:
        value.type = Value::Type::boolean;
        value.boolean = json.get_bool().value_unsafe();
        break;
    case dom::element_type::NULL_VALUE:
        value.type = Value::Type::null;
        break;
    default:
        value.type = Value::Type::other;
        break;
    }
    return value;
}

// The members of one record by the place of their key in `receiptKeys`.
enum Key : size_t {
    id,
    fileName,
    filePath,
    date,
    time,
    amount,
    currency,
    location,
    category,
    summary,
    scannedAt,
    status,
    error,
    addedToPhotos,
    keyCount
};

constexpr std::array<std::string_view, keyCount> receiptKeys = {
    "id",       "fileName", "filePath", "date",      "time",   "amount", "currency",
    "location", "category", "summary",  "scannedAt", "status", "error",  "addedToPhotos"};

using Members = std::array<Value, keyCount>;

// The place of `key`, or keyCount. It is mostly the expected one: the program writes the keys in this order.
size_t placeOf(std::string_view key, size_t expected) {
    if (expected < keyCount && receiptKeys[expected] == key) {
        return expected;
    }
    return static_cast<size_t>(std::ranges::find(receiptKeys, key) - receiptKeys.begin());
}

Members readMembers(dom::object record) {
    Members members;
    size_t expected = 0;
    for (const auto [key, json] : record) {
        const size_t place = placeOf(key, expected);
        if (place != keyCount) {
            members[place] = readValue(json);
            expected = place + 1;
        }
    }
    return members;
}

// Takes the members of a record one by one in the order of declaration; after the first error the rest is
// left alone and `error` tells it.
class RecordReader {
public:
    explicit RecordReader(Members members)
        : members_(std::move(members)) {}

    void required(Key key, QString &field) {
        if (members_[key].type == Value::Type::absent) {
            fail(Error::Kind::keyNotFound, key);
        } else if (expect(Value::Type::text, key)) {
            field = std::move(members_[key].text);
        }
    }

    void optional(Key key, QString &field) {
        if (isGiven(key) && expect(Value::Type::text, key)) {
            field = std::move(members_[key].text);
        }
    }

    void optional(Key key, std::optional<QString> &field) {
        if (isGiven(key) && expect(Value::Type::text, key)) {
            field = std::move(members_[key].text);
        }
    }

    void optional(Key key, std::optional<double> &field) {
        if (isGiven(key) && expect(Value::Type::number, key)) {
            field = members_[key].number;
        }
    }

    void optional(Key key, bool &field) {
        if (isGiven(key) && expect(Value::Type::boolean, key)) {
            field = members_[key].boolean;
        }
    }

    // A record without a status is finished: it is never scanned again.
    void optionalStatus(ReceiptStatus &field) {
        field = ReceiptStatus::done;
        if (!isGiven(status) || !expect(Value::Type::text, status)) {
            return;
        }
        const auto known = receiptStatusFromRawValue(members_[status].text);
        if (known) {
            field = *known;
        } else {
            fail(Error::Kind::dataCorrupted, status);
        }
    }

    const std::optional<Error> &firstError() const { return firstError_; }

private:
    bool isGiven(Key key) const {
        return members_[key].type != Value::Type::absent && members_[key].type != Value::Type::null;
    }

    bool expect(Value::Type type, Key key) {
        if (members_[key].type == type) {
            return true;
        }
        fail(Error::Kind::typeMismatch, key);
        return false;
    }

    void fail(Error::Kind kind, Key key) {
        if (!firstError_) {
            firstError_ = Error{kind, toQString(receiptKeys[key])};
        }
    }

    Members members_;
    std::optional<Error> firstError_;
};

std::expected<Receipt, Error> receiptFromMembers(Members members) {
    RecordReader record(std::move(members));
    Receipt receipt;
    record.required(id, receipt.id);
    record.required(fileName, receipt.fileName);
    record.required(filePath, receipt.filePath);
    record.optional(date, receipt.date);
    record.optional(time, receipt.time);
    record.optional(amount, receipt.amount);
    record.optional(currency, receipt.currency);
    record.optional(location, receipt.location);
    record.optional(category, receipt.category);
    record.optional(summary, receipt.summary);
    record.required(scannedAt, receipt.scannedAt);
    record.optionalStatus(receipt.status);
    record.optional(error, receipt.error);
    record.optional(addedToPhotos, receipt.addedToPhotos);
    if (record.firstError()) {
        return std::unexpected(*record.firstError());
    }
    return receipt;
}

std::expected<Receipt, Error> readReceipt(dom::element json) {
    dom::object record;
    if (json.get(record) != simdjson::SUCCESS) {
        return std::unexpected(malformed());
    }
    return receiptFromMembers(readMembers(record));
}

std::expected<QString, Error> readPath(dom::element json) {
    std::string_view path;
    if (json.get(path) != simdjson::SUCCESS) {
        return std::unexpected(malformed());
    }
    return toQString(path);
}

// The elements of the JSON array that must be the whole document, each read with `readElement`.
template <typename Element>
std::expected<QList<Element>, Error> readArray(const QByteArray &json,
                                               std::expected<Element, Error> (*readElement)(dom::element)) {
    const QByteArray content = json.startsWith("\xEF\xBB\xBF") ? json.mid(3) : json;
    dom::parser parser;
    dom::array array;
    if (parser.parse(content.constData(), static_cast<size_t>(content.size())).get(array) !=
        simdjson::SUCCESS) {
        return std::unexpected(malformed());
    }
    QList<Element> elements;
    elements.reserve(static_cast<qsizetype>(array.size()));
    for (const dom::element item : array) {
        auto element = readElement(item);
        if (!element) {
            return std::unexpected(element.error());
        }
        elements.append(*std::move(element));
    }
    return elements;
}

} // namespace

std::expected<QList<Receipt>, DecodingError> decodeReceipts(const QByteArray &json) {
    return readArray<Receipt>(json, readReceipt);
}

std::expected<QSet<QString>, DecodingError> decodePaths(const QByteArray &json) {
    const auto paths = readArray<QString>(json, readPath);
    if (!paths) {
        return std::unexpected(paths.error());
    }
    return QSet<QString>(paths->begin(), paths->end());
}

} // namespace fennick
