#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include <chrono>

class QTimer;

namespace fennick {

// Waits for each path until 0.3 s have passed since its last event. Owned by the intake; main thread.
class Debounce : public QObject {
    Q_OBJECT

public:
    // The interval counts from the event itself: the watcher may have held it back to report it in a batch.
    void restart(const QString &path, std::chrono::steady_clock::time_point eventTime);

    bool isPending(const QString &path) const { return timers_.contains(path); }

Q_SIGNALS:
    void elapsed(const QString &path);

private:
    QTimer *timerOf(const QString &path);

    QHash<QString, QTimer *> timers_; // children of this object
};

} // namespace fennick
