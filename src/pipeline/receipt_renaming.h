#pragma once

#include "model/receipt.h"

namespace fennick {

class ReceiptStore;
class RenamedPaths;
struct WatchedFolder;

// Whether nothing has changed that is in the name of a receipt's file. A file that got a number with its name
// would get another one if it were renamed all the same.
[[nodiscard]] bool keepsFileName(const Receipt &before, const Receipt &after);

// Gives the files of receipts the names that follow from their fields, and records the names in the list. The
// list has the fields before: if the program is killed after the renaming, Recovery finds the file by them.
// Owned by AppState; main thread.
class ReceiptRenaming {
public:
    ReceiptRenaming(ReceiptStore *store, const WatchedFolder *watchedFolder, RenamedPaths *renamedPaths);

    // Does nothing if the file has its name already or cannot be renamed. Intake ignores the renamed file's
    // events.
    void rename(Receipt receipt);

private:
    ReceiptStore *store_;
    const WatchedFolder *watchedFolder_;
    RenamedPaths *renamedPaths_;
};

} // namespace fennick
