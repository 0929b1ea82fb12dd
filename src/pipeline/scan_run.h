#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"
#include "model/receipt.h"
#include "pipeline/scan_outcome.h"
#include "platform/regular_file.h"

#include <QCoroTask>
#include <QObject>
#include <QStringList>

#include <expected>
#include <optional>

namespace fennick {

class CorrectedReceipts;
class FolderThreads;
class OnDeviceEngine;
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
            ReceiptRenaming *renaming, CorrectedReceipts *corrected, PhotosDelivery *delivery,
            OnDeviceEngine *engine, const FolderThreads *folderThreads, Tasks *tasks);

    // Makes the first request as prompt as the others.
    static void prepare();

    // `file` is the file that was seen when the receipt was taken in: if another one has come to its path,
    // that one is not sent. `read` is the receipt as an earlier scan has left it, if it has succeeded.
    [[nodiscard]] QCoro::Task<ScanOutcome> run(Receipt receipt, std::optional<FileIdentity> file,
                                               std::optional<Receipt> read = std::nullopt);

    // Scans a listed receipt once more, by its present path.
    void retry(const Receipt &receipt);

    // The same, to be awaited.
    [[nodiscard]] QCoro::Task<ScanOutcome> again(QString id);

    // Whether a scan of this receipt is under way that would still give it its result.
    bool isUnderWay(const QString &id) const { return underWay_.count(id) > disregarded_.count(id); }

    // Lets the scan of this receipt that is under way end without a result.
    void disregard(const QString &id);

    // Whether the receipt failed because there was no API key, or none that the service takes.
    [[nodiscard]] static bool lacksKey(const Receipt &receipt);

Q_SIGNALS:
    // The service does not take the API key.
    void keyRefused();

private:
    using Extracted = std::expected<GeminiReceiptData, ScanError>;

    [[nodiscard]] QCoro::Task<Extracted> extract(FileToRead file, QString key, QString address);
    [[nodiscard]] QCoro::Task<Extracted> send(FileToRead file, QString key, QString address);
    [[nodiscard]] QCoro::Task<> retryOne(QString id);
    ScanOutcome takeFailure(const QString &id, const ScanError &error);
    void takeResult(const QString &id, const GeminiReceiptData &data, const std::optional<Receipt> &read);

    ReceiptStore *store_;
    SettingsStore *settings_;
    const WatchedFolder *watchedFolder_;
    ReceiptRenaming *renaming_;
    CorrectedReceipts *corrected_;
    PhotosDelivery *delivery_;
    OnDeviceEngine *engine_;
    const FolderThreads *folderThreads_;
    Tasks *tasks_;
    QStringList underWay_; // the receipts' identifiers, one for each scan
    QStringList disregarded_;
};

} // namespace fennick
