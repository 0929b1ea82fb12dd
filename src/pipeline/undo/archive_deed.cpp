#include "pipeline/undo/archive_deed.h"

#include "pipeline/archive.h"

#include <utility>

namespace fennick {

ArchiveDeed::ArchiveDeed(RecordedDeed deed, ArchiveReversal::Source source, ReceiptStore *store,
                         Archive *archive, ArchiveReversal *reversal)
    : deed_(std::move(deed))
    , source_(source)
    , store_(store)
    , archive_(archive)
    , reversal_(reversal) {
    //: What the menu's Undo takes back.
    setText(tr("Archive & Clear"));
}

bool ArchiveDeed::isPossible() const {
    return reversal_->isPossible(deed_);
}

void ArchiveDeed::undo() {
    reversal_->takeBack(deed_, source_);
}

// With a new ledger. What has come into the list since the archive stays there.
void ArchiveDeed::doAgain() {
    if (auto deed = archive_->archive(deed_.format, store_->beforeRemoval(receiptIds(deed_)))) {
        deed_ = *std::move(deed);
        source_ = ArchiveReversal::Source::thisRun;
    } else {
        setObsolete(true); // nothing was archived, and Archive has reported why
    }
}

} // namespace fennick
