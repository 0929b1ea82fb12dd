#pragma once

#include "model/receipt.h"

namespace fennick {

class ReceiptStore;
class RenamedPaths;
struct WatchedFolder;

// Whether `before` was finished and both give the file the same name. Such a file is not renamed: one that is
// called "name (2)" would get another number.
[[nodiscard]] bool keepsFileName(const Receipt &before, const Receipt &after);

// Gives the files of receipts the names that follow from their fields, and records the names in the list.
// Callers store the fields first: if the program is killed after the renaming, Recovery finds the file by
// them. Owned by AppState; main thread.
class ReceiptRenaming {
public:
    ReceiptRenaming(ReceiptStore *store, const WatchedFolder *watchedFolder, RenamedPaths *renamedPaths);

    // Does nothing if the file has its name already or cannot be renamed; failures are not reported. Intake
    // ignores the renamed file's events. Blocks for a second if the folder does not respond.
    void rename(Receipt receipt);

private:
    ReceiptStore *store_;
    const WatchedFolder *watchedFolder_;
    RenamedPaths *renamedPaths_;
};

} // namespace fennick
