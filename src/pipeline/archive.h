#pragma once

#include "export/export_service.h"
#include "pipeline/archive_places.h"
#include "pipeline/undo/recorded_deed.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace fennick {

class DeedRecord;
class FormerArchives;
class LastError;
class ReceiptStore;
class SettingsStore;

// Archives a batch of receipts: writes a ledger and moves the files into the day's archive folder, and takes
// the receipts from the list. Owned by AppState; main thread.
class Archive {
    Q_DECLARE_TR_FUNCTIONS(fennick::Archive)

public:
    Archive(ReceiptStore *store, SettingsStore *settings, FormerArchives *formerArchives, DeedRecord *record,
            LastError *lastError);

    // The folder of the settings, or "Receipt Archive" in the watched folder; absent without either.
    [[nodiscard]] std::optional<QString> root() const;

    // For display: the folder that a batch archived today is moved into.
    QString destinationPath() const;

    // Whether the path lies in an archive, where nothing is taken in.
    bool contains(const QString &path) const;

    // Where archives lie now.
    ArchivePlaces places() const;

    // Archives these listed receipts, whatever their status. The record has everything before the first step.
    // A file that cannot be moved stays where it is, and a ledger that cannot be written keeps nothing from
    // being archived. Returns nothing for an empty batch, and if nothing was archived; the last error has the
    // reason then.
    std::optional<RecordedDeed> archive(ExportService::Format format, const RemovedReceipts &batch);

    // Completes an interrupted archive, some of whose files have already been moved. If a folder does not
    // respond, the next start tries again. If the archive folder cannot be created, the receipts stay listed
    // and the last error has the reason.
    void resume();

private:
    RecordedDeed deedOf(const QString &ledgerPath, ExportService::Format format,
                        const RemovedReceipts &batch) const;
    RecordedDeed interruptedDeed(const QString &ledgerPath, ExportService::Format format) const;
    void carryOut(RecordedDeed &deed);
    bool foldersAnswer(const QString &archiveFolder, const RemovedReceipts &batch) const;
    void moveIntoArchive(MovedFile &file);

    ReceiptStore *store_;
    SettingsStore *settings_;
    FormerArchives *formerArchives_;
    DeedRecord *record_;
    LastError *lastError_;
};

} // namespace fennick
