#include "ui/tray/archive_notices.h"

#include "pipeline/undo/undo_history.h"
#include "platform/file_manager.h"
#include "ui/tray/notices.h"

namespace fennick {

ArchiveNotices::ArchiveNotices(UndoHistory *history, Notices *notices, QObject *parent)
    : QObject(parent)
    , history_(history)
    , notices_(notices) {
    connect(history, &UndoHistory::archived, this, &ArchiveNotices::show);
    connect(history->stack(), &QUndoStack::indexChanged, this, [this] {
        if (!history_->isLast(deedId_)) {
            notices_->withdrawArchive();
        }
    });
    connect(notices, &Notices::undoArchiveRequested, this, &ArchiveNotices::undo);
    connect(notices, &Notices::openFolderRequested, this,
            [](const QString &folder) { FileManager::open(folder); });
}

void ArchiveNotices::show(const QString &deedId, int receipts, const QString &folder) {
    deedId_ = deedId;
    notices_->showArchived(receipts, folder);
}

void ArchiveNotices::undo() {
    if (history_->isLast(deedId_)) {
        history_->undo();
    } else {
        Q_EMIT undoMissed();
    }
}

} // namespace fennick
