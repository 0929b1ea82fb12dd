#include "settings/stored_key.h"

#include "settings/keychain_helper.h"

#include <QtConcurrent>

namespace fennick {

StoredKey::StoredKey() {
    thread_.setMaxThreadCount(1);
    thread_.setExpiryTimeout(-1); // libcrypto and GLib keep something for each thread that has used them
}

StoredKey::~StoredKey() {
    end_.request_stop();
    thread_.clear();
    thread_.waitForDone();
}

QFuture<std::optional<QString>> StoredKey::read() {
    if (lastRead_.isFinished()) {
        lastRead_ =
            QtConcurrent::run(&thread_, [stop = end_.get_token()] { return KeychainHelper::apiKey(stop); });
    }
    return lastRead_;
}

void StoredKey::write(const QString &key) {
    lastRead_ = {};
    thread_.start([key, stop = end_.get_token()] {
        if (key.isEmpty()) {
            KeychainHelper::clearAPIKey(stop);
        } else {
            KeychainHelper::setAPIKey(key, stop);
        }
    });
}

void StoredKey::wait(std::chrono::milliseconds patience) const {
    thread_.waitForDone(static_cast<int>(patience.count()));
}

} // namespace fennick
