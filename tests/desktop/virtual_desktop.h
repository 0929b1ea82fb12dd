#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace fennick::test {

// The titles of the program's windows.
extern const QString mainTitle;
extern const QString settingsTitle;

// An X server of the test's own with a window manager in it and, while asked for, a panel with a system tray.
// Windows are looked at and driven as another program does it; a window is named by its X identifier. Sets
// DISPLAY and QT_QPA_PLATFORM of the test process, so that programs started afterwards appear here. Needs a
// TemporaryHome before it.
class VirtualDesktop {
public:
    // The programs it consists of that are not installed.
    static QStringList missingPrograms();

    // Fails the test process when a part does not start. `folder` takes the configuration files.
    explicit VirtualDesktop(const QString &folder);
    ~VirtualDesktop();

    void startTray();
    void stopTray();

    // The window with exactly this title that the window manager knows, minimised or not.
    static std::optional<QString> window(const QString &title);
    // How many such windows there are.
    static qsizetype windowCount(const QString &title);

    // A property as xprop prints it after the name, such as "_NET_WM_STATE_HIDDEN"; empty when it is not set.
    static QString property(const QString &window, const QString &name);
    static bool hasState(const QString &window, const QString &state);
    static bool isActive(const QString &window);

    // Makes the window the active one and presses the keys ("ctrl+w"); returns whether that could be done.
    static bool press(const QString &window, const QString &keys);
    // Presses the keys for whoever has grabbed the keyboard, such as an open menu.
    static void pressForMenu(const QStringList &keys);

    // The middle of the program's icon in the tray.
    static std::optional<QPoint> trayIcon();
    // 1 is the left button, 3 the right one.
    static void click(QPoint position, int button);
    // Whether a window lies over all others without the window manager's doing, as an open menu does.
    static bool isMenuOpen();

private:
    void startServer();
    void startWindowManager();

    QString folder_;
    QProcess server_;
    QProcess windowManager_;
    std::unique_ptr<QProcess> tray_;
};

// Records from now on whether a window is taken off the screen, however briefly.
class UnmapRecorder {
public:
    explicit UnmapRecorder(const QString &window);
    ~UnmapRecorder();

    // Whether the recording has begun; fails after a while.
    bool waitUntilRecording();
    bool hasSeenUnmapping();

private:
    QString window_;
    QProcess xev_;
    QByteArray output_;
};

// The standard output of a program; empty when it fails.
QString outputOf(const QString &program, const QStringList &arguments);

} // namespace fennick::test
