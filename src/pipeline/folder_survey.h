#pragma once

#include "pipeline/folder_facts.h"

#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace fennick {

class FolderThreads;

// Looks at one folder before it is watched: what place it is and how many files in it would be read. Counts
// on a thread of its own and ends in time, whatever the size of the tree and also if its network is gone.
// Owned by whoever waits for it; main thread.
class FolderSurvey : public QObject {
    Q_OBJECT

public:
    using IsUnread = std::function<bool(const QString &path)>; // called on the thread

    static constexpr std::chrono::milliseconds usualLimit{3000};

    FolderSurvey(const FolderThreads *folderThreads, IsUnread isUnread,
                 std::chrono::milliseconds limit = usualLimit);
    ~FolderSurvey() override;

    void start(const QString &folder);

Q_SIGNALS:
    // Once, and never from within `start`.
    void finished(const FolderFacts &facts);

private:
    struct Progress;
    static void look(const QString &folder, const QStringList &wideFolders, const IsUnread &isUnread,
                     Progress &progress);
    void end();

    const FolderThreads *folderThreads_;
    IsUnread isUnread_;
    std::shared_ptr<Progress> progress_; // shared with the thread, which may outlive this object
    QFutureWatcher<void> counting_;
    QTimer limit_;
};

} // namespace fennick
