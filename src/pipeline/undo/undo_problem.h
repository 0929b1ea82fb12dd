#pragma once

#include <QString>

namespace fennick {

// What an undo or a redo could not do for one file, because something has changed since the deed.
struct UndoProblem {
    enum class Kind {
        notListed,   // the receipt has left the list
        listedAgain, // another receipt of the list has the file
        beingRead,   // a scan of the receipt is under way
        changed,     // some of the fields have other values since
        fileMissing, // there is no file where the list says
        nameTaken,   // another file has its name; `detail` is the name that it got
        notMoved,    // `detail` is the reason
        elsewhere,   // the file would leave the folders that the program moves files in
        notTrashed,  // a ledger; `detail` is empty or the reason
        noAnswer,    // the folder does not respond
    };

    Kind kind;
    QString fileName;
    QString detail = {};

    // A line for the user.
    [[nodiscard]] QString description() const;
};

} // namespace fennick
