#pragma once

#include <QObject>

namespace fennick {

// Keeps the program from running twice in one session: the first process claims the application's name, a
// later one asks the first to show its window. Owned by the application; main thread only.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    explicit SingleInstance(QObject *parent = nullptr);

    // True if this process should run, including when there is no session bus. False if another process is
    // running; it has been asked to show its window.
    [[nodiscard]] bool claim();

Q_SIGNALS:
    // Another process was started: bring the window to the front.
    void activationRequested();
};

} // namespace fennick
