#include "platform/tree_listing_linux.h"

#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace fennick {

namespace {

namespace fs = std::filesystem;

// The numbers that statfs(2) gives them.
constexpr std::array<std::uint32_t, 11> remoteFileSystems = {{
    0x6969,     // NFS
    0x517B,     // SMB
    0xFE534D42, // SMB 2 and later
    0xFF534D42, // CIFS
    0x65735546, // FUSE
    0x01021997, // 9P
    0x00C36400, // Ceph
    0x5346414F, // AFS of Linux
    0x6B414653, // AFS of kAFS
    0x73757245, // Coda
    0x786F4256, // folders that a virtual machine shares
}};

} // namespace

TreeListing::TreeListing(std::string root)
    : root_(std::move(root)) {}

void TreeListing::refresh(QList<QByteArray> &changedPaths) {
    std::unordered_map<std::string, State> files;
    std::error_code error;
    constexpr auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(root_, options, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code vanished;
        const fs::file_type type = entry->symlink_status(vanished).type();
        State state{};
        if (type == fs::file_type::regular) {
            state = {entry->file_size(vanished), entry->last_write_time(vanished).time_since_epoch().count()};
        } else if (type != fs::file_type::symlink) {
            continue; // a link is reported once; changes behind it are not
        }
        const std::string &path = entry->path().native();
        const auto known = files_.find(path);
        if (known == files_.end() || known->second != state) {
            changedPaths.append(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
        }
        files.emplace(path, state);
    }
    files_ = std::move(files);
}

bool isOnRemoteFileSystem(const std::string &folder) {
    struct statfs status{};
    return statfs(folder.c_str(), &status) == 0 &&
           std::ranges::find(remoteFileSystems, static_cast<std::uint32_t>(status.f_type)) !=
               remoteFileSystems.end();
}

} // namespace fennick
