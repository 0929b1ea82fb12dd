#include "model/data_folder_lock.h"

#include "model/data_folder.h"
#include "text/path_text.h"

namespace fennick {

DataFolderLock::DataFolderLock()
    : file_(joinedPath(dataFolder(), QStringLiteral("lock"))) {
    file_.setStaleLockTime(0); // however long a program runs: its lock is stale when it has ended
    isTaken_ = !file_.tryLock(0) && file_.error() == QLockFile::LockFailedError;
}

} // namespace fennick
