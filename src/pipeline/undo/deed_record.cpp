#include "pipeline/undo/deed_record.h"

#include "model/data_folder.h"
#include "text/path_text.h"

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

DeedRecord::DeedRecord()
    : file_(joinedPath(dataFolder(), u"undo.json"_s)) {
    if (auto deeds = decodeDeeds(file_.content())) {
        deeds_ = *std::move(deeds);
    } else {
        file_.setDamaged(); // if there is one
    }
}

void DeedRecord::insert(const RecordedDeed &deed) {
    const auto same = std::ranges::find(deeds_, deed.id, &RecordedDeed::id);
    if (same != deeds_.end()) {
        *same = deed;
    } else {
        deeds_.removeIf([&deed](const RecordedDeed &other) { return other.kind == deed.kind; });
        deeds_.append(deed);
    }
    save();
}

void DeedRecord::replaceAll(const QList<RecordedDeed> &deeds) {
    if (!std::ranges::equal(deeds, deeds_, {}, &RecordedDeed::id, &RecordedDeed::id)) {
        deeds_ = deeds;
        save();
    }
}

// A failure is not reported: the list, which is saved next, fails for the same reason and says so.
void DeedRecord::save() {
    std::ignore = file_.rewrite(encodeDeeds(deeds_));
}

} // namespace fennick
