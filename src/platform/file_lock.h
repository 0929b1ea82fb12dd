#pragma once

#include <QString>

namespace fennick {

// Locks a file for one process at a time, from its creation to its end. The system itself releases the lock
// when the process ends, however that happens; the file stays behind, and what it holds means nothing.
class FileLock {
public:
    // Makes the file, private to the user, when it is missing.
    explicit FileLock(const QString &path);
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    // Whether another process holds the lock. A place where files cannot be locked is not locked.
    bool isTaken() const { return isTaken_; }

private:
    int descriptor_;
    bool isTaken_;
};

} // namespace fennick
