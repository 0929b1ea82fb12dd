#pragma once

#include "pipeline/typed_fields.h"
#include "pipeline/undo/archive_reversal.h"
#include "pipeline/undo/deed_record.h"
#include "pipeline/undo/receipt_exchange.h"
#include "pipeline/undo/returning_receipts.h"

#include <QObject>
#include <QSet>
#include <QUndoStack>

#include <expected>

namespace fennick {

class CorrectedReceipts;
class Correction;
class RetryAll;
class UndoableDeed;

// Carries out the user's actions that can be undone, the deeds, and undoes and redoes them. What the program
// does by itself, such as a scan, is none. Owned by AppState; main thread.
class UndoHistory : public QObject {
    Q_OBJECT

public:
    UndoHistory(ReceiptStore *store, const SettingsStore *settings, Archive *archive, DeedRecord *record,
                Correction *correction, CorrectedReceipts *corrected, ScanRun *scanRun, RetryAll *retryAll,
                const WatchedFolder *watchedFolder, RenamedPaths *renamedPaths);

    // As in Correction.
    [[nodiscard]] std::expected<void, FieldProblems> correct(const QString &id, const TypedFields &typed,
                                                             const FieldFormats &formats);

    // As in ReceiptStore.
    void removeFromList(const QSet<QString> &ids);

    void clearAll();

    // As in Archive, of the whole list.
    void archiveAndClear(ExportService::Format format);

    // As in ScanRun. Retries that RetryAll starts are deeds as well.
    void retry(const Receipt &receipt);

    // Undo the last deed, and redo the one that was undone last. Both may block for a second for each folder
    // that does not respond.
    void undo();
    void redo();

    // Whether the deed with this identifier is what undo() would take back.
    bool isLast(const QString &deedId) const;

    // For what can be undone and redone, and the texts of both.
    const QUndoStack *stack() const { return &stack_; }

    // Completes an interrupted undo, and restores what can still be undone after a restart. Call once, at the
    // start.
    void resume();

Q_SIGNALS:
    // The list was archived into `folder`.
    void archived(const QString &deedId, int receipts, const QString &folder);

    // An undo or redo could not be carried out completely, or at all. The problems are lines for the user.
    void incomplete(const QStringList &problems);

private:
    void noteRetry(const QList<Receipt> &receipts);
    void push(UndoableDeed *deed);
    void resumeDeed(const RecordedDeed &deed);
    void complete(const RecordedDeed &deed);
    bool isAnyListed(const RecordedDeed &deed) const;
    bool isPossible(int index);
    void keepRecord();
    void report();

    ReceiptStore *store_;
    Archive *archive_;
    DeedRecord *record_;
    Correction *correction_;
    CorrectedReceipts *corrected_;
    ScanRun *scanRun_;
    RetryAll *retryAll_;
    QList<RecordedDeed> postponed_; // to be taken back once their folders respond, at the next start
    bool isUndoing_ = false;        // or doing again
    QList<UndoProblem> problems_;   // of the undo or redo under way
    ReturningReceipts returning_;
    ReceiptExchange exchange_;
    ArchiveReversal reversal_;
    QUndoStack stack_; // last, for its deeds use the others
};

} // namespace fennick
