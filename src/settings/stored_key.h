#pragma once

#include <QFuture>
#include <QString>
#include <QThreadPool>

#include <chrono>
#include <optional>
#include <stop_token>

namespace fennick {

// The API key in the secret store for the main thread, which must not wait for a store that is slow or asks
// the user for a password: reads and writes are carried out in the order given on a thread of its own. Owned
// by SettingsStore; its end gives up what is still under way.
class StoredKey {
public:
    StoredKey();
    ~StoredKey();
    StoredKey(const StoredKey &) = delete;
    StoredKey &operator=(const StoredKey &) = delete;

    // As KeychainHelper::apiKey. Whoever asks while an answer is awaited gets that one: each takes the store
    // some milliseconds, or the user a password.
    QFuture<std::optional<QString>> read();

    // An empty key removes the stored one.
    void write(const QString &key);

    // Returns as soon as nothing is under way any more, at the latest after `patience`.
    void wait(std::chrono::milliseconds patience) const;

private:
    std::stop_source end_;
    QFuture<std::optional<QString>> lastRead_; // since the last write
    mutable QThreadPool thread_;               // waiting for it changes nothing
};

} // namespace fennick
