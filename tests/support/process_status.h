#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

// What the system tells of a running process.
namespace fennick::test {

// The most memory that it has held so far, in megabytes; nothing when it has ended.
std::optional<int> peakMemory(qint64 process);

// The processor time that it has used so far, in milliseconds; 0 when it has ended.
qint64 processorTime(qint64 process);

// Whether it was built with the address or the thread sanitizer, with which a process holds much more memory.
bool isSanitized(qint64 process);

// The children of `parent` whose program has this name.
QList<qint64> childrenNamed(const QByteArray &name, qint64 parent);

// Whether the process is there and has not ended.
bool isRunning(qint64 process);

// Whether the process has an inotify watch on the folder.
bool isWatchingFolder(qint64 process, const QString &folder);

} // namespace fennick::test
