#pragma once

#include <QHash>
#include <QString>

#include <chrono>

namespace fennick {

// The paths of files that the pipeline itself has just renamed. An event for one of them within five seconds
// is its own doing. Compares the times of events rather than using a timer, which may fire early or late.
class RenamedPaths {
public:
    using Moment = std::chrono::steady_clock::time_point;

    void insert(const QString &path, Moment renamedAt) {
        renamedAt_.removeIf([=](const auto &entry) { return !covers(*entry, renamedAt); });
        renamedAt_.insert(path, renamedAt);
    }

    // Whether an event at this time is caused by the renaming.
    bool contains(const QString &path, Moment at) const {
        const auto found = renamedAt_.constFind(path);
        return found != renamedAt_.cend() && covers(*found, at);
    }

private:
    static bool covers(Moment renamedAt, Moment at) { return at < renamedAt + std::chrono::seconds(5); }

    QHash<QString, Moment> renamedAt_;
};

} // namespace fennick
