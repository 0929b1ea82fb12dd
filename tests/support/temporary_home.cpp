#include "support/temporary_home.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

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
    setVariable("XDG_CONFIG_HOME", path(u"config"_s));
    setVariable("XDG_CONFIG_DIRS", path(u"system-config"_s));
    setVariable("XDG_DATA_HOME", path(u"data"_s));
    setVariable("XDG_CACHE_HOME", path(u"cache"_s));
    setVariable("XDG_RUNTIME_DIR", path(u"run"_s));
    setVariable("TMPDIR", path(u"tmp"_s));
    QFile::setPermissions(path(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
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
