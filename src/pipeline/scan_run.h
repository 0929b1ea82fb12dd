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

    // Loads the library for TLS on another thread, so that the first request takes no longer than later ones.
    // Returns at once.
    static void prepare();

    // `file` is the file that was seen at intake: a different one at its path is not sent. If it is absent,
    // any file is accepted. `previousResult` is the receipt as the last successful scan left it, if there was
    // one: its file is renamed only if the name changes.
    [[nodiscard]] QCoro::Task<ScanOutcome> run(Receipt receipt, std::optional<FileIdentity> file,
                                               std::optional<Receipt> previousResult = std::nullopt);

    // Scans a listed receipt once more, by its present path.
    void retry(const Receipt &receipt);

    // The same, to be awaited. May block for a second while it checks that the folder responds. `failed` if
    // the receipt is not listed.
    [[nodiscard]] QCoro::Task<ScanOutcome> rescan(QString id);

    // Whether a scan of this receipt is running, delivery to the photo library included, and was not
    // disregarded.
    bool isUnderWay(const QString &id) const { return underWay_.count(id) > disregarded_.count(id); }

    // Discards the result of the scan that is running for this receipt, whose status stays as it is.
    void disregard(const QString &id);

    // Whether the receipt failed because there was no API key, or the service rejected it.
    [[nodiscard]] static bool lacksKey(const Receipt &receipt);

Q_SIGNALS:
    // The service rejected the API key. Emitted for each receipt that fails because of it.
    void keyRefused();

private:
    using Extracted = std::expected<GeminiReceiptData, ScanError>;

    [[nodiscard]] QCoro::Task<Extracted> extract(FileToRead file, QString key, QString address);
    [[nodiscard]] QCoro::Task<Extracted> send(FileToRead file, QString key, QString address);
    [[nodiscard]] QCoro::Task<> retryOne(QString id);
    ScanOutcome takeFailure(const QString &id, const ScanError &error);
    void takeResult(const QString &id, const GeminiReceiptData &data,
                    const std::optional<Receipt> &previousResult);

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
