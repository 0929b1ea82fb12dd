#pragma once

#include "platform/regular_file.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <utility>

struct stat;

namespace fennick {

// Owns a file descriptor and closes it. A negative number means that opening failed; errno has the reason.
class Descriptor {
public:
    explicit Descriptor(int number = -1)
        : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor &&other) noexcept
        : number_(other.release()) {}
    Descriptor &operator=(Descriptor &&other) noexcept {
        reset(other.release());
        return *this;
    }
    Q_DISABLE_COPY(Descriptor)

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    void reset(int number = -1);

private:
    int number_;
};

// Opens `path`, which begins with `folder` and a slash. Below the folder neither a link nor ".." is followed,
// so what is opened is in it. The folder itself may be a link. If the kernel cannot guarantee this, only a
// link at the end is refused. `flags` are those of open(2).
Descriptor openBelow(const QString &folder, const QString &path, int flags);

// Opens the folder that contains `path`, like openBelow; without a `folder`, links on the way are followed.
Descriptor openParent(const QString &folder, const QString &path);

// The names in an open folder, without "." and "..", in no particular order.
QByteArrayList namesIn(const Descriptor &folder);

FileState fileState(const struct stat &status);

// The state of `name` in an open folder; a link is not followed.
FileState fileStateIn(const Descriptor &folder, const QByteArray &name);

} // namespace fennick
