#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <functional>

namespace fennick::fuzz {

// Makes the application that Qt's plugins need, and lets TMPDIR be its place for files.
void prepareConversion();

// Writes `content` to a file of this name below the temporary folder, lets it be converted as a receipt, and
// checks what came of it: an error with a text, or whole JPEG files with their right names, none of them
// larger than `largest` says. Leaves no files.
void checkConversion(const QString &name, const QByteArray &content,
                     const std::function<bool(QSize)> &isAcceptableSize);

} // namespace fennick::fuzz
