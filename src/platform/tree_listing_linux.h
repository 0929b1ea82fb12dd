#pragma once

#include <QByteArray>
#include <QList>

#include <cstdint>
#include <string>
#include <unordered_map>

namespace fennick {

// The files of a tree as they were at the last listing, by size and time of change. Tells what a new listing
// finds new or changed, and at first all, for trees whose changes the system does not tell. Owned and used by
// the thread of one event stream.
class TreeListing {
public:
    explicit TreeListing(std::string root);

    // Appends the files that are new or changed since the last listing to `changedPaths`. Links are reported
    // once; what lies behind them is ignored. Waits as long as the file system does.
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

// Whether changes that other machines make in this folder may go untold: it lies on a network or in a file
// system that a program provides.
bool isOnRemoteFileSystem(const std::string &folder);

} // namespace fennick
