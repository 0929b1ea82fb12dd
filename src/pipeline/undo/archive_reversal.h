#pragma once

#include "pipeline/undo/planned_paths.h"
#include "pipeline/undo/recorded_deed.h"
#include "pipeline/undo/undo_problem.h"

#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace fennick {

class Archive;
class DeedRecord;
class RenamedPaths;
class ReturningReceipts;
class SettingsStore;

// Takes an archive back: its files go to where they were, its receipts into the list, its ledger into the
// trash. Never replaces a file. What cannot be done is added to `problems`, and the rest is done all the
// same. Owned by UndoHistory; main thread.
class ArchiveReversal {
public:
    // Where the description of an archive comes from. One that was read from the disk may have been changed
    // by others: it can only move regular files from an archive into the watched folder, and the ledger to
    // the trash.
    enum class Source { thisRun, disk };

    ArchiveReversal(ReceiptStore *store, const SettingsStore *settings, const Archive *archive,
                    ReturningReceipts *returning, DeedRecord *record, RenamedPaths *renamedPaths,
                    QList<UndoProblem> *problems);

    // Whether all its folders respond. Blocks for a second for each that does not.
    bool isPossible(const RecordedDeed &deed) const;

    // Records what will be moved before anything is, so that after a crash the next start can repeat the
    // call.
    void takeBack(RecordedDeed deed, Source source);

private:
    void planReturns(RecordedDeed &deed, Source source);
    void planReturn(MovedFile &file, QStringList &newPaths);
    void moveBack(const MovedFile &file);
    std::optional<UndoProblem::Kind> obstacleOf(const MovedFile &file, Source source) const;
    bool mayMove(const MovedFile &file) const;
    bool liesInArchive(const QString &path) const;
    void makeFolderFor(const QString &path) const;
    void trashLedger(const RecordedDeed &deed, Source source);
    QString watchedFolder() const;

    ReceiptStore *store_;
    const SettingsStore *settings_;
    const Archive *archive_;
    ReturningReceipts *returning_;
    DeedRecord *record_;
    RenamedPaths *renamedPaths_;
    QList<UndoProblem> *problems_;
    PlannedPaths planned_;
    QSet<QString> staying_; // receipts whose files are not moved
};

} // namespace fennick
