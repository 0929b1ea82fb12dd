#include "platform/path_watch_linux.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <vector>

namespace fennick {

namespace {

namespace fs = std::filesystem;

// IN_ATTRIB: a link that another one takes the place of loses its last name.
constexpr uint32_t changesOfItself = IN_MOVE_SELF | IN_DELETE_SELF | IN_ATTRIB | IN_DONT_FOLLOW;

// As many as the system itself follows on one way.
constexpr int mostLinks = 40;

// The folders and links that one comes by on the way to `path`, in no order.
std::set<fs::path> stationsOf(const fs::path &path) {
    std::set<fs::path> stations;
    std::vector<fs::path> ways{path};
    for (int links = 0; !ways.empty() && links <= mostLinks; ++links) {
        const fs::path way = ways.back();
        ways.pop_back();
        fs::path station;
        for (auto part = way.begin(); part != way.end(); ++part) {
            station /= *part;
            std::error_code error;
            if (!stations.insert(station).second || !fs::is_symlink(station, error)) {
                continue;
            }
            fs::path target = station.parent_path() / fs::read_symlink(station, error);
            for (auto rest = std::next(part); rest != way.end(); ++rest) {
                target /= *rest;
            }
            ways.push_back(target);
        }
    }
    return stations;
}

} // namespace

PathWatch::PathWatch(std::string path)
    : path_(std::move(path)) {}

PathWatch::~PathWatch() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void PathWatch::renew() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
    descriptor_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (descriptor_ < 0) {
        return;
    }
    for (const fs::path &station : stationsOf(path_)) {
        inotify_add_watch(descriptor_, station.c_str(), changesOfItself);
    }
}

} // namespace fennick
