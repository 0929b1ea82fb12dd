#include "platform/file_problem.h"

#include <QCoreApplication>

#include <cstring>

namespace fennick {

FileProblem FileProblem::ofErrorNumber(int number) {
    return ofSystem(QString::fromLocal8Bit(std::strerror(number)));
}

QString FileProblem::description() const {
    switch (kind) {
    case Kind::link:
        return QString::fromUtf8(QT_TRANSLATE_NOOP(
            "FileProblem", "The file is a link. Put the file itself into the folder to scan it."));
    case Kind::notRegular:
        return QString::fromUtf8(QT_TRANSLATE_NOOP("FileProblem", "This is not a regular file."));
    case Kind::replaced:
        return QString::fromUtf8(QT_TRANSLATE_NOOP(
            "FileProblem", "The file was changed before it could be read. Retry to scan it as it is now."));
    case Kind::tooLarge:
        return QString::fromUtf8(QT_TRANSLATE_NOOP("FileProblem", "The file is larger than 100 MB."));
    case Kind::noAnswer:
        return QString::fromUtf8(
            QT_TRANSLATE_NOOP("FileProblem", "The folder does not respond. Is its network connected?"));
    case Kind::system:
        break;
    }
    return systemText;
}

} // namespace fennick
