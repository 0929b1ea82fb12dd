#include "model/data_folder_lock.h"

#include "model/data_folder.h"
#include "text/path_text.h"

namespace fennick {

using namespace Qt::StringLiterals;

DataFolderLock::DataFolderLock()
    : lock_(joinedPath(dataFolder(), u"lock"_s)) {}

} // namespace fennick
