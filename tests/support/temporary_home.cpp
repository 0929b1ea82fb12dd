#include "support/temporary_home.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace fennick::test {

namespace {

void setVariable(const char *name, const QString &value) {
    QDir().mkpath(value);
    qputenv(name, value.toLocal8Bit());
}

} // namespace

TemporaryHome::TemporaryHome() {
    if (!folder_.isValid()) {
        qFatal("No temporary folder: %s", qPrintable(folder_.errorString()));
    }
    setVariable("HOME", folder_.path());
    setVariable("XDG_CONFIG_HOME", path(QStringLiteral("config")));
    setVariable("XDG_CONFIG_DIRS", path(QStringLiteral("system-config")));
    setVariable("XDG_DATA_HOME", path(QStringLiteral("data")));
    setVariable("XDG_CACHE_HOME", path(QStringLiteral("cache")));
    setVariable("XDG_RUNTIME_DIR", path(QStringLiteral("run")));
    setVariable("TMPDIR", path(QStringLiteral("tmp")));
    QFile::setPermissions(path(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void writeFile(const QString &path, const QByteArray &content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Cannot write %s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
}

QByteArray readFile(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Cannot read %s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
    return file.readAll();
}

} // namespace fennick::test
