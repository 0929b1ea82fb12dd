#include "platform/mount_points_linux.h"

#include "platform/file_system_roots.h"

#include <QFile>

#include <mntent.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>

namespace fennick {

namespace {

struct TableCloser {
    void operator()(FILE *table) const { endmntent(table); }
};

std::set<std::string> mountPoints() {
    const std::unique_ptr<FILE, TableCloser> table(setmntent("/proc/self/mounts", "re"));
    std::set<std::string> points;
    mntent buffer{};
    std::array<char, 16384> strings{}; // three paths at most
    while (table) {
        const mntent *const entry =
            getmntent_r(table.get(), &buffer, strings.data(), static_cast<int>(strings.size()));
        if (entry == nullptr) {
            break;
        }
        points.insert(entry->mnt_dir);
    }
    return points;
}

} // namespace

std::set<std::string> mountPointsBelow(const std::string &folder) {
    std::error_code error;
    const std::string below = std::filesystem::canonical(folder, error).native() + '/';
    std::set<std::string> points;
    if (!error) {
        points = mountPoints();
        std::erase_if(points, [&below](const std::string &point) { return !point.starts_with(below); });
    }
    return points;
}

bool holdsFileSystemRoot(const QString &folder) {
    std::error_code error;
    const std::string path =
        std::filesystem::canonical(QFile::encodeName(folder).toStdString(), error).native();
    if (error) {
        return false;
    }
    const std::string below = path.ends_with('/') ? path : path + '/'; // only the root of all ends so
    return std::ranges::any_of(
        mountPoints(), [&](const std::string &point) { return point == path || point.starts_with(below); });
}

} // namespace fennick
