#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace fennick {

// Shows desktop notifications; a new one replaces the last. Does nothing if the desktop shows none. Main
// thread only; never waits for the desktop.
class Notifier : public QObject {
    Q_OBJECT

public:
    explicit Notifier(QObject *parent = nullptr);

    // The texts are shown literally, without markup. The notice has buttons of these names, if the desktop
    // shows buttons.
    void show(const QString &title, const QString &text, const QStringList &buttons = {});

    // Takes back the notice that was shown last.
    void close();

Q_SIGNALS:
    // The user has clicked the notice.
    void activated();
    // The user has clicked a button of the notice: the first one is number 0.
    void buttonClicked(int number);

private:
    Q_SLOT void handleAction(uint notice, const QString &action);
    void askForCapabilities();

    uint last_ = 0;
    int buttonCount_ = 0; // of that notice
    bool takesMarkup_ = true;
};

} // namespace fennick
