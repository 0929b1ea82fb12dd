#pragma once

#include <QString>

namespace fennick {

// Locks a file for one process at a time, from construction to destruction. The system releases the lock when
// the process ends, however that happens. The file remains; its content has no meaning.
class FileLock {
public:
    // Creates the file, private to the user, if it does not exist.
    explicit FileLock(const QString &path);
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    // Whether another process holds the lock. False on file systems that cannot lock files.
    bool isTaken() const { return isTaken_; }

private:
    int descriptor_;
    bool isTaken_;
};

} // namespace fennick
