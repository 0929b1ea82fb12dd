#include "ui/tray/notices.h"

#include "text/display_text.h"

#include <chrono>
#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds shortestPause{10};

QString offerText(int receipts) {
    if (receipts == 0) {
        return {};
    }
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
    connect(&pause_, &QTimer::timeout, this, &Notices::tell);
    connect(&notifier_, &Notifier::activated, this, &Notices::activated);
    connect(&notifier_, &Notifier::offerTaken, this, &Notices::retryRequested);
}

QString Notices::batchText(int scanned, int failed) {
    QStringList parts;
    if (scanned > 0) {
        parts.append(scanned == 1 ? tr("1 receipt scanned") : tr("%n receipts scanned", nullptr, scanned));
    }
    if (failed > 0) {
        //: Receipts; follows "3 receipts scanned".
        parts.append(tr("%n failed", nullptr, failed));
    }
    //: Between "3 receipts scanned" and "1 failed".
    return parts.join(tr(", "));
}

void Notices::tellBatch(int scanned, int failed) {
    if (isWindowInFront_()) {
        return;
    }
    scanned_ += scanned;
    failed_ += failed;
    tellWhenAllowed();
}

void Notices::tellFailure(const QString &failure) {
    failure_ = displayText(failure);
    tellWhenAllowed();
}

void Notices::offerRetry(int receipts) {
    retries_ = receipts;
    tellWhenAllowed();
}

void Notices::tellWhenAllowed() {
    if (!pause_.isActive()) {
        tell();
    }
}

// The failure is reported even while the window is in front, because the window does not show it.
void Notices::tell() {
    if (isWindowInFront_()) {
        scanned_ = 0;
        failed_ = 0;
    }
    const QString batch = batchText(std::exchange(scanned_, 0), std::exchange(failed_, 0));
    QStringList texts{std::exchange(failure_, {}), offerText(std::exchange(retries_, 0))};
    const QString offer = texts.last().isEmpty() ? QString() : tr("Retry");
    texts.removeAll(QString());
    if (batch.isEmpty() && texts.isEmpty()) {
        return;
    }
    notifier_.show(batch.isEmpty() ? u"Fennick"_s : batch, texts.join(u'\n'), offer);
    pause_.start();
}

} // namespace fennick
