#pragma once

#include <functional>
#include <vector>

namespace fennick {

// Calls `writePage` for each of `pageCount` pages in `processes` copies of this process, each of which gets
// its share of the memory, and returns which pages were written. A copy ends at the first page that fails:
// that page and its later ones remain for the caller, who has all the memory. For programs of one thread.
[[nodiscard]] std::vector<bool> writePagesAhead(int pageCount, int processes,
                                                const std::function<bool(int page)> &writePage);

} // namespace fennick
