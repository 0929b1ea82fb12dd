#pragma once

#include "engine/recognition/pdf_reader.h"
#include "engine/recognition/read_error.h"
#include "engine/recognition/text_line.h"

#include <QList>

#include <expected>
#include <functional>
#include <stop_token>

namespace fennick::engine {

// The readings of a document's pages: one when all have text of their own, else as many passes over the
// pictures as it takes until `isEnough` says so, two at a time on a thread each. However many documents are
// read at once, no more passes run than there are processors. What is not recognised within 25 seconds is
// left out, and it is an error if nothing was by then; none is given once `stop` is requested.
std::expected<QList<Reading>, ReadError>
readPages(const QList<PdfPage> &pages, const std::function<bool(const QList<Reading> &readings)> &isEnough,
          const std::stop_token &stop = {});

} // namespace fennick::engine
