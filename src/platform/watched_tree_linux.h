#pragma once

#include <QByteArray>
#include <QList>

#include <sys/types.h>

#include <map>
#include <string>
#include <unordered_map>
#include <utility>

struct inotify_event;

namespace fennick {

// A path at which something changed, or that was found by listing a folder.
struct TreeChange {
    QByteArray path;
    bool isListed;
};

// An inotify watch on every folder of a tree. inotify watches single folders, so the tree keeps itself
// complete: a new folder is watched first and listed then, which finds the files that were in it before the
// watch. Owned and used by the thread of one event stream after it has been set up.
class WatchedTree {
public:
    explicit WatchedTree(QByteArray root);
    ~WatchedTree();
    WatchedTree(const WatchedTree &) = delete;
    WatchedTree &operator=(const WatchedTree &) = delete;

    // The descriptor that becomes readable when events are waiting; negative if inotify is unavailable.
    int descriptor() const { return descriptor_; }

    // Whether the root is there and watched.
    bool isWatchingRoot() const { return rootWatch_ >= 0; }

    // Watches the tree as it is now, without reporting its content.
    void watchRoot();

    // Whether every folder of the tree is watched: the system gives a user only so many watches.
    bool isComplete() const { return isWatchingRoot() && isComplete_; }

    // Drops the watches if the folder at the root's path is no longer the watched one, as after mounting
    // something there, or if there is none.
    void checkRoot();

    // Watches folders that appeared in the tree without an event, as by mounting, and appends their content
    // to `changes`.
    void watchWhatIsNew(QList<TreeChange> &changes);

    // Watches the tree if its root has (re)appeared, and appends its content to `changes`.
    void lookForRoot(QList<TreeChange> &changes);

    // Appends the paths of all waiting events, without blocking.
    void readEvents(QList<TreeChange> &changes);

private:
    void handleEvent(const inotify_event &event, QList<TreeChange> &changes);
    enum class Telling { everything, whatIsNew };
    void watchFolder(const std::string &folder, QList<TreeChange> *found,
                     Telling telling = Telling::everything);
    int addWatch(const std::string &folder);
    void forgetWatch(int watch);
    void forgetFolder(const std::string &folder);
    void loseRoot();

    std::string root_;
    int descriptor_ = -1;
    int rootWatch_ = -1;
    std::pair<dev_t, ino_t> rootIdentity_;
    bool isComplete_ = true;
    std::unordered_map<int, std::string> folderOfWatch_;
    std::map<std::string, int> watchOfFolder_; // ordered, so that a sub-tree is one range
};

} // namespace fennick
