#include "platform/file_system_answer.h"

#include "platform/regular_file.h"

#include <chrono>
#include <future>
#include <thread>

namespace fennick {

namespace {

constexpr std::chrono::seconds longestSilence{1};

} // namespace

bool fileSystemAnswers(const QString &path) {
    std::promise<void> answer;
    const std::future<void> answered = answer.get_future();
    std::thread([path, answer = std::move(answer)]() mutable {
        fileStateAt(path);
        answer.set_value();
    }).detach();
    return answered.wait_for(longestSilence) == std::future_status::ready;
}

} // namespace fennick
