#include "virtual_desktop.h"

#include "support/conditions.h"
#include "support/temporary_home.h"

#include <QRegularExpression>
#include <QStandardPaths>

#include <sys/prctl.h>

#include <csignal>

namespace fennick::test {

using namespace Qt::StringLiterals;

const QString mainTitle = u"Fennick"_s;
const QString settingsTitle = u"Fennick Settings"_s;

namespace {

// Without key and mouse bindings of the window manager's own: every key reaches the program.
const QByteArray windowManagerConfiguration =
    R"(<?xml version="1.0"?><openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus><desktops><number>1</number></desktops>
<keyboard></keyboard><mouse></mouse></openbox_config>)";

const QByteArray panelConfiguration = "panel_items = TS\n"
                                      "panel_position = bottom center horizontal\n"
                                      "panel_size = 100% 32\n"
                                      "systray_icon_size = 24\n";

const QString classOfProgram = uR"(\("fennick" "Fennick"\))"_s;

void start(QProcess &process, const QString &program, const QStringList &arguments) {
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    if (!process.waitForStarted(patience)) {
        qFatal("%s: %s", qPrintable(program), qPrintable(process.errorString()));
    }
}

void end(QProcess &process) {
    process.terminate();
    if (!process.waitForFinished(patience)) {
        process.kill();
        process.waitForFinished(patience);
    }
}

// Asked window by window: wmctrl ends with a fault when it lists one that does not name its machine.
QStringList windows(const QString &title) {
    static const QRegularExpression identifier(u"0x[0-9a-f]+"_s);
    QStringList found;
    const QString list = outputOf(u"xprop"_s, {u"-root"_s, u"_NET_CLIENT_LIST"_s});
    for (auto match = identifier.globalMatch(list); match.hasNext();) {
        const QString window = match.next().captured();
        if (VirtualDesktop::property(window, u"_NET_WM_NAME"_s) == u'"' + title + u'"') {
            found.append(window);
        }
    }
    return found;
}

QString windowTree() {
    return outputOf(u"xwininfo"_s, {u"-root"_s, u"-tree"_s});
}

bool isOnScreen(const QString &window) {
    return outputOf(u"xwininfo"_s, {u"-id"_s, window}).contains(u"Map State: IsViewable"_s);
}

} // namespace

QString outputOf(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QStringList VirtualDesktop::missingPrograms() {
    QStringList missing;
    for (const QString &program : {u"Xvfb"_s, u"openbox"_s, u"tint2"_s, u"xdotool"_s, u"xprop"_s,
                                   u"xwininfo"_s, u"xev"_s, u"wmctrl"_s}) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            missing.append(program);
        }
    }
    return missing;
}

VirtualDesktop::VirtualDesktop(const QString &folder)
    : folder_(folder) {
    startServer();
    startWindowManager();
}

VirtualDesktop::~VirtualDesktop() {
    stopTray();
    end(windowManager_);
    end(server_);
}

void VirtualDesktop::startServer() {
    server_.setStandardErrorFile(QProcess::nullDevice());
    server_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    server_.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x900x24"_s, u"-nolisten"_s,
                              u"tcp"_s, u"-noreset"_s});
    if (!waitUntil([this] { return server_.canReadLine(); })) {
        qFatal("Xvfb did not start: %s", qPrintable(server_.errorString()));
    }
    qputenv("DISPLAY", ':' + server_.readLine().trimmed());
    qputenv("QT_QPA_PLATFORM", "xcb");
}

void VirtualDesktop::startWindowManager() {
    const QString configuration = folder_ + u"/openbox.xml"_s;
    writeFile(configuration, windowManagerConfiguration);
    start(windowManager_, u"openbox"_s, {u"--sm-disable"_s, u"--config-file"_s, configuration});
    if (!waitUntil([] { return !outputOf(u"wmctrl"_s, {u"-m"_s}).isEmpty(); })) {
        qFatal("openbox did not start: %s", windowManager_.readAll().constData());
    }
}

void VirtualDesktop::startTray() {
    const QString configuration = folder_ + u"/tint2rc"_s;
    writeFile(configuration, panelConfiguration);
    tray_ = std::make_unique<QProcess>();
    start(*tray_, u"tint2"_s, {u"-c"_s, configuration});
    QByteArray output;
    const bool isReady = waitUntil([&] {
        output += tray_->readAll();
        return output.contains("systray started");
    });
    if (!isReady) {
        qFatal("tint2 offers no tray: %s", output.constData());
    }
}

void VirtualDesktop::stopTray() {
    if (tray_) {
        end(*tray_);
        tray_.reset();
    }
}

std::optional<QString> VirtualDesktop::window(const QString &title) {
    const QStringList found = windows(title);
    return found.isEmpty() ? std::nullopt : std::optional(found.first());
}

qsizetype VirtualDesktop::windowCount(const QString &title) {
    return windows(title).size();
}

QString VirtualDesktop::property(const QString &window, const QString &name) {
    const QString line = outputOf(u"xprop"_s, {u"-id"_s, window, name});
    const qsizetype equals = line.indexOf(u'=');
    return equals < 0 ? QString() : line.mid(equals + 1).trimmed();
}

bool VirtualDesktop::hasState(const QString &window, const QString &state) {
    return property(window, u"_NET_WM_STATE"_s).split(u", "_s).contains(state);
}

bool VirtualDesktop::isActive(const QString &window) {
    const QString active = outputOf(u"xdotool"_s, {u"getactivewindow"_s}).trimmed();
    return !active.isEmpty() && active.toULongLong() == window.toULongLong(nullptr, 16);
}

bool VirtualDesktop::press(const QString &window, const QString &keys) {
    outputOf(u"wmctrl"_s, {u"-i"_s, u"-a"_s, window});
    if (!waitUntil([&window] { return isActive(window) && isOnScreen(window); })) {
        return false;
    }
    outputOf(u"xdotool"_s, {u"key"_s, keys});
    return true;
}

void VirtualDesktop::pressForMenu(const QStringList &keys) {
    outputOf(u"xdotool"_s, QStringList{u"key"_s} + keys);
}

std::optional<QPoint> VirtualDesktop::trayIcon() {
    // Embedded, it lies in a window of the panel's, four levels below the root; the last figures are its
    // place on the screen.
    static const QRegularExpression icon(u"^ {14}0x[0-9a-f]+ .*"_s + classOfProgram +
                                             u" +24x24\\S+ +\\+(\\d+)\\+(\\d+)$"_s,
                                         QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = icon.match(windowTree());
    return match.hasMatch()
               ? std::optional(QPoint(match.captured(1).toInt(), match.captured(2).toInt()) + QPoint(12, 12))
               : std::nullopt;
}

void VirtualDesktop::click(QPoint position, int button) {
    outputOf(u"xdotool"_s, {u"mousemove"_s, QString::number(position.x()), QString::number(position.y()),
                            u"click"_s, QString::number(button)});
}

bool VirtualDesktop::isMenuOpen() {
    static const QRegularExpression topLevel(u"^ {5}(0x[0-9a-f]+) .*"_s + classOfProgram,
                                             QRegularExpression::MultilineOption);
    const QString tree = windowTree();
    QRegularExpressionMatchIterator matches = topLevel.globalMatch(tree);
    while (matches.hasNext()) {
        if (isOnScreen(matches.next().captured(1))) {
            return true;
        }
    }
    return false;
}

UnmapRecorder::UnmapRecorder(const QString &window)
    : window_(window) {
    // Line by line: a pipe would be served in blocks.
    start(xev_, u"stdbuf"_s, {u"-oL"_s, u"xev"_s, u"-id"_s, window, u"-event"_s, u"structure"_s});
}

UnmapRecorder::~UnmapRecorder() {
    end(xev_);
}

bool UnmapRecorder::waitUntilRecording() {
    int x = 40;
    return waitUntil([&] {
        output_ += xev_.readAll();
        if (output_.contains("ConfigureNotify")) {
            return true;
        }
        outputOf(u"xdotool"_s, {u"windowmove"_s, window_, QString::number(++x), u"40"_s});
        return false;
    });
}

bool UnmapRecorder::hasSeenUnmapping() {
    output_ += xev_.readAll();
    return output_.contains("UnmapNotify");
}

} // namespace fennick::test
