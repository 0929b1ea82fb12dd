#include "pipeline/tasks.h"

#include "pipeline/exception_text.h"
#include "pipeline/last_error.h"

#include <QPointer>

#include <tuple>

namespace fennick {

Tasks::Tasks(LastError *lastError)
    : lastError_(lastError) {}

// The one place where a task is started without being awaited.
void Tasks::start(QCoro::Task<> task) {
    std::ignore = reportFailureOf(std::move(task));
}

// The exception of a task that is not awaited would otherwise be lost.
QCoro::Task<> Tasks::reportFailureOf(QCoro::Task<> task) {
    const QPointer<Tasks> self(this);
    try {
        co_await task;
    } catch (...) {
        if (self) {
            lastError_->set(exceptionText(std::current_exception()));
        }
    }
}

} // namespace fennick
