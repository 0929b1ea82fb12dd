#pragma once

#include "model/receipt.h"

#include <QCoroTask>
#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QStringList>

namespace fennick {

class Archive;
class FolderThreads;
class ReceiptStore;
class Tasks;
class UndoHistory;

// Makes list, files and photo library consistent again after the program was killed in the middle of
// something. Owned by AppState; main thread.
class Recovery : public QObject {
    Q_OBJECT

public:
    // The error of a receipt whose scan was interrupted. Stored in English, translated where it is shown.
    static const char *const interruptedText;

    Recovery(ReceiptStore *store, Archive *archive, UndoHistory *history, const FolderThreads *folderThreads,
             Tasks *tasks);

    // Call once, before anything else. Returns `renamedFilesAdopted`.
    QFuture<void> recover();

    // Finished once the list has the new names of all files that were renamed before a crash, even if there
    // were none. Valid after recover().
    const QFuture<void> &renamedFilesAdopted() const { return adoption_; }

private:
    void failInterruptedScans();
    [[nodiscard]] QCoro::Task<> adoptRenamedFiles(QPromise<void> end);
    void adoptFirstFree(Receipt receipt, const QStringList &paths);

    ReceiptStore *store_;
    Archive *archive_;
    UndoHistory *history_;
    const FolderThreads *folderThreads_;
    Tasks *tasks_;
    QFuture<void> adoption_;
};

} // namespace fennick
