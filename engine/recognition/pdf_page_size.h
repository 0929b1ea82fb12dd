#pragma once

#include <qpdf/QPDFPageObjectHelper.hh>

#include <vector>

namespace fennick::engine {

// Whether all that the pages draw with, their instructions, forms and fonts, unpacks to a size that a
// renderer can hold; it keeps them whole. Pictures are left out unless they are packed more than once: they
// are unpacked row by row.
bool haveBoundedStreams(const std::vector<QPDFPageObjectHelper> &pages);

} // namespace fennick::engine
