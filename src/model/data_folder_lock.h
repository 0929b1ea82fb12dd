#pragma once

#include "platform/file_lock.h"

namespace fennick {

// Keeps a second program of the user's from working on the same list: where the two do not share a session
// bus they know nothing of each other, and each would overwrite what the other has written. Owned by main().
class DataFolderLock {
public:
    DataFolderLock();

    // Whether another running program holds the lock. A folder that takes no lock file is not locked.
    bool isTaken() const { return lock_.isTaken(); }

private:
    FileLock lock_;
};

} // namespace fennick
