#include "support/private_namespace.h"

#include "support/temporary_home.h"

#include <QFile>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace fennick::test {

namespace {

bool enterUserNamespace() {
    const auto user = QByteArray::number(getuid());
    const auto group = QByteArray::number(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return false;
    }
    writeFile(u"/proc/self/setgroups"_s, "deny");
    writeFile(u"/proc/self/uid_map"_s, "0 " + user + " 1");
    writeFile(u"/proc/self/gid_map"_s, "0 " + group + " 1");
    return true;
}

bool mountMemory(const QString &folder, const QByteArray &options) {
    return mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) == 0;
}

} // namespace

PrivateNamespace enterPrivateNamespace() {
    PrivateNamespace allowed;
    allowed.canLimitWatches = enterUserNamespace();
    if (allowed.canLimitWatches || unshare(CLONE_NEWNS) == 0) {
        allowed.canMount = mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }
    return allowed;
}

bool mountSmallFileSystem(const QString &folder, int kibibytes) {
    return mountMemory(folder, "size=" + QByteArray::number(kibibytes) + 'k');
}

bool mountFileSystemWithoutInodes(const QString &folder) {
    return mountMemory(folder, "nr_inodes=1"); // which its root takes
}

bool unmount(const QString &folder) {
    return umount2(QFile::encodeName(folder).constData(), MNT_DETACH) == 0;
}

DeadFileSystem::DeadFileSystem(const QString &folder)
    : folder_(folder)
    , server_(open("/dev/fuse", O_RDWR | O_CLOEXEC)) {
    if (server_ < 0) {
        return;
    }
    const QByteArray options = "fd=" + QByteArray::number(server_) + ",rootmode=40000,user_id=0,group_id=0";
    isMounted_ =
        mount("dead", QFile::encodeName(folder).constData(), "fuse.dead", 0, options.constData()) == 0;
}

DeadFileSystem::~DeadFileSystem() {
    if (server_ >= 0) {
        close(server_); // whoever waits gets an error
    }
    if (isMounted_) {
        unmount(folder_);
    }
}

} // namespace fennick::test
