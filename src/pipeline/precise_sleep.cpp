#include "pipeline/precise_sleep.h"

#include <QCoroTimer>
#include <QTimer>

namespace fennick {

QCoro::Task<> sleepUntil(std::chrono::steady_clock::time_point due) {
    using std::chrono::milliseconds;
    // Qt's own sleep may end up to a twentieth early.
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    for (auto now = std::chrono::steady_clock::now(); now < due; now = std::chrono::steady_clock::now()) {
        timer.start(std::chrono::ceil<milliseconds>(due - now));
        co_await timer;
    }
}

} // namespace fennick
