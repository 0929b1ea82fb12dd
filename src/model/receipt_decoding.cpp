#include "model/receipt_json.h"
#include "text/json_reader.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace fennick {

namespace {

using Error = DecodingError;

Error malformed() {
    return {Error::Kind::malformed, {}};
}

// One member's value: absent (missing or null), or of one of the types that a receipt has, or of another.
struct Value {
    enum class Type { absent, null, text, number, boolean, other };
    Type type = Type::absent;
    QString text = {};
    double number = 0;
    bool boolean = false;
};

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

// Takes the members of a record one by one in the order of declaration; after the first error the rest is
// left alone and `error` tells it.
class RecordReader {
public:
    explicit RecordReader(Members &members)
        : members_(members) {}

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
        // One beyond all doubles is no amount, and no reason to give up the list.
        if (isGiven(key) && expect(Value::Type::number, key) && std::isfinite(members_[key].number)) {
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
            firstError_ = Error{kind, textFromUtf8(receiptKeys[key])};
        }
    }

    Members &members_;
    std::optional<Error> firstError_;
};

// Takes the texts out of the members.
std::expected<Receipt, Error> receiptFromMembers(Members &members) {
    RecordReader record(members);
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

// The list as a whole: an array of objects. What lies deeper belongs to keys that are none of a receipt's,
// and counts only as a value of a type that no receipt has.
class ListReader : public JsonPieces {
public:
    void beginObject() override {
        if (level_ == 1) {
            std::ranges::for_each(members_, [](Value &member) { member.type = Value::Type::absent; });
            expected_ = 0;
        } else {
            take({.type = Value::Type::other});
        }
        ++level_;
    }
    void key(std::string_view key) override {
        if (level_ == 2) {
            place_ = placeOf(key, expected_);
            expected_ = place_ == keyCount ? expected_ : place_ + 1;
        }
    }
    void endObject() override {
        --level_;
        if (level_ == 1 && !firstError_) {
            addReceipt();
        }
    }
    void beginArray() override {
        if (level_ > 0) {
            take({.type = Value::Type::other});
        }
        ++level_;
    }
    void endArray() override { --level_; }
    void text(std::string_view text) override {
        if (isWanted()) {
            members_[place_].type = Value::Type::text;
            members_[place_].text = textFromUtf8(text);
        }
        checkLevel();
    }
    void number(double value, std::string_view) override {
        take({.type = Value::Type::number, .number = value});
    }
    void boolean(bool value) override { take({.type = Value::Type::boolean, .boolean = value}); }
    void null() override { take({.type = Value::Type::null}); }

    std::expected<QList<Receipt>, Error> receipts() && {
        if (!isList_) {
            return std::unexpected(malformed());
        }
        if (firstError_) {
            return std::unexpected(*firstError_);
        }
        return std::move(receipts_);
    }

private:
    bool isWanted() const { return level_ == 2 && place_ != keyCount; }

    void take(const Value &value) {
        if (isWanted()) {
            members_[place_] = value;
        }
        checkLevel();
    }

    // Only objects may stand in the list, and only a list be the whole.
    void checkLevel() { isList_ = isList_ && level_ > 1; }

    void addReceipt() {
        auto receipt = receiptFromMembers(members_);
        if (receipt) {
            receipts_.append(*std::move(receipt));
        } else {
            firstError_ = receipt.error();
        }
    }

    int level_ = 0;
    bool isList_ = true;
    size_t place_ = keyCount; // of the member whose value comes next
    size_t expected_ = 0;
    Members members_;
    QList<Receipt> receipts_;
    std::optional<Error> firstError_;
};

} // namespace

std::expected<QList<Receipt>, DecodingError> decodeReceipts(const QByteArray &json) {
    ListReader list;
    if (!readJson(json, list)) {
        return std::unexpected(malformed());
    }
    return std::move(list).receipts();
}

std::expected<QSet<QString>, DecodingError> decodePaths(const QByteArray &json) {
    const auto list = parsedJson(json);
    if (!list || !list->isArray()) {
        return std::unexpected(malformed());
    }
    QSet<QString> paths;
    const QJsonArray array = list->toArray();
    for (const QJsonValueConstRef path : array) {
        if (!path.isString()) {
            return std::unexpected(malformed());
        }
        paths.insert(path.toString());
    }
    return paths;
}

} // namespace fennick
