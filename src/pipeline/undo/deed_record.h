#pragma once

#include "model/whole_file.h"
#include "pipeline/undo/recorded_deed.h"

#include <QList>

namespace fennick {

// Remembers the last clearing of the list and the last archive for as long as they can be undone, even across
// a restart or a crash in the middle of them. Kept in "undo.json" in the data folder, written before each
// call returns; a failure is not reported, because that of the list, which follows, is. Owned by AppState;
// main thread.
class DeedRecord {
public:
    DeedRecord();

    // In the order in which they were done.
    const QList<RecordedDeed> &deeds() const { return deeds_; }

    // Adds the deed in place of the one with its identifier, or else of the one of its kind.
    void insert(const RecordedDeed &deed);

    // Makes these the recorded deeds. Does nothing if they have the same identifiers in the same order.
    void replaceAll(const QList<RecordedDeed> &deeds);

private:
    void save();

    WholeFile file_;
    QList<RecordedDeed> deeds_;
};

} // namespace fennick
