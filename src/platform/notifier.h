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

    // The texts are shown literally, without markup. With `actionText` the notice has a button of this name,
    // if the desktop shows buttons.
    void show(const QString &title, const QString &text, const QString &actionText = {});

    // Takes back the notice that was shown last.
    void close();

Q_SIGNALS:
    // The user has clicked the notice.
    void activated();
    // The user has clicked the button of the notice.
    void actionChosen();

    // The user has clicked its button.
    void offerTaken();

private:
    Q_SLOT void handleAction(uint notice, const QString &action);
    void askForCapabilities();

    uint last_ = 0;
    bool takesMarkup_ = true;
};

} // namespace fennick
