#pragma once

#include <functional>
#include <vector>

namespace fennick {

// Calls `writePage` for each of `pageCount` pages in `processes` processes beside this one, each of which
// gets its share of the memory, and returns which pages were written. A process ends at its first page that
// could not be: that page and those after it are left to the caller, who has all the memory. For programs of
// one thread.
std::vector<bool> writePagesAhead(int pageCount, int processes,
                                  const std::function<bool(int page)> &writePage);

} // namespace fennick
