#include "pipeline/turns.h"

#include <QCoreApplication>

namespace fennick {

bool Turns::take() {
    if (free_ == 0) {
        return false;
    }
    --free_;
    return true;
}

void Turns::pass() {
    if (waiting_.empty()) {
        ++free_;
        return;
    }
    const std::coroutine_handle<> next = waiting_.front();
    waiting_.pop_front();
    // Not from within the task whose turn ends.
    QMetaObject::invokeMethod(qApp, [next] { next.resume(); }, Qt::QueuedConnection);
}

} // namespace fennick
