#include "files/pages_ahead.h"

#include "platform/worker_process.h"

#include <memory>

namespace fennick {

std::vector<bool> writePagesAhead(int pageCount, int processes,
                                  const std::function<bool(int page)> &writePage) {
    std::vector<std::unique_ptr<WorkerProcess>> workers;
    for (int first = 0; first < processes; ++first) {
        workers.push_back(std::make_unique<WorkerProcess>(
            [&, first](std::atomic<int> &done) {
                for (int page = first; page < pageCount && writePage(page); page += processes) {
                    ++done;
                }
            },
            processes));
    }
    std::vector<bool> written(static_cast<std::size_t>(pageCount));
    for (int first = 0; first < processes; ++first) {
        const int done = workers[static_cast<std::size_t>(first)]->finish();
        for (int index = 0; index < done; ++index) {
            written[static_cast<std::size_t>(first + index * processes)] = true;
        }
    }
    return written;
}

} // namespace fennick
