#pragma once

#include <QObject>
#include <QString>

namespace fennick {

class Notices;
class UndoHistory;

// Reports an archive, and offers to undo it for as long as it is what was done last, and to open its folder.
// Owned by the shell; main thread.
class ArchiveNotices : public QObject {
    Q_OBJECT

public:
    ArchiveNotices(UndoHistory *history, Notices *notices, QObject *parent = nullptr);

Q_SIGNALS:
    // The user wants to undo an archive after which something else was done.
    void undoMissed();

private:
    void show(const QString &deedId, int receipts, const QString &folder);
    void undo();

    UndoHistory *history_;
    Notices *notices_;
    QString deedId_; // of the archive that was reported last
};

} // namespace fennick
