#include "pipeline/undo/undo_history.h"

#include "pipeline/archive.h"
#include "pipeline/archive_journal.h"
#include "pipeline/corrected_receipts.h"
#include "pipeline/correction.h"
#include "pipeline/retry_all.h"
#include "pipeline/scan_run.h"
#include "pipeline/undo/archive_deed.h"
#include "pipeline/undo/clear_deed.h"
#include "pipeline/undo/correction_deed.h"
#include "pipeline/undo/removal_deed.h"
#include "pipeline/undo/retry_deed.h"
#include "text/path_text.h"

#include <QUuid>

#include <algorithm>
#include <utility>

namespace fennick {

namespace {

constexpr int mostDeeds = 100;

} // namespace

UndoHistory::UndoHistory(ReceiptStore *store, const SettingsStore *settings, Archive *archive,
                         DeedRecord *record, Correction *correction, CorrectedReceipts *corrected,
                         ScanRun *scanRun, RetryAll *retryAll, const WatchedFolder *watchedFolder,
                         RenamedPaths *renamedPaths)
    : store_(store)
    , archive_(archive)
    , record_(record)
    , correction_(correction)
    , corrected_(corrected)
    , scanRun_(scanRun)
    , retryAll_(retryAll)
    , returning_(store, scanRun, &problems_)
    , exchange_(store, watchedFolder, renamedPaths, &problems_)
    , reversal_(store, settings, archive, &returning_, record, renamedPaths, &problems_) {
    stack_.setUndoLimit(mostDeeds);
    connect(retryAll, &RetryAll::added, this, &UndoHistory::noteRetry);
}

std::expected<void, FieldProblems> UndoHistory::correct(const QString &id, const TypedFields &typed,
                                                        const FieldFormats &formats) {
    const auto before = store_->receipt(id);
    const bool isFirst = !corrected_->contains(id);
    auto corrected = correction_->correct(id, typed, formats);
    const auto after = store_->receipt(id);
    if (corrected && before && after && *before != *after) {
        push(new CorrectionDeed(*before, *after, isFirst, &exchange_, corrected_));
    }
    return corrected;
}

void UndoHistory::removeFromList(const QSet<QString> &ids) {
    RemovedReceipts removed = store_->beforeRemoval(ids);
    if (removed.rows.isEmpty()) {
        return;
    }
    store_->remove(ids);
    push(new RemovalDeed(std::move(removed), store_, &returning_));
}

// The record is made before the list changes: a program that is killed in between can put everything right.
void UndoHistory::clearAll() {
    if (store_->receipts().isEmpty()) {
        return;
    }
    RecordedDeed deed;
    deed.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    deed.removed = store_->beforeRemovalOfAll();
    record_->insert(deed);
    store_->clearAll();
    push(new ClearDeed(std::move(deed), store_, &returning_, record_));
}

void UndoHistory::archiveAndClear(ExportService::Format format) {
    using Source = ArchiveReversal::Source;
    if (auto deed = archive_->archive(format, store_->beforeRemovalOfAll())) {
        const QString id = deed->id;
        const QString folder = parentFolder(deed->ledgerPath);
        const int receipts = static_cast<int>(deed->removed.rows.size());
        push(new ArchiveDeed(*std::move(deed), Source::thisRun, store_, archive_, &reversal_));
        Q_EMIT archived(id, receipts, folder);
    }
}

bool UndoHistory::isLast(const QString &deedId) const {
    const auto *const last = static_cast<const UndoableDeed *>(stack_.command(stack_.index() - 1));
    return last != nullptr && last->recorded() != nullptr && last->recorded()->id == deedId;
}

// On the stack before the scan begins, which may end at once.
void UndoHistory::retry(const Receipt &receipt) {
    if (const auto before = store_->receipt(receipt.id)) {
        noteRetry({*before});
        scanRun_->retry(*before);
    }
}

void UndoHistory::noteRetry(const QList<Receipt> &receipts) {
    if (!isUndoing_) { // a retry that is done again is on the stack already
        push(new RetryDeed(receipts, store_, scanRun_, retryAll_, corrected_, &exchange_));
    }
}

void UndoHistory::undo() {
    if (isPossible(stack_.index() - 1)) {
        isUndoing_ = true;
        stack_.undo();
        isUndoing_ = false;
        keepRecord();
    }
    report();
}

void UndoHistory::redo() {
    if (isPossible(stack_.index())) {
        isUndoing_ = true;
        stack_.redo();
        isUndoing_ = false;
        keepRecord();
    }
    report();
}

bool UndoHistory::isPossible(int index) {
    const auto *const deed = static_cast<const UndoableDeed *>(stack_.command(index));
    if (deed != nullptr && !deed->isPossible()) {
        problems_.append({UndoProblem::Kind::noAnswer, deed->text()});
        return false;
    }
    return deed != nullptr;
}

void UndoHistory::resume() {
    exchange_.resume();
    const QList<RecordedDeed> deeds = record_->deeds(); // a copy: it changes meanwhile
    for (const RecordedDeed &deed : deeds) {
        resumeDeed(deed);
    }
    keepRecord();
    report();
}

// No file is looked at for a deed that has come to its end: its folders may not respond.
void UndoHistory::resumeDeed(const RecordedDeed &deed) {
    using Source = ArchiveReversal::Source;
    const bool isArchive = deed.kind == RecordedDeed::Kind::archive;
    if (deed.isBeingUndone || isAnyListed(deed)) {
        complete(deed);
    } else if (isArchive) {
        stack_.push(new ArchiveDeed(deed, Source::disk, store_, archive_, &reversal_));
    } else {
        stack_.push(new ClearDeed(deed, store_, &returning_, record_));
    }
}

// A list that still has the receipts was not cleared: the program was killed before that, or after it had
// taken the deed back. What is ignored is put right in either case. An archive whose folders do not respond
// waits for the next start.
void UndoHistory::complete(const RecordedDeed &deed) {
    const bool isArchive = deed.kind == RecordedDeed::Kind::archive;
    if (isArchive && (ArchiveJournal().pending() || !reversal_.isPossible(deed))) {
        postponed_.append(deed);
    } else if (isArchive && deed.isBeingUndone) {
        reversal_.takeBack(deed, ArchiveReversal::Source::disk);
    } else {
        returning_.putBack(deed.removed);
    }
}

bool UndoHistory::isAnyListed(const RecordedDeed &deed) const {
    const QSet<QString> ids = receiptIds(deed);
    return std::ranges::any_of(store_->receipts(),
                               [&ids](const Receipt &receipt) { return ids.contains(receipt.id); });
}

// The last deed of each kind that can be undone.
void UndoHistory::keepRecord() {
    QList<RecordedDeed> kept = postponed_;
    for (int index = stack_.index() - 1; index >= 0; --index) {
        const auto *const deed = static_cast<const UndoableDeed *>(stack_.command(index))->recorded();
        if (deed != nullptr && std::ranges::find(kept, deed->kind, &RecordedDeed::kind) == kept.end()) {
            kept.prepend(*deed);
        }
    }
    record_->replaceAll(kept);
}

void UndoHistory::push(UndoableDeed *deed) {
    stack_.push(deed);
    keepRecord();
}

void UndoHistory::report() {
    QStringList lines;
    for (const UndoProblem &problem : std::exchange(problems_, {})) {
        lines.append(problem.description());
    }
    if (!lines.isEmpty()) {
        Q_EMIT incomplete(lines);
    }
}

} // namespace fennick
