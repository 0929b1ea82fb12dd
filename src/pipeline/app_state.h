#pragma once

#include "conversion/converter_error.h"
#include "export/export_service.h"
#include "extraction/gemini_client.h"
#include "extraction/on_device_engine.h"
#include "files/fs_events_watcher.h"
#include "model/receipt_store.h"
#include "pipeline/renamed_paths.h"
#include "pipeline/turns.h"
#include "platform/regular_file.h"
#include "settings/settings_store.h"

#include <QCoroTask>
#include <QDateTime>
#include <QFuture>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QPromise>
#include <QSet>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <expected>
#include <memory>
#include <optional>

namespace fennick {

struct PendingArchive;

// The pipeline's controller: takes files from their arrival in the watched folder to finished receipts and
// delivers them to the photo library. Intake, scan run, delivery, archive and recovery are in files of their
// own. Created once by the application, which owns it and the two stores for as long as the process lives;
// main thread only, and several files may be under way at once, each in a task that suspends where it waits.
// A task that is resumed after the end of this object ends without a trace.
class AppState : public QObject {
    Q_OBJECT

public:
    AppState(ReceiptStore *store, SettingsStore *settings, QObject *parent = nullptr);
    ~AppState() override;

    // The last failure outside a receipt's own scan: delivery to the photo library, archiving.
    const std::optional<QString> &lastError() const { return lastError_; }

    // Recovery --------------------------------------------------------------------------------------------

    // Brings list, files and photo library together again where a run was killed in the middle of something.
    // Once, before anything else; what is returned has finished when files that were renamed are found again.
    QFuture<void> recoverFromInterruption();

    // Intake ----------------------------------------------------------------------------------------------

    // Watches the folder of the settings; without one, a running watch goes on.
    void startWatchingIfConfigured();

    // Watches `path` in place of the present folder and takes in the files that already lie there.
    void startWatching(const QString &path);

    // Copies receipt files from elsewhere into the watched folder, where they are then taken in; never over
    // an existing file. Other kinds of files are passed over.
    void copyIntoWatchFolder(const QStringList &paths);

    // Whether a file of this name is taken in, by its extension.
    static bool isSupported(const QString &path);

    // Scan run --------------------------------------------------------------------------------------------

    // Scans a listed receipt once more, by its present path.
    void retry(const Receipt &receipt);

    // Photos delivery -------------------------------------------------------------------------------------

    // Adds the receipt to the photo library, also when it was added before; nothing while the preference is
    // off.
    void pushToPhotos(const Receipt &receipt);

    // "Expenses: " and the day in the device's time zone.
    static QString albumName(const QDateTime &processingDate);

    // Archive and clear -------------------------------------------------------------------------------------

    // Where archives lie: the folder of the settings, or "Receipt Archive" in the watched folder, or nowhere.
    std::optional<QString> archiveRoot() const;

    // For display: the folder that a batch archived today is moved into.
    QString archiveDestinationPath() const;

    // Today as yyyy-MM-dd.
    static QString dateStamp();

    // A path in `folder` at which nothing exists: the name itself, or the first of "name (2)", "name (3)" ...
    static QString uniquePath(const QString &folder, const QString &base, const QString &extension);

    // Writes a ledger of the whole list into today's archive folder, moves the receipt files there, whatever
    // their status, and empties the list. Photos is never touched.
    void archiveAndClear(ExportService::Format format);

Q_SIGNALS:
    void lastErrorChanged();

private:
    using Clock = std::chrono::steady_clock;

    struct StateReading {
        FileState state;
        Clock::time_point at;
    };

    void handleEvents(const QList<FileEvent> &events);
    void debounce(const FileEvent &event);
    QCoro::Task<> scanExistingFiles(QString folder, QFuture<void> watching);
    void takeInLater(const QStringList &listed);
    QCoro::Task<> takeInOneAfterTheOther();
    bool isHidden(const QString &path) const;
    QCoro::Task<> copyReceipts(QStringList paths, QString folder);
    QCoro::Task<> processFile(QString path);
    QCoro::Task<> takeInWhenStable(QString path, StateReading reading);
    QCoro::Task<std::optional<FileState>> waitForFileStability(QString path, StateReading reading);
    QCoro::Task<> takeIn(QString path, FileState file);
    QCoro::Task<> listUnreadableNames(QString folder);
    bool isInArchive(const QString &path) const;

    QCoro::Task<> runScan(Receipt receipt, std::optional<FileIdentity> file);
    QCoro::Task<std::expected<GeminiReceiptData, ScanError>> extract(FileToRead file, QString key,
                                                                     QString address);
    QCoro::Task<std::expected<GeminiReceiptData, ScanError>> send(FileToRead file, QString key,
                                                                  QString address);
    void failScan(const QString &id, const QString &error);
    void renameFile(Receipt receipt);

    QCoro::Task<std::expected<QStringList, ConverterError>> convert(std::shared_ptr<QFile> content,
                                                                    Receipt receipt);
    QCoro::Task<bool> addToPhotos(Receipt receipt, std::optional<FileIdentity> file);
    QCoro::Task<> deliver(Receipt receipt, std::optional<FileIdentity> file = {});

    void carryOut(const PendingArchive &archive);
    void resumeArchive();
    void moveIntoArchive(const QString &path, const QString &folder);
    QCoro::Task<> adoptRenamedFiles(QPromise<void> end);
    void adoptFirstFree(Receipt receipt, const QStringList &paths);

    void setLastError(const QString &error);
    void startTask(QCoro::Task<> task);
    QCoro::Task<> reportFailureOf(QCoro::Task<> task);

    ReceiptStore *store_;
    SettingsStore *settings_;
    std::unique_ptr<QThreadPool> folderThreads_; // what lists the watched folder may wait for it for ever
    OnDeviceEngine engine_;
    std::shared_ptr<Turns> conversions_;
    std::optional<QString> lastError_;
    QFuture<void> adoption_ = QtFuture::makeReadyFuture(); // of files that a killed run has renamed
    std::unique_ptr<FSEventsWatcher> watcher_;
    QString watchedFolder_;
    QTimer unreadableNames_;  // until they are listed again, after an event of one
    QStringList listedFiles_; // found by listing a folder, to be taken in one after the other
    bool isTakingInListedFiles_ = false;
    QHash<QString, QTimer *> pendingDebounce_;       // by path; the timers are children of this object
    RenamedPaths recentlyRenamedTo_;                 // paths that the pipeline made by renaming
    QSet<QString> inFlight_;                         // paths between admission and the end of their scan run
    QHash<QString, StateReading> stabilityReadings_; // the paths among them whose size is being watched
};

} // namespace fennick
