#pragma once

#include <QString>

namespace fennick {

// Why an operation on a file or folder failed.
struct FileProblem {
    enum class Kind { link, notRegular, replaced, tooLarge, noAnswer, system };

    Kind kind;
    QString systemText; // for `system`: the system's description

    [[nodiscard]] static FileProblem ofSystem(const QString &text) { return {Kind::system, text}; }

    // `number` is a value of errno.
    [[nodiscard]] static FileProblem ofErrorNumber(int number);

    // A sentence for the user, in English: it may be stored.
    [[nodiscard]] QString description() const;
};

} // namespace fennick
