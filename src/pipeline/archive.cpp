#include "pipeline/archive.h"

#include "extraction/gemini_error.h"
#include "model/receipt_store.h"
#include "pipeline/archive_journal.h"
#include "pipeline/former_archives.h"
#include "pipeline/last_error.h"
#include "pipeline/undo/deed_record.h"
#include "pipeline/undo/planned_paths.h"
#include "platform/file_operations.h"
#include "platform/file_system_answer.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QDir>
#include <QSet>
#include <QUuid>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString defaultArchiveName = u"Receipt Archive"_s;

} // namespace

Archive::Archive(ReceiptStore *store, SettingsStore *settings, FormerArchives *formerArchives,
                 DeedRecord *record, LastError *lastError)
    : store_(store)
    , settings_(settings)
    , formerArchives_(formerArchives)
    , record_(record)
    , lastError_(lastError) {}

std::optional<QString> Archive::root() const {
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

QString Archive::destinationPath() const {
    return joinedPath(root().value_or(defaultArchiveName), ExportService::isoDateStamp());
}

bool Archive::contains(const QString &path) const {
    return places().contains(path);
}

ArchivePlaces Archive::places() const {
    const QString configured = settings_->archiveFolderPath().value_or(QString());
    return {configured.isEmpty() ? QString() : QDir::cleanPath(configured), // as root()
            formerArchives_->folders()};
}

std::optional<RecordedDeed> Archive::archive(ExportService::Format format, const RemovedReceipts &batch) {
    const auto archiveRoot = root();
    if (!archiveRoot) {
        lastError_->set(tr("No archive location set — choose one in Settings."));
        return std::nullopt;
    }
    if (batch.rows.isEmpty()) {
        return std::nullopt;
    }
    if (!foldersAnswer(*archiveRoot, batch)) {
        lastError_->set(
            tr("Nothing was archived: %1")
                .arg(inUsersLanguage(FileProblem{FileProblem::Kind::noAnswer, {}}.description())));
        return std::nullopt;
    }
    const QString stamp = ExportService::isoDateStamp();
    const QString folder = joinedPath(*archiveRoot, stamp);
    if (const auto made = FileOperations::makeFolder(folder); !made) {
        lastError_->set(tr("Couldn't create archive folder: %1").arg(made.error().description()));
        return std::nullopt;
    }
    formerArchives_->remember(settings_->archiveFolderPath().value_or(QString())); // once it is former
    const QString ledger = freePath(folder, u"receipts-"_s + stamp, ExportService::fileExtension(format));
    RecordedDeed deed = deedOf(ledger, format, batch);
    record_->insert(deed);
    ArchiveJournal journal;
    journal.begin({ledger, format});
    carryOut(deed);
    journal.end();
    return deed;
}

// With the paths that the files will get.
RecordedDeed Archive::deedOf(const QString &ledgerPath, ExportService::Format format,
                             const RemovedReceipts &batch) const {
    RecordedDeed deed;
    deed.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    deed.kind = RecordedDeed::Kind::archive;
    deed.removed = batch;
    deed.ledgerPath = ledgerPath;
    deed.format = format;
    const QString folder = parentFolder(ledgerPath);
    QSet<QString> sources;
    PlannedPaths targets;
    for (const auto &[receipt, rowsBelow] : batch.rows) {
        const QString &path = receipt.filePath;
        if (!sources.contains(path) && isTaken(path)) {
            sources.insert(path);
            deed.files.append({receipt.id, path, targets.take(folder, lastPathComponent(path))});
        }
    }
    return deed;
}

// Also for what a killed program has begun: the ledger and some of the files are there already.
void Archive::carryOut(RecordedDeed &deed) {
    // A ledger that cannot be written does not keep the files from being archived.
    if (!isTaken(deed.ledgerPath)) {
        QList<Receipt> receipts;
        for (const auto &[receipt, rowsBelow] : std::as_const(deed.removed.rows)) {
            receipts.append(receipt);
        }
        std::ignore = ExportService::writeLedger(receipts, deed.format, deed.ledgerPath);
    }
    const QList<MovedFile> planned = deed.files;
    for (MovedFile &file : deed.files) {
        moveIntoArchive(file);
    }
    if (deed.files != planned) {
        record_->insert(deed);
    }
    const QSet<QString> ids = receiptIds(deed);
    if (ids.size() == store_->receipts().size()) {
        store_->clearAll();
    } else {
        store_->remove(ids);
    }
}

void Archive::resume() {
    ArchiveJournal journal;
    const auto archive = journal.pending();
    if (!archive) {
        return;
    }
    const QString folder = parentFolder(archive->ledgerPath);
    if (!foldersAnswer(folder, store_->beforeRemovalOfAll())) {
        return;
    }
    if (const auto made = FileOperations::makeFolder(folder); !made) {
        lastError_->set(tr("Couldn't create archive folder: %1").arg(made.error().description()));
    } else {
        QStringList sources;
        for (const Receipt &receipt : store_->receipts()) {
            sources.append(receipt.filePath);
        }
        FileOperations::finishInterruptedMoves(folder, sources);
        RecordedDeed deed = interruptedDeed(archive->ledgerPath, archive->format);
        if (!deed.removed.rows.isEmpty()) {
            record_->insert(deed);
            carryOut(deed);
        }
    }
    journal.end();
}

// As it was planned, of the receipts that are still listed; without a plan, of all of them.
RecordedDeed Archive::interruptedDeed(const QString &ledgerPath, ExportService::Format format) const {
    const auto recorded = std::ranges::find(record_->deeds(), ledgerPath, &RecordedDeed::ledgerPath);
    if (recorded == record_->deeds().end()) {
        return deedOf(ledgerPath, format, store_->beforeRemovalOfAll());
    }
    RecordedDeed deed = *recorded;
    const QString folder = parentFolder(ledgerPath);
    deed.removed.rows.removeIf(
        [this](const RemovedReceipts::Row &row) { return !store_->hasReceipt(row.receipt.id); });
    deed.files.removeIf([&](const MovedFile &file) {
        const auto receipt = store_->receipt(file.receiptId);
        return !receipt || receipt->filePath != file.from || parentFolder(file.to) != folder;
    });
    return deed;
}

// Whether neither the archive nor a folder with a receipt's file lies on an unreachable network.
bool Archive::foldersAnswer(const QString &archiveFolder, const RemovedReceipts &batch) const {
    QSet<QString> folders{archiveFolder};
    for (const auto &[receipt, rowsBelow] : batch.rows) {
        folders.insert(parentFolder(receipt.filePath));
    }
    return std::ranges::all_of(folders, fileSystemAnswers);
}

// A file that is missing or cannot be moved stays where it is, and its path is ignored. Another program may
// have taken the planned path.
void Archive::moveIntoArchive(MovedFile &file) {
    if (!isTaken(file.from)) {
        return;
    }
    if (isTaken(file.to)) {
        file.to = freePath(parentFolder(file.to), lastPathComponent(file.from));
    }
    const QString watched = QDir::cleanPath(settings_->watchFolderPath().value_or(QString()));
    std::ignore = FileOperations::moveWithoutReplacing(file.from, file.to, watched);
}

} // namespace fennick
