#include "pipeline/undo/undo_history.h"

#include "pipeline/corrected_receipts.h"
#include "pipeline/correction.h"
#include "pipeline/undo/correction_deed.h"
#include "pipeline/undo/removal_deed.h"

#include <utility>

namespace fennick {

namespace {

constexpr int mostDeeds = 100;

} // namespace

UndoHistory::UndoHistory(ReceiptStore *store, Correction *correction, CorrectedReceipts *corrected,
                         const ScanRun *scanRun, const WatchedFolder *watchedFolder,
                         RenamedPaths *renamedPaths)
    : store_(store)
    , correction_(correction)
    , corrected_(corrected)
    , returning_(store, scanRun, &problems_)
    , exchange_(store, watchedFolder, renamedPaths, &problems_) {
    stack_.setUndoLimit(mostDeeds);
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

void UndoHistory::undo() {
    stack_.undo();
    report();
}

void UndoHistory::redo() {
    stack_.redo();
    report();
}

void UndoHistory::resume() {
    exchange_.resume();
    report();
}

void UndoHistory::push(UndoableDeed *deed) {
    stack_.push(deed);
}

void UndoHistory::report() {
    QStringList lines;
    for (const UndoProblem &problem : std::exchange(problems_, {})) {
        lines.append(problem.description());
    }
    if (!lines.isEmpty()) {
        Q_EMIT undoneInPart(lines);
    }
}

} // namespace fennick
