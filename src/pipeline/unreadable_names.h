#pragma once

#include <QCoroTask>
#include <QObject>
#include <QString>
#include <QTimer>

namespace fennick {

class Archive;
class FolderThreads;
class ReceiptStore;
class Tasks;

// Lists receipt files whose names are no text and which Qt therefore cannot open, as failed rows: who put
// them into the folder would wait for them in vain. Owned by the intake; main thread.
class UnreadableNames : public QObject {
    Q_OBJECT

public:
    UnreadableNames(ReceiptStore *store, const Archive *archive, const FolderThreads *folderThreads,
                    Tasks *tasks);

    // Lists those that lie in `folder` now.
    void list(const QString &folder);

    // Lists them once more, half a second after the last call: several may come at once.
    void listAgainSoon();

private:
    [[nodiscard]] QCoro::Task<> addRows(QString folder);

    ReceiptStore *store_;
    const Archive *archive_;
    const FolderThreads *folderThreads_;
    Tasks *tasks_;
    QString folder_;
    QTimer delay_;
};

} // namespace fennick
