#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"
#include "extraction/on_device_engine.h"
#include "model/receipt.h"
#include "platform/regular_file.h"

#include <QCoroTask>
#include <QObject>

#include <expected>
#include <optional>

namespace fennick {

class PhotosDelivery;
class ReceiptRenaming;
class ReceiptStore;
class SettingsStore;
class Tasks;
struct WatchedFolder;

// Scans listed receipts: has the extraction service read the file, records the result, renames the file and
// passes the receipt on to the photo library. Owned by AppState; main thread.
class ScanRun : public QObject {
    Q_OBJECT

public:
    ScanRun(ReceiptStore *store, SettingsStore *settings, const WatchedFolder *watchedFolder,
            ReceiptRenaming *renaming, PhotosDelivery *delivery, Tasks *tasks);

    // Makes the first request as prompt as the others.
    static void prepare();

    // `file` is the file that was seen when the receipt was taken in: if another one has come to its path,
    // that one is not sent.
    [[nodiscard]] QCoro::Task<> run(Receipt receipt, std::optional<FileIdentity> file);

    // Scans a listed receipt once more, by its present path.
    void retry(const Receipt &receipt);

private:
    using Extracted = std::expected<GeminiReceiptData, ScanError>;

    [[nodiscard]] QCoro::Task<Extracted> extract(FileToRead file, QString key, QString address);
    [[nodiscard]] QCoro::Task<Extracted> send(FileToRead file, QString key, QString address);
    void takeResult(const QString &id, const GeminiReceiptData &data);

    ReceiptStore *store_;
    SettingsStore *settings_;
    const WatchedFolder *watchedFolder_;
    ReceiptRenaming *renaming_;
    PhotosDelivery *delivery_;
    Tasks *tasks_;
    OnDeviceEngine engine_;
};

} // namespace fennick
