#include "settings/stored_key.h"

#include "settings/keychain_helper.h"

#include <QDeadlineTimer>
#include <QtConcurrent>

#include <tuple>

namespace fennick {

StoredKey::StoredKey() {
    thread_.setMaxThreadCount(1);
    thread_.setExpiryTimeout(-1); // libcrypto and GLib keep something for each thread that has used them
}

StoredKey::~StoredKey() {
    std::ignore = finish(longestEnd);
    thread_.clear();
    thread_.waitForDone();
}

QFuture<std::optional<QString>> StoredKey::read() {
    if (lastRead_.isFinished()) {
        lastRead_ = QtConcurrent::run(&thread_,
                                      [stop = readEnd_.get_token()] { return KeychainHelper::apiKey(stop); });
    }
    return lastRead_;
}

void StoredKey::write(const QString &key) {
    lastRead_ = {};
    lastWritten_ = key;
    ++writesUnderWay_;
    thread_.start([this, key, stop = writeEnd_.get_token()] {
        if (key.isEmpty()) {
            KeychainHelper::clearAPIKey(stop);
        } else {
            KeychainHelper::setAPIKey(key, stop);
        }
        --writesUnderWay_;
    });
}

bool StoredKey::finish(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    readEnd_.request_stop();
    bool isStored = writesUnderWay_ == 0;
    if (!isStored) {
        wait(patience);
        // The store does not report whether a key was saved, so it is read back.
        const auto found = QtConcurrent::run(
            &thread_, [stop = writeEnd_.get_token()] { return KeychainHelper::apiKey(stop); });
        wait(std::chrono::milliseconds(deadline.remainingTime()));
        isStored = found.isFinished() && found.result().value_or(QString()) == lastWritten_;
    }
    writeEnd_.request_stop();
    return isStored;
}

void StoredKey::wait(std::chrono::milliseconds patience) const {
    thread_.waitForDone(static_cast<int>(patience.count()));
}

} // namespace fennick
