#pragma once

#include "platform/regular_file.h"

#include <QByteArray>
#include <QString>

#include <expected>

// The parts of an extraction request that depend on the file. Callable from any thread.
namespace fennick::GeminiClient {

// The MIME type for the file name's extension, in any letter case; "application/octet-stream" for an unknown
// extension or none.
QString mimeType(const QString &filePath);

// The request's JSON body for one receipt file: instruction text, the whole file in base64, answer schema.
// Fails if the file cannot be read to its end.
[[nodiscard]] std::expected<QByteArray, FileProblem> requestBody(const FileToRead &wanted);

} // namespace fennick::GeminiClient
