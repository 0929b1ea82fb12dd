#include "pipeline/undo/archive_reversal.h"

#include "extraction/gemini_error.h"
#include "pipeline/archive.h"
#include "pipeline/renamed_paths.h"
#include "pipeline/undo/deed_record.h"
#include "pipeline/undo/returning_receipts.h"
#include "platform/file_operations.h"
#include "platform/file_system_answer.h"
#include "platform/regular_file.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Whether no folder between `folder` and the path is a link. Folders that are missing are none.
bool isReachedWithoutLinks(const QString &path, const QString &folder) {
    QString parent = parentFolder(path);
    while (parent.size() > folder.size() && !isTaken(parent)) {
        parent = parentFolder(parent);
    }
    return QFileInfo(parent).canonicalFilePath() ==
           QFileInfo(folder).canonicalFilePath() + parent.mid(folder.size());
}

// Where the file of each receipt is now; of those only that have one.
void setPaths(RemovedReceipts &removed, const QList<MovedFile> &files) {
    QHash<QString, const MovedFile *> byReceipt;
    for (const MovedFile &file : files) {
        byReceipt.insert(file.receiptId, &file);
    }
    for (RemovedReceipts::Row &row : removed.rows) {
        const MovedFile *const file = byReceipt.value(row.receipt.id);
        if (file == nullptr || (!isTaken(file->to) && !isTaken(file->from))) {
            continue;
        }
        row.receipt.filePath = isTaken(file->to) ? file->to : file->from;
        row.receipt.fileName = lastPathComponent(row.receipt.filePath);
    }
}

} // namespace

ArchiveReversal::ArchiveReversal(ReceiptStore *store, const SettingsStore *settings, const Archive *archive,
                                 ReturningReceipts *returning, DeedRecord *record, RenamedPaths *renamedPaths,
                                 QList<UndoProblem> *problems)
    : store_(store)
    , settings_(settings)
    , archive_(archive)
    , returning_(returning)
    , record_(record)
    , renamedPaths_(renamedPaths)
    , problems_(problems) {}

bool ArchiveReversal::isPossible(const RecordedDeed &deed) const {
    QSet<QString> folders{parentFolder(deed.ledgerPath)};
    for (const MovedFile &file : deed.files) {
        folders.insert(parentFolder(file.from));
        folders.insert(parentFolder(file.to));
    }
    return std::ranges::all_of(folders, fileSystemAnswers);
}

void ArchiveReversal::takeBack(RecordedDeed deed, Source source) {
    deed.isBeingUndone = true;
    planReturns(deed, source);
    record_->insert(deed);
    for (const MovedFile &file : std::as_const(deed.files)) {
        moveBack(file);
    }
    setPaths(deed.removed, deed.files);
    returning_->putBack(deed.removed);
    trashLedger(deed, source);
}

// The paths are ignored before the files come to them, so that no crash lets a file be read again.
void ArchiveReversal::planReturns(RecordedDeed &deed, Source source) {
    planned_ = {};
    staying_.clear();
    for (const MovedFile &file : std::as_const(deed.files)) {
        planned_.insert(file.from);
    }
    QStringList newPaths;
    for (MovedFile &file : deed.files) {
        if (const auto obstacle = obstacleOf(file, source)) {
            problems_->append({*obstacle, lastPathComponent(file.to)});
            staying_.insert(file.receiptId);
        } else {
            planReturn(file, newPaths);
        }
    }
    newPaths.removeIf([this](const QString &path) { return store_->isIgnored(path); });
    if (!newPaths.isEmpty()) {
        std::ignore = store_->ignore(newPaths); // the same disk keeps the record
        deed.removed.newlyIgnored.append(newPaths);
    }
}

void ArchiveReversal::planReturn(MovedFile &file, QStringList &newPaths) {
    if (!isTaken(file.to) || !isTaken(file.from)) {
        return; // moved back by a killed run, or free to be
    }
    const QString name = lastPathComponent(file.from);
    file.from = planned_.take(parentFolder(file.from), name);
    newPaths.append(file.from);
    problems_->append({UndoProblem::Kind::nameTaken, name, lastPathComponent(file.from)});
}

// Why the file is not moved; none also for one that is back already.
std::optional<UndoProblem::Kind> ArchiveReversal::obstacleOf(const MovedFile &file, Source source) const {
    const FileKind kind = fileStateAt(file.to).kind;
    if (kind == FileKind::missing) {
        return isTaken(file.from) ? std::nullopt : std::optional(UndoProblem::Kind::fileMissing);
    }
    if (source == Source::disk && (kind != FileKind::regular || !mayMove(file))) {
        return UndoProblem::Kind::elsewhere;
    }
    return std::nullopt;
}

bool ArchiveReversal::mayMove(const MovedFile &file) const {
    const QString watched = watchedFolder();
    return !watched.isEmpty() && isLexicallyBelow(file.from, watched) && liesInArchive(file.to) &&
           isReachedWithoutLinks(file.from, watched);
}

bool ArchiveReversal::liesInArchive(const QString &path) const {
    QStringList roots = archive_->places().former;
    if (const auto root = archive_->root()) {
        roots.append(*root);
    }
    return std::ranges::any_of(roots, [&path](const QString &root) {
        return isLexicallyBelow(path, root) && isReachedWithoutLinks(path, root);
    });
}

void ArchiveReversal::moveBack(const MovedFile &file) {
    if (staying_.contains(file.receiptId) || !isTaken(file.to)) {
        return;
    }
    makeFolderFor(file.from);
    const auto moved = FileOperations::moveWithoutReplacing(file.to, file.from);
    if (moved) {
        renamedPaths_->insert(file.from, std::chrono::steady_clock::now());
    } else {
        problems_->append({UndoProblem::Kind::notMoved, lastPathComponent(file.to),
                           inUsersLanguage(moved.error().description())});
    }
}

// Only below a watched folder that is there: where a disk is not mounted, nothing is to be put in its place.
void ArchiveReversal::makeFolderFor(const QString &path) const {
    const QString watched = watchedFolder();
    if (!watched.isEmpty() && isLexicallyBelow(path, watched) && isTaken(watched)) {
        std::ignore = FileOperations::makeFolder(parentFolder(path)); // if it fails, so does the move
    }
}

void ArchiveReversal::trashLedger(const RecordedDeed &deed, Source source) {
    const QString name = lastPathComponent(deed.ledgerPath);
    if (!isTaken(deed.ledgerPath)) {
        return;
    }
    const bool isLedger =
        fileStateAt(deed.ledgerPath).kind == FileKind::regular &&
        (source == Source::thisRun || (liesInArchive(deed.ledgerPath) && name.startsWith("receipts-"_L1)));
    if (!isLedger || !QFile::moveToTrash(deed.ledgerPath)) {
        problems_->append({UndoProblem::Kind::notTrashed, name});
    }
}

QString ArchiveReversal::watchedFolder() const {
    const QString path = settings_->watchFolderPath().value_or(QString());
    return path.isEmpty() ? path : QDir::cleanPath(path);
}

} // namespace fennick
