#include "pipeline/undo/undo_problem.h"

#include "text/display_text.h"

#include <QCoreApplication>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Each follows a file's name and a colon.
QString reasonOf(const UndoProblem &problem) {
    using Kind = UndoProblem::Kind;
    switch (problem.kind) {
    case Kind::notListed:
        return QCoreApplication::translate("UndoProblem", "It is no longer in the list.");
    case Kind::listedAgain:
        return QCoreApplication::translate("UndoProblem", "The list has this file already.");
    case Kind::beingRead:
        return QCoreApplication::translate("UndoProblem", "It is being read.");
    case Kind::changed:
        return QCoreApplication::translate("UndoProblem", "Fields that have changed since stay as they are.");
    case Kind::fileMissing:
        return QCoreApplication::translate("UndoProblem", "The file is no longer there.");
    case Kind::nameTaken:
        //: %1 is a file's name.
        return QCoreApplication::translate("UndoProblem", "Another file has this name; it is now “%1”.")
            .arg(displayText(problem.detail));
    case Kind::notMoved:
        //: %1 is the reason.
        return QCoreApplication::translate("UndoProblem", "The file stays where it is: %1")
            .arg(problem.detail);
    case Kind::elsewhere:
        return QCoreApplication::translate("UndoProblem",
                                           "The file stays where it is: it was not in the watched folder.");
    case Kind::notTrashed:
        return QCoreApplication::translate("UndoProblem", "It could not be moved to the trash.");
    case Kind::noAnswer:
        return QCoreApplication::translate("UndoProblem", "The folder does not respond.");
    }
    Q_UNREACHABLE();
}

} // namespace

QString UndoProblem::description() const {
    return displayText(fileName) + u": "_s + reasonOf(*this);
}

} // namespace fennick
