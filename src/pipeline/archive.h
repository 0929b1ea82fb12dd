#pragma once

#include "export/export_service.h"
#include "pipeline/archive_places.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace fennick {

class FormerArchives;
class LastError;
class ReceiptStore;
class SettingsStore;
struct PendingArchive;

// Moves a batch of receipts out of the list: a ledger and the files into the archive folder of the day. Owned
// by AppState; main thread.
class Archive {
    Q_DECLARE_TR_FUNCTIONS(fennick::Archive)

public:
    Archive(ReceiptStore *store, SettingsStore *settings, FormerArchives *formerArchives,
            LastError *lastError);

    // The folder of the settings, or "Receipt Archive" in the watched folder; absent without either.
    [[nodiscard]] std::optional<QString> root() const;

    // For display: the folder that a batch archived today is moved into.
    QString destinationPath() const;

    // Whether the path lies in an archive, where nothing is taken in.
    bool contains(const QString &path) const;

    // Where archives lie now.
    ArchivePlaces places() const;

    // Writes a ledger of the whole list, moves the receipt files, whatever their status, and empties the
    // list.
    void archiveAndClear(ExportService::Format format);

    // Completes an archive that was interrupted: some of its files are no longer where the list says. If its
    // folder is out of reach, the list stays, and with it what can still be archived; on a network that is
    // gone, the next start tries again.
    void resume();

private:
    void carryOut(const PendingArchive &archive);
    bool foldersAnswer(const QString &archiveFolder) const;
    void moveIntoArchive(const QString &path, const QString &folder);

    ReceiptStore *store_;
    SettingsStore *settings_;
    FormerArchives *formerArchives_;
    LastError *lastError_;
};

} // namespace fennick
