#include "export/headless_browser.h"

#include "support/conditions.h"

#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace fennick::test {

namespace {

QString executable() {
    return QStandardPaths::findExecutable(u"chromium"_s);
}

// No sandbox: it does not work for root, and the pages are ours. No network: nothing here needs one.
QStringList commonArguments() {
    return {u"--headless"_s,
            u"--no-sandbox"_s,
            u"--disable-gpu"_s,
            u"--disable-dev-shm-usage"_s,
            u"--disable-quic"_s,
            u"--no-first-run"_s,
            u"--disable-background-networking"_s,
            u"--disable-component-update"_s,
            u"--disable-sync"_s,
            u"--enable-logging=stderr"_s,
            u"--v=0"_s,
            u"--virtual-time-budget=5000"_s};
}

QString schemeArgument(HeadlessBrowser::ColourScheme scheme) {
    return scheme == HeadlessBrowser::ColourScheme::dark ? u"--blink-settings=preferredColorScheme=0"_s
                                                         : u"--blink-settings=preferredColorScheme=1"_s;
}

QStringList consoleLines(const QByteArray &log) {
    return QString::fromUtf8(log).split(u'\n').filter(u":CONSOLE:"_s);
}

} // namespace

bool HeadlessBrowser::isInstalled() {
    return !executable().isEmpty();
}

HeadlessBrowser::Page HeadlessBrowser::open(const QString &path, ColourScheme scheme) const {
    const Output output = run(path, scheme, {u"--dump-dom"_s});
    return {output.isComplete, output.standardOutput, consoleLines(output.log)};
}

QImage HeadlessBrowser::screenshot(const QString &path, ColourScheme scheme) const {
    const QString picture = folder_.filePath(u"screenshot.png"_s);
    const Output output = run(
        path, scheme, {u"--screenshot="_s + picture, u"--window-size=1000,700"_s, u"--hide-scrollbars"_s});
    return output.isComplete ? QImage(picture) : QImage();
}

HeadlessBrowser::Output HeadlessBrowser::run(const QString &path, ColourScheme scheme,
                                             const QStringList &arguments) const {
    const QTemporaryDir profile;
    QProcess process;
    process.start(executable(),
                  commonArguments() + arguments +
                      QStringList{schemeArgument(scheme), u"--user-data-dir="_s + profile.path(),
                                  QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)});
    constexpr int limit = 3 * patience; // ten thousand rows took a minute on a busy machine
    const bool isComplete = process.waitForFinished(limit);
    if (!isComplete) {
        process.kill();
        process.waitForFinished(patience);
    }
    return {isComplete && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace fennick::test
