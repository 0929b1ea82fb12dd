#include "pipeline/debounce.h"

#include <QTimer>

#include <algorithm>

namespace fennick {

namespace {

constexpr std::chrono::milliseconds debounceInterval{300};

} // namespace

void Debounce::restart(const QString &path, std::chrono::steady_clock::time_point eventTime) {
    using std::chrono::milliseconds;
    const auto due = eventTime + debounceInterval;
    const auto remaining = std::chrono::ceil<milliseconds>(due - std::chrono::steady_clock::now());
    timerOf(path)->start(std::max(milliseconds(0), remaining));
}

QTimer *Debounce::timerOf(const QString &path) {
    QTimer *&timer = timers_[path];
    if (timer == nullptr) {
        timer = new QTimer(this);
        timer->setTimerType(Qt::PreciseTimer);
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this, path] {
            timers_.take(path)->deleteLater();
            Q_EMIT elapsed(path);
        });
    }
    return timer;
}

} // namespace fennick
