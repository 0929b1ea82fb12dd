#pragma once

#include "engine/read_error.h"
#include "engine/text_line.h"

#include <QByteArray>
#include <QList>

#include <expected>

namespace fennick {

// The text of a document (PDF, JPEG, PNG, WebP or HEIC), line by line over its first five pages; empty when
// it bears none. May take seconds: call it off the main thread. Any number of threads may.
std::expected<QList<TextLine>, ReadError> readDocument(const QByteArray &bytes);

} // namespace fennick
