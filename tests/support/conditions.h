#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace fennick::test {

// Milliseconds that a test waits for what must happen: longer than any machine is busy. Only a test that
// fails waits so long.
inline constexpr int patience = 120'000;

// Runs the event loop until the condition holds or the time is up; returns whether it holds. Unlike QtTest's
// own waiting, which sleeps between looks, events are served the moment they come.
template <typename Condition>
bool waitUntil(Condition condition, int milliseconds = patience) {
    QElapsedTimer elapsed;
    elapsed.start();
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition() || elapsed.hasExpired(milliseconds)) {
            loop.quit();
        }
    });
    look.start(2);
    loop.exec();
    return condition();
}

// Runs the event loop for a span in which something must not happen. Such a span is the only thing that a
// test may wait for without a condition.
inline void letTimePass(int milliseconds) {
    waitUntil([] { return false; }, milliseconds);
}

} // namespace fennick::test
