#pragma once

#include "platform/file_lock.h"

namespace fennick {

// Prevents two instances of the program from working on the same list. Instances that do not share a session
// bus cannot see each other, and each would overwrite what the other has written. Owned by main().
class DataFolderLock {
public:
    DataFolderLock();

    // Whether another instance holds the lock. Returns false if the folder does not support lock files.
    bool isTaken() const { return lock_.isTaken(); }

private:
    FileLock lock_;
};

} // namespace fennick
