#include "ui/tray/notices.h"

#include "text/display_text.h"
#include "text/path_text.h"

#include <chrono>
#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds shortestPause{10};

QString offerText(int receipts) {
    //: "Retry All Failed" is the text of a menu entry.
    return receipts == 1
               ? Notices::tr("1 receipt failed for want of a valid API key. It can be retried now, also "
                             "later with Retry All Failed.")
               : Notices::tr("%n receipts failed for want of a valid API key. They can be retried "
                             "now, also later with Retry All Failed.",
                             nullptr, receipts);
}

} // namespace

Notices::Notices(std::function<bool()> isWindowInFront, QObject *parent)
    : QObject(parent)
    , isWindowInFront_(std::move(isWindowInFront)) {
    pause_.setSingleShot(true);
    pause_.setTimerType(Qt::PreciseTimer);
    pause_.setInterval(shortestPause);
    connect(&pause_, &QTimer::timeout, this, &Notices::show);
    connect(&notifier_, &Notifier::activated, this, &Notices::activated);
    connect(&notifier_, &Notifier::buttonClicked, this, &Notices::handleButton);
}

void Notices::handleButton(int number) {
    switch (shownOffer_) {
    case Offer::none:
        return;
    case Offer::showFile:
        Q_EMIT showFileRequested(shownPath_);
        return;
    case Offer::retry:
        Q_EMIT retryRequested();
        return;
    case Offer::archive:
        if (number == 0) {
            Q_EMIT undoArchiveRequested();
        } else {
            Q_EMIT openFolderRequested(shownPath_);
        }
        return;
    }
}

QString Notices::batchText(int scanned, int failed, int repeats) {
    QStringList parts;
    if (scanned > 0) {
        parts.append(scanned == 1 ? tr("1 receipt scanned") : tr("%n receipts scanned", nullptr, scanned));
    }
    if (repeats > 0) {
        //: Receipts; follows "12 receipts scanned".
        parts.append(repeats == 1 ? tr("1 may be a duplicate")
                                  : tr("%n may be duplicates", nullptr, repeats));
    }
    if (failed > 0) {
        //: Receipts; follows "3 receipts scanned".
        parts.append(tr("%n failed", nullptr, failed));
    }
    //: Between "3 receipts scanned" and "1 failed".
    return parts.join(tr(", "));
}

void Notices::showBatch(int scanned, int failed, int repeats) {
    if (isWindowInFront_()) {
        return;
    }
    scanned_ += scanned;
    failed_ += failed;
    repeats_ += repeats;
    showWhenAllowed();
}

void Notices::showFailure(const QString &failure) {
    failure_ = displayText(failure);
    showWhenAllowed();
}

void Notices::offerRetry(int receipts) {
    retries_ = receipts;
    showWhenAllowed();
}

void Notices::showSaved(const QString &path) {
    savedFile_ = path;
    showWhenAllowed();
}

void Notices::showNotSaved(const QString &path, const QString &reason) {
    //: %1 is a file's name, %2 the reason.
    showFailure(tr("Couldn't save %1: %2").arg(lastPathComponent(path), reason));
}

void Notices::showArchived(int receipts, const QString &folder) {
    archived_ = receipts;
    archiveFolder_ = folder;
    showWhenAllowed();
}

void Notices::withdrawArchive() {
    archived_ = 0;
    if (std::exchange(isArchiveShown_, false)) {
        notifier_.close();
    }
}

void Notices::showInTray() {
    isInTray_ = true;
    showWhenAllowed();
}

void Notices::showFolderMissing(const QString &folder) {
    missingFolder_ = folder;
    showWhenAllowed();
}

void Notices::showFolderFound() {
    missingFolder_.clear();
    if (std::exchange(isMissingFolderShown_, false)) {
        notifier_.close();
    }
}

// Everything to report besides a batch.
QStringList Notices::takeMessages() {
    QStringList messages;
    if (!failure_.isEmpty()) {
        messages.append(std::exchange(failure_, {}));
    }
    if (!savedFile_.isEmpty()) {
        //: %1 is a file's name.
        messages.append(tr("Saved %1").arg(displayText(lastPathComponent(savedFile_))));
    }
    if (archived_ > 0) {
        messages.append(archived_ == 1 ? tr("1 receipt archived")
                                       : tr("%n receipts archived", nullptr, archived_));
    }
    if (!missingFolder_.isEmpty()) {
        messages.append(tr("The watched folder is missing: %1").arg(displayText(missingFolder_)));
    }
    if (std::exchange(isInTray_, false)) {
        messages.append(tr("Fennick keeps reading in the tray"));
    }
    if (retries_ > 0) {
        messages.append(offerText(retries_));
    }
    return messages;
}

// The buttons of one matter, for a notice shows few.
QStringList Notices::takeOffer() {
    const QString file = std::exchange(savedFile_, {});
    const bool isArchived = std::exchange(archived_, 0) > 0;
    const bool isRetryOffered = std::exchange(retries_, 0) > 0;
    if (isArchived) {
        shownOffer_ = Offer::archive;
        shownPath_ = archiveFolder_;
        //: Buttons: take the archive back, and show its folder in the desktop's file manager.
        return {tr("Undo"), tr("Open Folder")};
    }
    if (!file.isEmpty()) {
        shownOffer_ = Offer::showFile;
        shownPath_ = file;
        //: A button: shows the file that was saved in the desktop's file manager.
        return {tr("Show")};
    }
    shownOffer_ = isRetryOffered ? Offer::retry : Offer::none;
    return isRetryOffered ? QStringList{tr("Retry")} : QStringList();
}

void Notices::showWhenAllowed() {
    if (!pause_.isActive()) {
        show();
    }
}

// The messages are shown even while the window is in front, because the window does not show them.
void Notices::show() {
    if (isWindowInFront_()) {
        scanned_ = 0;
        failed_ = 0;
        repeats_ = 0;
    }
    const QString batch =
        batchText(std::exchange(scanned_, 0), std::exchange(failed_, 0), std::exchange(repeats_, 0));
    const QStringList messages = takeMessages();
    if (batch.isEmpty() && messages.isEmpty()) {
        return;
    }
    const bool isAlone = batch.isEmpty() && messages.size() == 1;
    isMissingFolderShown_ = !std::exchange(missingFolder_, {}).isEmpty() && isAlone;
    isArchiveShown_ = archived_ > 0 && isAlone;
    notifier_.show(batch.isEmpty() ? u"Fennick"_s : batch, messages.join(u'\n'), takeOffer());
    pause_.start();
}

} // namespace fennick
