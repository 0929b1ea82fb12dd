#pragma once

#include <coroutine>
#include <deque>
#include <memory>

namespace fennick {

// Limits how many tasks do something costly at once; the others wait in order of arrival. Shared by those
// tasks, which may outlive the object that created it. Main thread.
class Turns : public std::enable_shared_from_this<Turns> {
public:
    // Held by a task during its turn; its destruction starts the next one.
    class Turn {
    public:
        explicit Turn(std::shared_ptr<Turns> turns)
            : turns_(std::move(turns)) {}
        Turn(Turn &&) = default;
        ~Turn() {
            if (turns_) {
                turns_->pass();
            }
        }

    private:
        std::shared_ptr<Turns> turns_;
    };

    class Waiting {
    public:
        explicit Waiting(std::shared_ptr<Turns> turns)
            : turns_(std::move(turns)) {}
        bool await_ready() { return turns_->take(); }
        void await_suspend(std::coroutine_handle<> task) { turns_->waiting_.push_back(task); }
        Turn await_resume() { return Turn(turns_); }

    private:
        std::shared_ptr<Turns> turns_;
    };

    explicit Turns(int most)
        : free_(most) {}

    // Await the result.
    Waiting next() { return Waiting(shared_from_this()); }

private:
    [[nodiscard]] bool take();
    void pass();

    int free_;
    std::deque<std::coroutine_handle<>> waiting_;
};

} // namespace fennick
