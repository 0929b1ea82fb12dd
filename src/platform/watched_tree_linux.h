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
// complete: a folder that appears is watched first and listed then, which tells the files that were in it
// before the watch. Owned and used by the thread of one event stream after it has been set up.
class WatchedTree {
public:
    explicit WatchedTree(QByteArray root);
    ~WatchedTree();
    WatchedTree(const WatchedTree &) = delete;
    WatchedTree &operator=(const WatchedTree &) = delete;

    // The descriptor that turns readable when events wait; negative when inotify is not to be had.
    int descriptor() const { return descriptor_; }

    // Whether the root is there and watched.
    bool isWatchingRoot() const { return rootWatch_ >= 0; }

    // Watches the tree as it is now, without telling what lies in it.
    void watchRoot();

    // Whether every folder of the tree is watched: the system gives a user only so many watches.
    bool isComplete() const { return isWatchingRoot() && isComplete_; }

    // Gives the watches up when another folder than the watched one stands at the root's path, as after
    // mounting something there, or when none does.
    void checkRoot();

    // Watches what has come to stand in the tree unseen, as by mounting, and appends what lies there to
    // `changes`.
    void watchWhatIsNew(QList<TreeChange> &changes);

    // Watches the tree if its root has (re)appeared, and appends what lies in it to `changes`.
    void lookForRoot(QList<TreeChange> &changes);

    // Appends the paths of all events that wait, without blocking.
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
