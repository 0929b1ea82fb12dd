#include "export/headless_browser.h"

#include "support/conditions.h"

#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace fennick::test {

namespace {

QString executable() {
    return QStandardPaths::findExecutable(QStringLiteral("chromium"));
}

// No sandbox: it does not work for root, and the pages are ours. No network: nothing here needs one.
QStringList commonArguments() {
    return {QStringLiteral("--headless"),
            QStringLiteral("--no-sandbox"),
            QStringLiteral("--disable-gpu"),
            QStringLiteral("--disable-dev-shm-usage"),
            QStringLiteral("--disable-quic"),
            QStringLiteral("--no-first-run"),
            QStringLiteral("--disable-background-networking"),
            QStringLiteral("--disable-component-update"),
            QStringLiteral("--disable-sync"),
            QStringLiteral("--enable-logging=stderr"),
            QStringLiteral("--v=0"),
            QStringLiteral("--virtual-time-budget=5000")};
}

QString schemeArgument(HeadlessBrowser::ColourScheme scheme) {
    return scheme == HeadlessBrowser::ColourScheme::dark
               ? QStringLiteral("--blink-settings=preferredColorScheme=0")
               : QStringLiteral("--blink-settings=preferredColorScheme=1");
}

QStringList consoleLines(const QByteArray &log) {
    return QString::fromUtf8(log).split(u'\n').filter(QStringLiteral(":CONSOLE:"));
}

} // namespace

bool HeadlessBrowser::isInstalled() {
    return !executable().isEmpty();
}

HeadlessBrowser::Page HeadlessBrowser::open(const QString &path, ColourScheme scheme) const {
    const Output output = run(path, scheme, {QStringLiteral("--dump-dom")});
    return {output.isComplete, output.standardOutput, consoleLines(output.log)};
}

QImage HeadlessBrowser::screenshot(const QString &path, ColourScheme scheme) const {
    const QString picture = folder_.filePath(QStringLiteral("screenshot.png"));
    const Output output =
        run(path, scheme,
            {QStringLiteral("--screenshot=") + picture, QStringLiteral("--window-size=1000,700"),
             QStringLiteral("--hide-scrollbars")});
    return output.isComplete ? QImage(picture) : QImage();
}

HeadlessBrowser::Output HeadlessBrowser::run(const QString &path, ColourScheme scheme,
                                             const QStringList &arguments) const {
    const QTemporaryDir profile;
    QProcess process;
    process.start(executable(),
                  commonArguments() + arguments +
                      QStringList{schemeArgument(scheme), QStringLiteral("--user-data-dir=") + profile.path(),
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
