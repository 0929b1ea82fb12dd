#include "platform/mount_points_linux.h"

#include <mntent.h>

#include <array>
#include <filesystem>
#include <memory>

namespace fennick {

namespace {

struct TableCloser {
    void operator()(FILE *table) const { endmntent(table); }
};

} // namespace

std::set<std::string> mountPointsBelow(const std::string &folder) {
    std::error_code error;
    const std::string below = std::filesystem::canonical(folder, error).native() + '/';
    const std::unique_ptr<FILE, TableCloser> table(setmntent("/proc/self/mounts", "re"));
    std::set<std::string> points;
    mntent buffer{};
    std::array<char, 16384> strings{}; // three paths at most
    while (table && !error) {
        const mntent *const entry =
            getmntent_r(table.get(), &buffer, strings.data(), static_cast<int>(strings.size()));
        if (entry == nullptr) {
            break;
        }
        if (std::string(entry->mnt_dir).starts_with(below)) {
            points.insert(entry->mnt_dir);
        }
    }
    return points;
}

} // namespace fennick
