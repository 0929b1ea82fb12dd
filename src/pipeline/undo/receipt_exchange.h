#pragma once

#include "model/receipt.h"
#include "pipeline/undo/renaming_journal.h"
#include "pipeline/undo/undo_problem.h"

#include <QList>

namespace fennick {

class ReceiptStore;
class RenamedPaths;
struct WatchedFolder;

// Gives listed receipts the fields, and their files the names, that they had at another time. Owned by
// UndoHistory; main thread.
class ReceiptExchange {
public:
    ReceiptExchange(ReceiptStore *store, const WatchedFolder *watchedFolder, RenamedPaths *renamedPaths,
                    QList<UndoProblem> *problems);

    // Makes the receipt that was `from` what it is in `to`. Fields that are no longer as in `from` stay. The
    // file is renamed if its names in the two differ, and gets a number if another file has the name.
    void exchange(const Receipt &from, const Receipt &to);

    // Completes a renaming that was interrupted; if its folder does not respond, at the next start.
    void resume();

private:
    void rename(Receipt receipt, const QString &name);
    void move(Receipt receipt, const QString &target);

    ReceiptStore *store_;
    const WatchedFolder *watchedFolder_;
    RenamedPaths *renamedPaths_;
    QList<UndoProblem> *problems_;
    RenamingJournal journal_;
};

} // namespace fennick
