#pragma once

#include <QByteArray>
#include <QList>

#include <cstdint>
#include <string>
#include <unordered_map>

namespace fennick {

// The files of a tree at the last listing, by size and time of change. Finds new and changed files by listing
// the tree again, for trees whose changes the system does not report; the first listing finds all files.
// Owned and used by the thread of one event stream.
class TreeListing {
public:
    explicit TreeListing(std::string root);

    // Appends the files that are new or changed since the last listing to `changedPaths`. Links are reported
    // once and not followed. Waits as long as the file system does.
    void refresh(QList<QByteArray> &changedPaths);

private:
    struct State {
        std::uintmax_t size;
        std::int64_t changedAt; // of the file system's clock
        bool operator==(const State &) const = default;
    };

    std::string root_;
    std::unordered_map<std::string, State> files_;
};

// Whether changes that other machines make in this folder may go unreported, because it is on a network or in
// a file system that a program provides.
bool isOnRemoteFileSystem(const std::string &folder);

} // namespace fennick
