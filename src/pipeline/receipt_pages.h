#pragma once

#include "model/receipt.h"

#include <QCoroTask>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <stop_token>

namespace fennick {

class FolderThreads;
class Tasks;
struct WatchedFolder;

// The pages of one receipt as JPEG files, for looking at: made by the converter's process, one receipt at a
// time, and removed as soon as another one is wanted. Owned by AppState; main thread.
class ReceiptPages : public QObject {
    Q_OBJECT

public:
    enum class State { none, underWay, ready, failed };

    ReceiptPages(const WatchedFolder *watchedFolder, const FolderThreads *folderThreads, Tasks *tasks);
    ~ReceiptPages() override;

    // Has the receipt's pages made in place of those of another one. Waits a moment first, for somebody may
    // be passing over a long list.
    void show(const Receipt &receipt);

    // Ends what is under way and removes the pages.
    void clear();

    State state() const { return state_; }

    // The pages' files, in order; empty unless they are ready.
    const QStringList &files() const { return files_; }

    // Why there are no pages, as a sentence for the user without a full stop.
    const QString &failure() const { return failure_; }

Q_SIGNALS:
    void changed();

private:
    class Folder;

    void begin();
    [[nodiscard]] QCoro::Task<> make(QString path, std::stop_token stop);
    void removeFolder();
    void fail(const QString &reason);

    const WatchedFolder *watchedFolder_;
    const FolderThreads *folderThreads_;
    Tasks *tasks_;
    QTimer delay_;
    QString path_;
    std::stop_source stop_;
    State state_ = State::none;
    std::shared_ptr<const Folder> folder_;
    QStringList files_;
    QString failure_;
};

} // namespace fennick
