#pragma once

#include <QFuture>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <chrono>
#include <optional>
#include <stop_token>

namespace fennick {

// Gives the main thread access to the API key in the secret store, which may be slow or ask the user for a
// password. Reads and writes run on a separate thread, in order. Owned by SettingsStore. The destructor
// cancels reads and waits a few seconds for a pending write.
class StoredKey {
public:
    // The longest time that ending the program waits for a key that is still being stored.
    static constexpr std::chrono::seconds longestEnd{10};

    StoredKey();
    ~StoredKey();
    StoredKey(const StoredKey &) = delete;
    StoredKey &operator=(const StoredKey &) = delete;

    // See KeychainHelper::apiKey. Concurrent calls share one answer: each question costs some milliseconds,
    // or the user a password.
    [[nodiscard]] QFuture<std::optional<QString>> read();

    // An empty key removes the stored one.
    void write(const QString &key);

    // Waits until nothing is pending, at most for `patience`.
    void wait(std::chrono::milliseconds patience) const;

    // Cancels reads, waits at most `patience` until the last write is done and cancels it otherwise. Returns
    // whether it was stored. Nothing is read or written afterwards.
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
