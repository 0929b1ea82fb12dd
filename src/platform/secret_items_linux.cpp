#include "platform/secret_items.h"

#include <libsecret/secret.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace fennick::SecretItems {

namespace {

// Items are matched by their attributes alone, so that one stored with `secret-tool` is found as well.
const SecretSchema *itemSchema() {
    static const SecretSchema schema = {"org.fennick.Fennick",
                                        SECRET_SCHEMA_DONT_MATCH_NAME,
                                        {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING},
                                         {"account", SECRET_SCHEMA_ATTRIBUTE_STRING},
                                         {nullptr, SECRET_SCHEMA_ATTRIBUTE_STRING}},
                                        0,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr};
    return &schema;
}

using Attributes = std::unique_ptr<GHashTable, decltype(&g_hash_table_unref)>;
using Value = std::unique_ptr<SecretValue, decltype(&secret_value_unref)>;

Attributes attributesOf(const QString &service, const QString &account) {
    return Attributes(secret_attributes_build(itemSchema(), "service", service.toUtf8().constData(),
                                              "account", account.toUtf8().constData(), nullptr),
                      g_hash_table_unref);
}

// Takes the place of the error argument of a call whose failure is told by its result.
struct IgnoredError {
    ~IgnoredError() { g_clear_error(&error); }
    GError *error = nullptr;
};

// Cancels a call that the store does not answer: it would hold up the whole program.
class Deadline {
public:
    Deadline()
        : cancellable_(g_cancellable_new())
        , watch_([this](const std::stop_token &stop) {
            std::unique_lock lock(mutex_);
            if (!ended_.wait_for(lock, stop, patience, [] { return false; }) && !stop.stop_requested()) {
                g_cancellable_cancel(cancellable_);
            }
        }) {}

    ~Deadline() {
        watch_.request_stop();
        watch_.join();
        g_object_unref(cancellable_);
    }

    Deadline(const Deadline &) = delete;
    Deadline &operator=(const Deadline &) = delete;

    GCancellable *cancellable() const { return cancellable_; }

private:
    static constexpr std::chrono::seconds patience{5};

    GCancellable *cancellable_;
    std::mutex mutex_;
    std::condition_variable_any ended_;
    std::jthread watch_;
};

} // namespace

std::optional<QByteArray> copyMatching(const QString &service, const QString &account) {
    const Attributes attributes = attributesOf(service, account);
    IgnoredError ignored;
    const Deadline deadline;
    const Value value(secret_password_lookupv_binary_sync(itemSchema(), attributes.get(),
                                                          deadline.cancellable(), &ignored.error),
                      [](gpointer found) {
                          if (found != nullptr) {
                              secret_value_unref(found);
                          }
                      });
    if (!value) {
        return std::nullopt;
    }
    gsize length = 0;
    const gchar *const bytes = secret_value_get(value.get(), &length);
    return QByteArray(bytes, static_cast<qsizetype>(length));
}

void add(const QString &service, const QString &account, const QByteArray &secret) {
    const Attributes attributes = attributesOf(service, account);
    const Value value(secret_value_new(secret.constData(), secret.size(), "text/plain"), secret_value_unref);
    IgnoredError ignored;
    const Deadline deadline;
    secret_password_storev_binary_sync(itemSchema(), attributes.get(), SECRET_COLLECTION_DEFAULT,
                                       "Fennick: Gemini API key", value.get(), deadline.cancellable(),
                                       &ignored.error);
}

void remove(const QString &service, const QString &account) {
    const Attributes attributes = attributesOf(service, account);
    IgnoredError ignored;
    const Deadline deadline;
    secret_password_clearv_sync(itemSchema(), attributes.get(), deadline.cancellable(), &ignored.error);
}

} // namespace fennick::SecretItems
