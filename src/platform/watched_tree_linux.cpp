#include "platform/watched_tree_linux.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <vector>

namespace fennick {

namespace {

namespace fs = std::filesystem;

constexpr uint32_t watchedEvents = IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_FROM | IN_MOVED_TO |
                                   IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_EXCL_UNLINK | IN_ONLYDIR;

QByteArray toBytes(const std::string &path) {
    return QByteArray(path.data(), static_cast<qsizetype>(path.size()));
}

std::pair<dev_t, ino_t> identityOf(const std::string &folder) {
    struct stat status{};
    stat(folder.c_str(), &status);
    return {status.st_dev, status.st_ino};
}

} // namespace

WatchedTree::WatchedTree(QByteArray root)
    : root_(root.toStdString())
    , descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

WatchedTree::~WatchedTree() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void WatchedTree::watchRoot() {
    isComplete_ = true;
    watchFolder(root_, nullptr);
}

void WatchedTree::lookForRoot(QList<TreeChange> &changes) {
    if (descriptor_ < 0) {
        descriptor_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    }
    isComplete_ = true;
    watchFolder(root_, &changes);
}

void WatchedTree::checkRoot() {
    if (isWatchingRoot() && identityOf(root_) != rootIdentity_) {
        loseRoot();
    }
}

void WatchedTree::watchWhatIsNew(QList<TreeChange> &changes) {
    if (isWatchingRoot()) {
        watchFolder(root_, &changes, Telling::whatIsNew);
    }
}

void WatchedTree::readEvents(QList<TreeChange> &changes) {
    alignas(inotify_event) std::array<char, 65536> buffer;
    while (true) {
        const ssize_t length = read(descriptor_, buffer.data(), buffer.size());
        if (length <= 0) {
            return;
        }
        const int source = descriptor_;
        for (const char *at = buffer.data(); at < buffer.data() + length;) {
            const auto &event = *reinterpret_cast<const inotify_event *>(at);
            handleEvent(event, changes);
            if (descriptor_ != source) {
                return; // the root is gone, and with it the meaning of the remaining events
            }
            at += sizeof(inotify_event) + event.len;
        }
    }
}

void WatchedTree::handleEvent(const inotify_event &event, QList<TreeChange> &changes) {
    if (event.mask & IN_Q_OVERFLOW) {
        // Events were lost: the tree's present content is reported instead.
        watchFolder(root_, &changes);
        return;
    }
    if (event.wd == rootWatch_ && event.mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT)) {
        loseRoot();
        return;
    }
    if (event.mask & IN_IGNORED) {
        forgetWatch(event.wd);
        return;
    }
    const auto known = folderOfWatch_.find(event.wd);
    if (known == folderOfWatch_.end() || event.len == 0) {
        return;
    }
    const std::string path = known->second + '/' + event.name;
    changes.append({toBytes(path), false});
    if (!(event.mask & IN_ISDIR)) {
        return;
    }
    if (event.mask & IN_MOVED_FROM) {
        forgetFolder(path);
    }
    // Also where one was moved away: two folders may have changed places, and their events come one after the
    // other.
    if (event.mask & (IN_CREATE | IN_MOVED_FROM | IN_MOVED_TO)) {
        watchFolder(path, &changes);
    }
}

// Watches `folder` and every folder below it; appends all that lies in them to `found` if it is given.
void WatchedTree::watchFolder(const std::string &folder, QList<TreeChange> *found, Telling telling) {
    std::vector<std::string> waiting{folder};
    while (!waiting.empty()) {
        const std::string current = std::move(waiting.back());
        waiting.pop_back();
        const auto known = watchOfFolder_.find(current);
        const int earlier = known == watchOfFolder_.end() ? -1 : known->second;
        const int watch = addWatch(current);
        if (watch < 0) {
            continue;
        }
        const bool tells = found != nullptr && (telling == Telling::everything || watch != earlier);
        std::error_code error;
        for (fs::directory_iterator entry(current, error), end; !error && entry != end;
             entry.increment(error)) {
            std::error_code unreadable;
            if (entry->symlink_status(unreadable).type() == fs::file_type::directory) {
                waiting.push_back(entry->path().native());
            }
            if (tells) {
                found->append({toBytes(entry->path().native()), true});
            }
        }
    }
}

int WatchedTree::addWatch(const std::string &folder) {
    const bool isRoot = folder == root_;
    const uint32_t followLinks = isRoot ? 0 : IN_DONT_FOLLOW;
    const int watch = inotify_add_watch(descriptor_, folder.c_str(), watchedEvents | followLinks);
    if (watch < 0) {
        isComplete_ = isComplete_ && errno != ENOSPC;
        return watch;
    }
    forgetWatch(watch); // the same folder under an earlier name
    folderOfWatch_[watch] = folder;
    watchOfFolder_[folder] = watch;
    if (isRoot) {
        rootWatch_ = watch;
        rootIdentity_ = identityOf(root_);
    }
    return watch;
}

void WatchedTree::forgetWatch(int watch) {
    const auto known = folderOfWatch_.find(watch);
    if (known == folderOfWatch_.end()) {
        return;
    }
    const auto named = watchOfFolder_.find(known->second);
    if (named != watchOfFolder_.end() && named->second == watch) {
        watchOfFolder_.erase(named);
    }
    folderOfWatch_.erase(known);
}

// Ends the watches of a folder that was moved away, and of all folders below it.
void WatchedTree::forgetFolder(const std::string &folder) {
    const auto endWatch = [this](std::map<std::string, int>::iterator place) {
        inotify_rm_watch(descriptor_, place->second);
        folderOfWatch_.erase(place->second);
        return watchOfFolder_.erase(place);
    };
    if (const auto place = watchOfFolder_.find(folder); place != watchOfFolder_.end()) {
        endWatch(place);
    }
    const std::string below = folder + '/';
    for (auto place = watchOfFolder_.lower_bound(below);
         place != watchOfFolder_.end() && place->first.starts_with(below);) {
        place = endWatch(place);
    }
}

// The root was deleted, moved or unmounted. A new descriptor ends the watches on what used to be below it.
void WatchedTree::loseRoot() {
    close(descriptor_);
    descriptor_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    rootWatch_ = -1;
    folderOfWatch_.clear();
    watchOfFolder_.clear();
}

} // namespace fennick
