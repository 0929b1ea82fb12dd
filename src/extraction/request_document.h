#pragma once

#include "platform/regular_file.h"

#include <QByteArray>

#include <expected>

namespace fennick {

// `head`, the whole file in base64 and `tail`: the body of a request in one piece. The file never lies in
// memory beside its encoding. Fails if it cannot be read to its end. Callable from any thread.
[[nodiscard]] std::expected<QByteArray, FileProblem>
bodyWithDocument(const QByteArray &head, const FileToRead &wanted, const QByteArray &tail);

} // namespace fennick
