#include "platform/child_process.h"

#include <QFile>

#include <cstdlib>
#include <memory>
#include <thread>

namespace fennick {

// Reads without C's `stdin`, whose lock a waiting thread would hold: exit() takes it.
void endWithStandardInput() {
    constexpr int standardInput = 0;
    auto input = std::make_shared<QFile>();
    if (!input->open(standardInput, QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        std::_Exit(EXIT_FAILURE);
    }
    std::thread([input = std::move(input)] {
        char ignored = 0;
        while (input->read(&ignored, 1) > 0) {
        }
        std::_Exit(EXIT_FAILURE);
    }).detach();
}

} // namespace fennick
