#pragma once

#include <QObject>
#include <QString>

namespace fennick {

// Shows desktop notifications; a new one replaces the last. Does nothing if the desktop shows none. Main
// thread only; never waits for the desktop.
class Notifier : public QObject {
    Q_OBJECT

public:
    explicit Notifier(QObject *parent = nullptr);

    // Both texts are shown literally, without markup.
    void show(const QString &title, const QString &text);

Q_SIGNALS:
    // The user has clicked the notice.
    void activated();

private:
    Q_SLOT void handleAction(uint notice, const QString &action);
    void askForCapabilities();

    uint last_ = 0;
    bool takesMarkup_ = true;
};

} // namespace fennick
