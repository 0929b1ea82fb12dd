#include "model/data_folder_lock.h"

#include "model/data_folder.h"
#include "text/path_text.h"

namespace fennick {

DataFolderLock::DataFolderLock()
    : lock_(joinedPath(dataFolder(), QStringLiteral("lock"))) {}

} // namespace fennick
