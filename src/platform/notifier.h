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

    // Both texts are shown literally, without markup. `offer` is the text of a button, if there is one.
    void show(const QString &title, const QString &text, const QString &offer = {});

Q_SIGNALS:
    // The user has clicked the notice.
    void activated();

    // The user has clicked its button.
    void offerTaken();

private:
    Q_SLOT void handleAction(uint notice, const QString &action);
    void askForCapabilities();

    uint last_ = 0;
    bool takesMarkup_ = true;
};

} // namespace fennick
