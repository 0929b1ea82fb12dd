#pragma once

#include <string>

namespace fennick {

// Detects that a path may now resolve to a different folder: a folder above it was moved or removed, or a
// link on the way was changed. It watches those folders and links themselves, not their content, and so does
// not wake the thread otherwise. Owned and used by the thread of one event stream after it has been set up.
class PathWatch {
public:
    explicit PathWatch(std::string path);
    ~PathWatch();
    PathWatch(const PathWatch &) = delete;
    PathWatch &operator=(const PathWatch &) = delete;

    // Watches the folders and links that the path passes through now.
    void renew();

    // The descriptor that becomes readable after such a change; negative if inotify is unavailable.
    int descriptor() const { return descriptor_; }

private:
    std::string path_;
    int descriptor_ = -1;
};

} // namespace fennick
