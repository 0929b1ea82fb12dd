#pragma once

#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QList>

#include <expected>

namespace fennick::engine {

struct CheckedPdf {
    QByteArray bytes;
    // Of the pages looked into, from the first: whether any font is at hand on it. (Qt PDF leaks a page whose
    // text it is asked for when there is none.)
    QList<bool> hasFonts;
};

// A repaired, decrypted copy of a PDF that the page renderer can be trusted with. The renderer never returns
// from a page tree that loops, runs out of stack in one that is too deep, and allocates whatever an image
// claims to need or a stream unpacks to; all of it is found first.
// Only the first `pageLimit` pages are looked into.
std::expected<CheckedPdf, ReadError> checkedPdf(const QByteArray &bytes, int pageLimit);

} // namespace fennick::engine
