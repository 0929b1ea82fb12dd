#include "pipeline/undo/recorded_deed.h"

#include "model/receipt_json.h"
#include "text/json_reader.h"
#include "text/path_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int deedsVersion = 1;
const QString clearName = u"clear"_s;
const QString archiveName = u"archive"_s;

QJsonArray encodeFiles(const QList<MovedFile> &files) {
    QJsonArray array;
    for (const MovedFile &file : files) {
        array.append(QJsonObject{{u"receipt"_s, file.receiptId}, {u"from"_s, file.from}, {u"to"_s, file.to}});
    }
    return array;
}

// The receipts as the list stores them, the rest around them.
QByteArray encodeDeed(const RecordedDeed &deed) {
    QList<Receipt> receipts;
    QJsonArray rowsBelow;
    for (const auto &[receipt, below] : deed.removed.rows) {
        receipts.append(receipt);
        rowsBelow.append(below);
    }
    const bool isClear = deed.kind == RecordedDeed::Kind::clear;
    QJsonObject object{{u"id"_s, deed.id},
                       {u"kind"_s, isClear ? clearName : archiveName},
                       {u"isBeingUndone"_s, deed.isBeingUndone},
                       {u"rowsBelow"_s, rowsBelow},
                       {u"newlyIgnored"_s, QJsonArray::fromStringList(deed.removed.newlyIgnored)}};
    if (!isClear) {
        object.insert(u"ledger"_s, deed.ledgerPath);
        object.insert(u"format"_s, ExportService::fileExtension(deed.format));
        object.insert(u"files"_s, encodeFiles(deed.files));
    }
    QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    json.chop(1);
    return json + ",\"receipts\":" + encodeReceipts(receipts) + '}';
}

std::optional<QStringList> decodeTexts(const QJsonValue &value) {
    if (!value.isArray()) {
        return std::nullopt;
    }
    QStringList texts;
    const QJsonArray array = value.toArray();
    for (const QJsonValueConstRef text : array) {
        if (!text.isString()) {
            return std::nullopt;
        }
        texts.append(text.toString());
    }
    return texts;
}

std::optional<RemovedReceipts> decodeRemoved(const QJsonObject &object) {
    const auto receipts = decodeReceipts(QJsonDocument(object.value(u"receipts").toArray()).toJson());
    const QJsonArray rowsBelow = object.value(u"rowsBelow").toArray();
    auto newlyIgnored = decodeTexts(object.value(u"newlyIgnored"));
    if (!receipts || !newlyIgnored || rowsBelow.size() != receipts->size()) {
        return std::nullopt;
    }
    RemovedReceipts removed{{}, *std::move(newlyIgnored)};
    QSet<QString> ids;
    for (qsizetype row = 0; row < receipts->size(); ++row) {
        const Receipt &receipt = receipts->at(row);
        const qint64 below = rowsBelow.at(row).toInteger(-1);
        if (below < 0 || !receipt.filePath.startsWith(u'/') || ids.contains(receipt.id)) {
            return std::nullopt;
        }
        ids.insert(receipt.id);
        removed.rows.append({receipt, below});
    }
    return removed;
}

std::optional<QList<MovedFile>> decodeFiles(const QJsonValue &value, const QSet<QString> &ids) {
    if (!value.isArray()) {
        return std::nullopt;
    }
    QList<MovedFile> files;
    const QJsonArray array = value.toArray();
    for (const QJsonValueConstRef entry : array) {
        const QJsonObject object = entry.toObject();
        const MovedFile file{object.value(u"receipt").toString(), object.value(u"from").toString(),
                             object.value(u"to").toString()};
        if (!ids.contains(file.receiptId) || !isLexicallyBelow(file.from, u"/"_s) ||
            !isLexicallyBelow(file.to, u"/"_s)) {
            return std::nullopt;
        }
        files.append(file);
    }
    return files;
}

std::optional<RecordedDeed> decodeDeed(const QJsonObject &object) {
    auto removed = decodeRemoved(object);
    const QString kind = object.value(u"kind").toString();
    const QString id = object.value(u"id").toString();
    if (!removed || id.isEmpty() || (kind != clearName && kind != archiveName)) {
        return std::nullopt;
    }
    RecordedDeed deed;
    deed.id = id;
    deed.removed = *std::move(removed);
    deed.isBeingUndone = object.value(u"isBeingUndone").toBool();
    if (kind == clearName) {
        return deed;
    }
    using ExportService::Format;
    auto files = decodeFiles(object.value(u"files"), receiptIds(deed));
    deed.kind = RecordedDeed::Kind::archive;
    deed.ledgerPath = object.value(u"ledger").toString();
    deed.format = object.value(u"format").toString() == ExportService::fileExtension(Format::html)
                      ? Format::html
                      : Format::csv;
    if (!files || !isLexicallyBelow(deed.ledgerPath, u"/"_s)) {
        return std::nullopt;
    }
    deed.files = *std::move(files);
    return deed;
}

} // namespace

QSet<QString> receiptIds(const RecordedDeed &deed) {
    QSet<QString> ids;
    for (const auto &[receipt, rowsBelow] : deed.removed.rows) {
        ids.insert(receipt.id);
    }
    return ids;
}

QByteArray encodeDeeds(const QList<RecordedDeed> &deeds) {
    QByteArrayList encoded;
    for (const RecordedDeed &deed : deeds) {
        encoded.append(encodeDeed(deed));
    }
    return "{\"version\":" + QByteArray::number(deedsVersion) + ",\"deeds\":[" + encoded.join(",\n") + "]}\n";
}

std::optional<QList<RecordedDeed>> decodeDeeds(const QByteArray &json) {
    const QJsonObject content = parsedJson(json).value_or(QJsonValue()).toObject();
    const QJsonValue entries = content.value(u"deeds");
    if (content.value(u"version").toInt() != deedsVersion || !entries.isArray()) {
        return std::nullopt;
    }
    QList<RecordedDeed> deeds;
    const QJsonArray array = entries.toArray();
    for (const QJsonValueConstRef entry : array) {
        auto deed = decodeDeed(entry.toObject());
        if (!deed) {
            return std::nullopt;
        }
        deeds.append(*std::move(deed));
    }
    return deeds;
}

} // namespace fennick
