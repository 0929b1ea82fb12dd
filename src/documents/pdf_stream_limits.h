#pragma once

#include <qpdf/QPDFPageObjectHelper.hh>

#include <vector>

namespace fennick {

// Whether everything that the pages draw with, their instructions, forms and fonts, unpacks to a size that a
// renderer can hold, for each five pages in a row: the renderer keeps it whole. Images count only if they are
// packed more than once: they are unpacked row by row.
[[nodiscard]] bool haveBoundedStreams(const std::vector<QPDFPageObjectHelper> &pages);

} // namespace fennick
