#pragma once

#include "platform/file_problem.h"

#include <QByteArray>
#include <QString>

#include <expected>

namespace fennick {

// A file in the data folder that is always read and written as a whole and is private to the user. Content
// that could not be parsed is never overwritten: the file is renamed first, because someone may still be
// able to repair it. Owned by the class that parses the content; main thread only.
class WholeFile {
public:
    explicit WholeFile(const QString &path);

    // Empty if the file is missing, is not a regular file or cannot be read completely.
    QByteArray content() const;

    // Call if the content could not be parsed. The first rewrite then renames the file to
    // "<name>.damaged-<date>T<time>".
    void setDamaged();

    // Writes all of the content to the disk or, on failure, none of it. A write-protected file is replaced if
    // its folder is writable.
    [[nodiscard]] std::expected<void, FileProblem> rewrite(const QByteArray &content);

    void remove();

private:
    [[nodiscard]] std::expected<void, FileProblem> setAside() const;

    QString path_;
    bool isDamaged_ = false;
};

} // namespace fennick
