#include "pipeline/folder_presence.h"

#include <chrono>

namespace fennick {

namespace {

constexpr std::chrono::seconds shortAbsence{1};

} // namespace

FolderPresence::FolderPresence() {
    patience_.setSingleShot(true);
    patience_.setInterval(shortAbsence);
    connect(&patience_, &QTimer::timeout, this, [this] { setMissing(true); });
}

void FolderPresence::set(bool isThere) {
    if (isThere) {
        patience_.stop();
        setMissing(false);
    } else if (!isMissing_) {
        patience_.start();
    }
}

void FolderPresence::setMissing(bool isMissing) {
    if (isMissing_ != isMissing) {
        isMissing_ = isMissing;
        Q_EMIT changed(isMissing);
    }
}

} // namespace fennick
