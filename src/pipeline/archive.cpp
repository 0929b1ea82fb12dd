#include "pipeline/app_state.h"
#include "pipeline/archive_journal.h"
#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "text/path_text.h"

#include <QDir>

namespace fennick {

namespace {

const QString defaultArchiveName = QStringLiteral("Receipt Archive");

} // namespace

std::optional<QString> AppState::archiveRoot() const {
    const QString archive = settings_->archiveFolderPath().value_or(QString());
    if (!archive.isEmpty()) {
        return QDir::cleanPath(archive);
    }
    const QString watched = settings_->watchFolderPath().value_or(QString());
    if (!watched.isEmpty()) {
        return joinedPath(QDir::cleanPath(watched), defaultArchiveName);
    }
    return std::nullopt;
}

QString AppState::archiveDestinationPath() const {
    return joinedPath(archiveRoot().value_or(defaultArchiveName), dateStamp());
}

QString AppState::dateStamp() {
    return ExportService::isoDateStamp();
}

QString AppState::uniquePath(const QString &folder, const QString &base, const QString &extension) {
    return freePath(folder, base, extension);
}

void AppState::archiveAndClear(ExportService::Format format) {
    const auto root = archiveRoot();
    if (!root) {
        setLastError(tr("No archive location set — choose one in Settings."));
        return;
    }
    if (store_->receipts().isEmpty()) {
        return;
    }
    const QString stamp = dateStamp();
    const QString folder = joinedPath(*root, stamp);
    if (const auto made = FileOperations::makeFolder(folder); !made) {
        setLastError(tr("Couldn't create archive folder: %1").arg(made.error()));
        return;
    }
    const PendingArchive archive{
        freePath(folder, QStringLiteral("receipts-") + stamp, ExportService::fileExtension(format)), format};
    ArchiveJournal journal;
    journal.begin(archive);
    carryOut(archive);
    journal.end();
}

// Also what was begun by a program that was killed: then the ledger and some of the files are there already.
void AppState::carryOut(const PendingArchive &archive) {
    // A ledger that cannot be written does not keep the files from being archived.
    if (!isTaken(archive.ledgerPath)) {
        ExportService::writeLedger(store_->receipts(), archive.format, archive.ledgerPath);
    }
    const QString folder = parentFolder(archive.ledgerPath);
    for (const Receipt &receipt : store_->receipts()) {
        moveIntoArchive(receipt.filePath, folder);
    }
    store_->clearAll();
}

// An archive that was cut off is carried through: some of its files are no longer where the list says. When
// its folder is out of reach, the list stays, and with it what can still be archived.
void AppState::resumeArchive() {
    ArchiveJournal journal;
    const auto archive = journal.pending();
    if (!archive) {
        return;
    }
    const QString folder = parentFolder(archive->ledgerPath);
    if (const auto made = FileOperations::makeFolder(folder); !made) {
        setLastError(tr("Couldn't create archive folder: %1").arg(made.error()));
    } else {
        QStringList sources;
        for (const Receipt &receipt : store_->receipts()) {
            sources.append(receipt.filePath);
        }
        FileOperations::settlePartsOfMoves(folder, sources);
        if (!store_->receipts().isEmpty()) {
            carryOut(*archive);
        }
    }
    journal.end();
}

// A file that is missing or cannot be moved is passed over: it stays where it is, and its path is ignored.
void AppState::moveIntoArchive(const QString &path, const QString &folder) {
    if (!isTaken(path)) {
        return;
    }
    const QString target = freePath(folder, lastPathComponent(path));
    // The result is intentionally not looked at.
    const QString watched = QDir::cleanPath(settings_->watchFolderPath().value_or(QString()));
    std::ignore = FileOperations::moveWithoutReplacing(path, target, watched);
}

} // namespace fennick
