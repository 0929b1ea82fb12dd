#include "pipeline/archive.h"

#include "extraction/gemini_error.h"
#include "model/receipt_store.h"
#include "pipeline/archive_journal.h"
#include "pipeline/former_archives.h"
#include "pipeline/last_error.h"
#include "platform/file_operations.h"
#include "platform/file_system_answer.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QDir>
#include <QSet>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString defaultArchiveName = u"Receipt Archive"_s;

} // namespace

Archive::Archive(ReceiptStore *store, SettingsStore *settings, FormerArchives *formerArchives,
                 LastError *lastError)
    : store_(store)
    , settings_(settings)
    , formerArchives_(formerArchives)
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

void Archive::archiveAndClear(ExportService::Format format) {
    const auto archiveRoot = root();
    if (!archiveRoot) {
        lastError_->set(tr("No archive location set — choose one in Settings."));
        return;
    }
    if (store_->receipts().isEmpty()) {
        return;
    }
    if (!foldersAnswer(*archiveRoot)) {
        lastError_->set(
            tr("Nothing was archived: %1")
                .arg(inUsersLanguage(FileProblem{FileProblem::Kind::noAnswer, {}}.description())));
        return;
    }
    const QString stamp = ExportService::isoDateStamp();
    const QString folder = joinedPath(*archiveRoot, stamp);
    if (const auto made = FileOperations::makeFolder(folder); !made) {
        lastError_->set(tr("Couldn't create archive folder: %1").arg(made.error().description()));
        return;
    }
    formerArchives_->remember(settings_->archiveFolderPath().value_or(QString())); // once it is former
    const PendingArchive archive{
        freePath(folder, u"receipts-"_s + stamp, ExportService::fileExtension(format)), format};
    ArchiveJournal journal;
    journal.begin(archive);
    carryOut(archive);
    journal.end();
}

// Also for what a killed program has begun: the ledger and some of the files are there already.
void Archive::carryOut(const PendingArchive &archive) {
    // A ledger that cannot be written does not keep the files from being archived.
    if (!isTaken(archive.ledgerPath)) {
        std::ignore = ExportService::writeLedger(store_->receipts(), archive.format, archive.ledgerPath);
    }
    const QString folder = parentFolder(archive.ledgerPath);
    for (const Receipt &receipt : store_->receipts()) {
        moveIntoArchive(receipt.filePath, folder);
    }
    store_->clearAll();
}

void Archive::resume() {
    ArchiveJournal journal;
    const auto archive = journal.pending();
    if (!archive) {
        return;
    }
    const QString folder = parentFolder(archive->ledgerPath);
    if (!foldersAnswer(folder)) {
        return;
    }
    if (const auto made = FileOperations::makeFolder(folder); !made) {
        lastError_->set(tr("Couldn't create archive folder: %1").arg(made.error().description()));
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

// Whether neither the archive nor a folder with a receipt's file lies on a network that is gone.
bool Archive::foldersAnswer(const QString &archiveFolder) const {
    QSet<QString> folders{archiveFolder};
    for (const Receipt &receipt : store_->receipts()) {
        folders.insert(parentFolder(receipt.filePath));
    }
    return std::ranges::all_of(folders, fileSystemAnswers);
}

// A file that is missing or cannot be moved stays where it is, and its path is ignored.
void Archive::moveIntoArchive(const QString &path, const QString &folder) {
    if (!isTaken(path)) {
        return;
    }
    const QString target = freePath(folder, lastPathComponent(path));
    const QString watched = QDir::cleanPath(settings_->watchFolderPath().value_or(QString()));
    std::ignore = FileOperations::moveWithoutReplacing(path, target, watched);
}

} // namespace fennick
