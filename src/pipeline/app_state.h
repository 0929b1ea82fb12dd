#pragma once

#include "export/export_service.h"
#include "extraction/on_device_engine.h"
#include "pipeline/archive.h"
#include "pipeline/corrected_receipts.h"
#include "pipeline/correction.h"
#include "pipeline/dropped_files.h"
#include "pipeline/duplicates/archived_receipts.h"
#include "pipeline/duplicates/possible_duplicates.h"
#include "pipeline/duplicates/same_contents.h"
#include "pipeline/evidence_search.h"
#include "pipeline/folder_admission.h"
#include "pipeline/folder_survey.h"
#include "pipeline/folder_threads.h"
#include "pipeline/former_archives.h"
#include "pipeline/ignored_dates.h"
#include "pipeline/intake.h"
#include "pipeline/last_error.h"
#include "pipeline/photos_delivery.h"
#include "pipeline/receipt_pages.h"
#include "pipeline/receipt_renaming.h"
#include "pipeline/recovery.h"
#include "pipeline/renamed_paths.h"
#include "pipeline/retry_all.h"
#include "pipeline/scan_run.h"
#include "pipeline/tasks.h"
#include "pipeline/undo/undo_history.h"
#include "pipeline/watched_folder.h"

#include <QDateTime>
#include <QFuture>
#include <QObject>

#include <expected>
#include <memory>
#include <optional>

namespace fennick {

class ReceiptStore;
class SettingsStore;

// The pipeline's controller: takes files from their arrival in the watched folder to finished receipts and
// delivers them to the photo library. It owns the parts that do this and is all that the windows see of them.
// Created once by the application, which owns it and the two stores for as long as the process lives; main
// thread only.
class AppState : public QObject {
    Q_OBJECT

public:
    AppState(ReceiptStore *store, SettingsStore *settings, QObject *parent = nullptr);
    ~AppState() override;

    // The last failure outside a receipt's own scan: delivery to the photo library, archiving.
    const std::optional<QString> &lastError() const { return lastError_.text(); }

    // Recovery --------------------------------------------------------------------------------------------

    // Makes list, files and photo library consistent again after the program was killed in the middle of
    // something. Call once, before anything else. The returned future finishes when files that were renamed
    // are found again.
    QFuture<void> recoverFromInterruption();

    // Intake ----------------------------------------------------------------------------------------------

    // Watches the folder of the settings; without one, a running watch goes on.
    void startWatchingIfConfigured();

    // Watches `path` in place of the present folder and takes in the files that already lie there.
    void startWatching(const QString &path);

    // Looks at a folder before it is watched.
    [[nodiscard]] std::unique_ptr<FolderSurvey> survey(const QString &path) const;

    // Makes the folder the watched one of the settings and starts watching it. If the files that lie there
    // are to be ignored, this begins after they were listed, and does not if that cannot be saved.
    void admitFolder(const QString &path, ExistingFiles existing);

    // Copies receipt files from elsewhere into the watched folder, where they are then taken in. Never
    // replaces an existing file and ignores other kinds of files.
    void copyIntoWatchFolder(const QStringList &paths);

    // Since when files are ignored.
    const IgnoredDates &ignoredDates() const { return ignoredDates_; }

    // No longer ignores these files, and takes in those that lie in the watched folder.
    void restoreIgnored(const QStringList &paths);

    // Whether a file of this name is taken in, by its extension.
    static bool isSupported(const QString &path);

    // Scan run --------------------------------------------------------------------------------------------

    // Scans a listed receipt once more, by its present path. Can be undone.
    void retry(const Receipt &receipt);

    // Scans many listed receipts once more.
    RetryAll *retryAll() { return &retryAll_; }

    // The listed receipts that failed because there was no API key, or none that the service takes.
    QStringList receiptsWithoutKey() const;

    // Undo ------------------------------------------------------------------------------------------------

    // What the user has done and can take back. Corrections and removals are done through it.
    UndoHistory *history() { return &history_; }

    // Correction ------------------------------------------------------------------------------------------

    // Whether the receipt is listed and is not being scanned.
    bool canCorrect(const QString &id) const;

    // Puts the typed fields in place of the receipt's own and renames its file by the rules of a scan. If a
    // field cannot be understood, nothing changes. Can be undone.
    [[nodiscard]] std::expected<void, FieldProblems> correct(const QString &id, const TypedFields &typed,
                                                             const FieldFormats &formats);

    // Whether the receipt has fields that a person typed, which another scan would overwrite.
    bool isCorrected(const QString &id) const { return corrected_.contains(id); }

    // The name that the file would have after the correction.
    QFuture<QString> fileNameAfterCorrection(const QString &id, const TypedFields &typed,
                                             const FieldFormats &formats) const;

    // The pages of the receipt that is being looked at.
    ReceiptPages *pages() { return &pages_; }

    // Where the values of that receipt stand on them.
    EvidenceSearch *evidence() { return &evidence_; }

    // What the archives' ledgers list.
    const ArchivedReceipts *archivedReceipts() const { return &archivedReceipts_; }

    // Which listed receipts may be duplicates.
    const PossibleDuplicates *duplicates() const { return &duplicates_; }

    // Photos delivery -------------------------------------------------------------------------------------

    // Adds the receipt to the photo library, also if it was added before. Does nothing while the preference
    // is off.
    void pushToPhotos(const Receipt &receipt);

    // "Expenses: " and the day in the device's time zone.
    static QString albumName(const QDateTime &processingDate);

    // Archive and clear -------------------------------------------------------------------------------------

    // The folder of archives: that of the settings, or "Receipt Archive" in the watched folder; absent
    // without either.
    [[nodiscard]] std::optional<QString> archiveRoot() const;

    // For display: the folder that a batch archived today is moved into.
    QString archiveDestinationPath() const;

    // Today as yyyy-MM-dd.
    static QString dateStamp();

    // A path in `folder` at which nothing exists: the name itself, or the first of "name (2)", "name (3)" ...
    static QString uniquePath(const QString &folder, const QString &base, const QString &extension);

    // Writes a ledger of the whole list into today's archive folder, moves the receipt files there, whatever
    // their status, and empties the list. Does not change the photo library. Can be undone.
    void archiveAndClear(ExportService::Format format);

Q_SIGNALS:
    void lastErrorChanged();
    void watchedFolderMissingChanged(bool isMissing);

    // The service does not take the API key. Emitted for each receipt that fails for it.
    void keyRefused();

private:
    ReceiptStore *store_;
    SettingsStore *settings_;
    LastError lastError_;
    Tasks tasks_;
    FolderThreads folderThreads_;
    WatchedFolder watchedFolder_;
    RenamedPaths renamedPaths_;
    FormerArchives formerArchives_;
    IgnoredDates ignoredDates_;
    DeedRecord record_;
    Archive archive_;
    ArchivedReceipts archivedReceipts_;
    SameContents sameContents_;
    PossibleDuplicates duplicates_;
    ReceiptRenaming renaming_;
    CorrectedReceipts corrected_;
    Correction correction_;
    ReceiptPages pages_;
    OnDeviceEngine engine_;
    EvidenceSearch evidence_;
    PhotosDelivery delivery_;
    ScanRun scanRun_;
    RetryAll retryAll_;
    UndoHistory history_;
    Recovery recovery_;
    DroppedFiles droppedFiles_;
    FolderAdmission admission_;
    Intake intake_;
};

} // namespace fennick
