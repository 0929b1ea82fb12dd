#pragma once

#include <QFuture>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <chrono>
#include <optional>
#include <stop_token>

namespace fennick {

// The API key in the secret store for the main thread, which must not wait for a store that is slow or asks
// the user for a password: reads and writes are carried out in the order given on a thread of its own. Owned
// by SettingsStore; its end gives up reads, and waits some seconds for a key that is still being stored.
class StoredKey {
public:
    // The user who ends the program waits no longer than this for a key that was saved a moment before.
    static constexpr std::chrono::seconds longestEnd{10};

    StoredKey();
    ~StoredKey();
    StoredKey(const StoredKey &) = delete;
    StoredKey &operator=(const StoredKey &) = delete;

    // As KeychainHelper::apiKey. Whoever asks while an answer is awaited gets that one: each takes the store
    // some milliseconds, or the user a password.
    [[nodiscard]] QFuture<std::optional<QString>> read();

    // An empty key removes the stored one.
    void write(const QString &key);

    // Returns as soon as nothing is under way any more, at the latest after `patience`.
    void wait(std::chrono::milliseconds patience) const;

    // Gives up reads and waits until what was written is stored, at most `patience`; gives it up then.
    // Returns whether it was. To be called at the end: nothing is read or written any more.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

private:
    std::stop_source readEnd_;
    std::stop_source writeEnd_;
    std::atomic<int> writesUnderWay_ = 0;
    QString lastWritten_;
    QFuture<std::optional<QString>> lastRead_; // since the last write
    mutable QThreadPool thread_;               // waiting for it changes nothing
};

} // namespace fennick
