#pragma once

#include <QObject>

namespace fennick {

// Keeps the program from running twice in one session: the first start claims the application's name, a
// later one asks the first to show itself. Owned by the application; main thread only.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    explicit SingleInstance(QObject *parent = nullptr);

    // True when this process is the one to run; it is also without a session to claim the name in.
    // False when another one runs; it has been asked to show itself.
    [[nodiscard]] bool claim();

Q_SIGNALS:
    // Another start was tried: bring the window to the front.
    void activationRequested();
};

} // namespace fennick
