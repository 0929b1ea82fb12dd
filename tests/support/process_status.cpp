#include "support/process_status.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace fennick::test {

using namespace Qt::StringLiterals;

namespace {

QByteArray contents(qint64 process, const QString &name) {
    QFile file(u"/proc/%1/%2"_s.arg(process).arg(name)); // may have ended
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

std::optional<int> peakMemory(qint64 process) {
    static const QRegularExpression line(uR"(VmHWM:\s*(\d+) kB)"_s);
    const auto match = line.match(QString::fromUtf8(contents(process, u"status"_s)));
    return match.hasMatch() ? std::optional(match.captured(1).toInt() / 1024) : std::nullopt;
}

qint64 processorTime(qint64 process) {
    const QByteArray status = contents(process, u"stat"_s);
    const QList<QByteArray> fields = status.mid(status.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype user = 11; // of the fields after the name, in ticks
    if (fields.size() <= user + 1) {
        return 0;
    }
    return (fields.at(user).toLongLong() + fields.at(user + 1).toLongLong()) * 1000 / ::sysconf(_SC_CLK_TCK);
}

bool isSanitized(qint64 process) {
    const QByteArray libraries = contents(process, u"maps"_s);
    return libraries.contains("libasan") || libraries.contains("libtsan");
}

QList<qint64> childrenNamed(const QByteArray &name, qint64 parent) {
    const QByteArray parentLine = "PPid:\t" + QByteArray::number(parent) + '\n';
    QList<qint64> children;
    for (const QString &process : QDir(u"/proc"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray status = contents(process.toLongLong(), u"status"_s);
        if (status.startsWith("Name:\t" + name + '\n') && status.contains(parentLine)) {
            children.append(process.toLongLong());
        }
    }
    return children;
}

bool isRunning(qint64 process) {
    const QByteArray status = contents(process, u"status"_s);
    return !status.isEmpty() && !status.contains("\nState:\tZ");
}

bool isWatchingFolder(qint64 process, const QString &folder) {
    struct stat folderStatus{};
    if (stat(QFile::encodeName(folder).constData(), &folderStatus) != 0) {
        return false;
    }
    const QByteArray inode = " ino:" + QByteArray::number(folderStatus.st_ino, 16) + ' ';
    const QDir descriptors(u"/proc/%1/fdinfo"_s.arg(process));
    const QStringList names = descriptors.entryList(QDir::Files);
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        QFile file(descriptors.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            return false;
        }
        const QByteArray description = file.readAll();
        return description.contains("inotify wd:") && description.contains(inode);
    });
}

} // namespace fennick::test
