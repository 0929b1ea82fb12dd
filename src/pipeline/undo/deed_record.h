#pragma once

#include "model/whole_file.h"
#include "pipeline/undo/recorded_deed.h"

#include <QList>

namespace fennick {

// Remembers the last clearing of the list and the last archive for as long as they can be undone, also over a
// restart and a crash in their middle. Kept in "undo.json" in the data folder. Owned by AppState; main
// thread.
class DeedRecord {
public:
    DeedRecord();

    // In the order in which they were done.
    const QList<RecordedDeed> &deeds() const { return deeds_; }

    // Takes the place of this deed or of another one of its kind. On disk when it returns.
    void insert(const RecordedDeed &deed);

    // Forgets all others. On disk when it returns.
    void keep(const QList<RecordedDeed> &deeds);

private:
    void save();

    WholeFile file_;
    QList<RecordedDeed> deeds_;
};

} // namespace fennick
