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

// Moves a batch of receipts out of the list: a ledger and the files into the archive folder of the day. Owned
// by AppState; main thread.
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

    // Writes a ledger of these listed receipts, moves their files, whatever their status, and takes them from
    // the list. The record has everything before the first step. Returns nothing if nothing was archived; the
    // last error is why.
    std::optional<RecordedDeed> archive(ExportService::Format format, const RemovedReceipts &batch);

    // Completes an archive that was interrupted: some of its files are no longer where the list says. If its
    // folder is out of reach, the list stays, and with it what can still be archived; on a network that is
    // gone, the next start tries again.
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
