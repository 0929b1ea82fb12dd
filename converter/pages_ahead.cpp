#include "converter/pages_ahead.h"

#include "platform/worker_process.h"

#include <memory>

namespace fennick {

std::vector<bool> writePagesAhead(int pageCount, int processes,
                                  const std::function<bool(int page)> &writePage) {
    std::vector<std::unique_ptr<WorkerProcess>> workers;
    workers.reserve(static_cast<std::size_t>(processes));
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
    for (std::size_t first = 0; first < workers.size(); ++first) {
        const int done = workers[first]->finish();
        std::size_t page = first;
        for (int index = 0; index < done; ++index) {
            written[page] = true;
            page += workers.size();
        }
    }
    return written;
}

} // namespace fennick
