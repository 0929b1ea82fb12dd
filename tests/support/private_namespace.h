#pragma once

#include <QString>
#include <QtGlobal>

namespace fennick::test {

// What the test process may do with file systems of its own, which nobody else sees.
struct PrivateNamespace {
    bool canMount = false;
    bool canLimitWatches = false; // for itself, by /proc/sys/user
};

// Gives the process a view of the file systems of its own, if the system allows it. At the start of main,
// before there are other threads.
PrivateNamespace enterPrivateNamespace();

// Mounts an empty file system of `kibibytes`; returns whether that worked. It goes with the process.
bool mountSmallFileSystem(const QString &folder, int kibibytes);
// One that takes no file at all.
bool mountFileSystemWithoutInodes(const QString &folder);
bool unmount(const QString &folder);

// A file system whose server never answers, as an unreachable network: whoever asks it for anything waits for
// as long as this lives.
class DeadFileSystem {
public:
    explicit DeadFileSystem(const QString &folder);
    ~DeadFileSystem();
    Q_DISABLE_COPY_MOVE(DeadFileSystem)

    bool isMounted() const { return isMounted_; }

private:
    QString folder_;
    int server_;
    bool isMounted_ = false;
};

} // namespace fennick::test
