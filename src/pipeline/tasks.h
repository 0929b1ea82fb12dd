#pragma once

#include <QCoroTask>
#include <QObject>

namespace fennick {

class LastError;

// Runs the pipeline's tasks. Owned by AppState; main thread. A task holds a QPointer to the object whose
// member it is and ends without a trace when it resumes after that object's end.
class Tasks : public QObject {
    Q_OBJECT

public:
    explicit Tasks(LastError *lastError);

    // Lets the task run on by itself. It reports through the store or `lastError`.
    void start(QCoro::Task<> task);

    // To be awaited. An exception of the task ends in `lastError`.
    [[nodiscard]] QCoro::Task<> reportFailureOf(QCoro::Task<> task);

private:
    LastError *lastError_;
};

} // namespace fennick
