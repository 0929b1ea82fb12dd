#include "model/json_text.h"
#include "model/receipt_json.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace fennick {

namespace {

// Writes the members of one object, one per line.
class ObjectWriter {
public:
    explicit ObjectWriter(QByteArray &json)
        : json_(json) {
        json_.append("  {");
    }

    void text(const char *key, const QString &value) {
        beginMember(key);
        appendJsonString(json_, value);
    }

    void text(const char *key, const std::optional<QString> &value) {
        if (value) {
            text(key, *value);
        }
    }

    void number(const char *key, std::optional<double> value) {
        if (!value || !std::isfinite(*value)) {
            return;
        }
        beginMember(key);
        appendJsonNumber(json_, *value);
    }

    void boolean(const char *key, bool value) {
        beginMember(key);
        json_.append(value ? "true" : "false");
    }

    void end() { json_.append("\n  }"); }

private:
    void beginMember(const char *key) {
        json_.append(isFirst_ ? "\n    \"" : ",\n    \"");
        json_.append(key);
        json_.append("\": ");
        isFirst_ = false;
    }

    QByteArray &json_;
    bool isFirst_ = true;
};

} // namespace

QByteArray encodeReceipt(const Receipt &receipt) {
    constexpr qsizetype typicalSize =
        512; // the receipts of docs/pictures/receipts.json take 450 bytes on average
    QByteArray json;
    json.reserve(typicalSize);
    ObjectWriter object(json);
    object.text("id", receipt.id);
    object.text("fileName", receipt.fileName);
    object.text("filePath", receipt.filePath);
    object.text("date", receipt.date);
    object.text("time", receipt.time);
    object.number("amount", receipt.amount);
    object.text("currency", receipt.currency);
    object.text("location", receipt.location);
    object.text("category", receipt.category);
    object.text("summary", receipt.summary);
    object.text("scannedAt", receipt.scannedAt);
    object.text("status", rawValue(receipt.status));
    object.text("error", receipt.error);
    object.boolean("addedToPhotos", receipt.addedToPhotos);
    object.end();
    json.squeeze();
    return json;
}

QByteArray joinReceipts(const QList<QByteArray> &records) {
    return records.isEmpty() ? QByteArray("[\n]\n") : "[\n" + records.join(",\n") + "\n]\n";
}

QByteArray encodeReceipts(const QList<Receipt> &receipts) {
    QList<QByteArray> records;
    records.reserve(receipts.size());
    std::ranges::transform(receipts, std::back_inserter(records), encodeReceipt);
    return joinReceipts(records);
}

QByteArray encodePaths(const QSet<QString> &paths) {
    QByteArray json(1, '[');
    for (const QString &path : paths) {
        if (json.size() > 1) {
            json.append(',');
        }
        appendJsonString(json, path);
    }
    json.append(']');
    return json;
}

} // namespace fennick
