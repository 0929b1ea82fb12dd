#pragma once

#include "platform/descriptor_linux.h"

#include <QByteArray>

#include <set>
#include <tuple>

namespace fennick {

// A name in an open folder.
struct Place {
    const Descriptor &folder;
    QByteArray name;
};

// All of these return 0 or the error's number.

// Copies an open regular file, with permissions and times, to a place where nothing exists; the copy is on
// the disk when this returns. After a failure nothing remains there.
int copyOpenFile(int source, const Place &to);

// Creates a file that only the user can read and write, where nothing exists; it is on the disk when this
// returns. After a failure nothing remains there.
int writeNewFile(const Place &to, const QByteArray &content);

// Removes a file, a link or a folder with its content; links are not followed.
int removeEntry(const Place &place);

// Flushes a folder's names to the disk. Succeeds on file systems that cannot do so.
int synchroniseFolder(const Descriptor &folder);

// Copies files, links and folders, and then removes those of them that have not changed since. Owned by the
// move that makes the copy; one thread.
class CopiedEntries {
public:
    // After a failure a part of the copy may remain. Pipes, sockets and devices are not copied.
    int copy(const Place &from, const Place &to);

    // Keeps what is new or was changed since it was copied, and the folders that contain it.
    int removeSource(const Place &from);

    bool hasRemovedAny() const { return hasRemovedAny_; }

private:
    // What an entry was when it was copied: device, number, size, and the time of its last change.
    using Stamp = std::tuple<dev_t, ino_t, off_t, time_t, long>;

    static Stamp stampOf(const struct stat &status);
    int copyFolder(const Place &from, const Place &to, const struct stat &status);
    int removeFolder(const Place &from);

    std::set<Stamp> copied_;
    bool hasRemovedAny_ = false;
};

} // namespace fennick
