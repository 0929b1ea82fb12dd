#pragma once

#include "conversion/converter_error.h"
#include "model/receipt.h"
#include "platform/regular_file.h"

#include <QCoroTask>
#include <QObject>

#include <expected>
#include <memory>
#include <optional>

class QDateTime;

namespace fennick {

class LastError;
class ReceiptStore;
class SettingsStore;
class Tasks;
class Turns;
struct WatchedFolder;

// Delivers receipts to the photo library as JPEG images. A failure goes to `lastError`; the receipt stays as
// it is. Owned by AppState; main thread.
class PhotosDelivery : public QObject {
    Q_OBJECT

public:
    PhotosDelivery(ReceiptStore *store, SettingsStore *settings, const WatchedFolder *watchedFolder,
                   LastError *lastError, Tasks *tasks);

    // "Expenses: " and the day in the device's time zone.
    static QString albumName(const QDateTime &processingDate);

    // Delivers the receipt once more, also if it was delivered before. Does nothing while the preference is
    // off.
    void push(const Receipt &receipt);

    // Delivers the receipt and records it. `file` is the file that was scanned: no other one is delivered.
    [[nodiscard]] QCoro::Task<> deliver(Receipt receipt, std::optional<FileIdentity> file = {});

private:
    [[nodiscard]] QCoro::Task<bool> addToPhotos(Receipt receipt, std::optional<FileIdentity> file);
    [[nodiscard]] QCoro::Task<std::expected<QStringList, ConverterError>>
    convert(std::shared_ptr<QFile> content, Receipt receipt);

    ReceiptStore *store_;
    SettingsStore *settings_;
    const WatchedFolder *watchedFolder_;
    LastError *lastError_;
    Tasks *tasks_;
    std::shared_ptr<Turns> conversions_;
};

} // namespace fennick
