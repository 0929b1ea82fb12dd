#pragma once

#include <QObject>
#include <QString>

namespace fennick {

// Shows notices of the program on the desktop; a new one takes the place of the last. Where the desktop shows
// none, nothing happens. Owned by whoever has something to tell; main thread only, and never waits for the
// desktop.
class Notifier : public QObject {
    Q_OBJECT

public:
    explicit Notifier(QObject *parent = nullptr);

    // Both texts are shown as they stand.
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
