#include "platform/secret_items.h"

#include <libsecret/secret.h>

#include <chrono>
#include <condition_variable>
#include <functional>
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

// Passed as the error argument of a call whose result shows the failure.
struct IgnoredError {
    ~IgnoredError() { g_clear_error(&error); }
    GError *error = nullptr;
};

// A store that works answers at once, and one that the system has yet to start within seconds; one that asks
// the user for a password waits for a person.
constexpr std::chrono::seconds storePatience{15};
constexpr std::chrono::seconds personPatience{60};

// Cancels a call that is not answered in time, or no longer wanted.
class Deadline {
public:
    Deadline(std::chrono::seconds patience, const std::stop_token &stop)
        : cancellable_(g_cancellable_new(), g_object_unref)
        , stop_(stop, [this] { g_cancellable_cancel(cancellable_.get()); })
        , watch_([this, patience](const std::stop_token &answered) {
            std::unique_lock lock(mutex_);
            if (!ended_.wait_for(lock, answered, patience, [] { return false; }) &&
                !answered.stop_requested()) {
                g_cancellable_cancel(cancellable_.get());
            }
        }) {}

    ~Deadline() {
        watch_.request_stop();
        watch_.join();
    }

    Deadline(const Deadline &) = delete;
    Deadline &operator=(const Deadline &) = delete;

    GCancellable *cancellable() const { return cancellable_.get(); }

private:
    std::unique_ptr<GCancellable, decltype(&g_object_unref)> cancellable_;
    std::stop_callback<std::function<void()>> stop_;
    std::mutex mutex_;
    std::condition_variable_any ended_;
    std::jthread watch_;
};

using Item = std::unique_ptr<SecretItem, decltype(&g_object_unref)>;

Item findItem(const Attributes &attributes, const std::stop_token &stop) {
    IgnoredError ignored;
    const Deadline deadline(storePatience, stop);
    GList *const found = secret_service_search_sync(
        nullptr, itemSchema(), attributes.get(), SECRET_SEARCH_NONE, deadline.cancellable(), &ignored.error);
    Item first(found == nullptr ? nullptr : SECRET_ITEM(g_object_ref(found->data)), g_object_unref);
    g_list_free_full(found, g_object_unref);
    return first;
}

// Asks the user for the store's password where that is needed.
bool unlock(SecretItem *item, const std::stop_token &stop) {
    IgnoredError ignored;
    const Deadline deadline(personPatience, stop);
    GList items{item, nullptr, nullptr};
    return secret_service_unlock_sync(nullptr, &items, deadline.cancellable(), nullptr, &ignored.error) == 1;
}

} // namespace

std::optional<QByteArray> copyMatching(const QString &service, const QString &account,
                                       const std::stop_token &stop) {
    const Item item = findItem(attributesOf(service, account), stop);
    if (!item || (secret_item_get_locked(item.get()) && !unlock(item.get(), stop))) {
        return std::nullopt;
    }
    IgnoredError ignored;
    const Deadline deadline(storePatience, stop);
    if (!secret_item_load_secret_sync(item.get(), deadline.cancellable(), &ignored.error)) {
        return std::nullopt;
    }
    const Value value(secret_item_get_secret(item.get()), secret_value_unref);
    if (!value) {
        return std::nullopt;
    }
    gsize length = 0;
    const gchar *const bytes = secret_value_get(value.get(), &length);
    return QByteArray(bytes, static_cast<qsizetype>(length));
}

void add(const QString &service, const QString &account, const QByteArray &secret,
         const std::stop_token &stop) {
    const Attributes attributes = attributesOf(service, account);
    const Value value(secret_value_new(secret.constData(), secret.size(), "text/plain"), secret_value_unref);
    IgnoredError ignored;
    const Deadline deadline(personPatience, stop);
    secret_password_storev_binary_sync(itemSchema(), attributes.get(), SECRET_COLLECTION_DEFAULT,
                                       "Fennick: Gemini API key", value.get(), deadline.cancellable(),
                                       &ignored.error);
}

void remove(const QString &service, const QString &account, const std::stop_token &stop) {
    const Attributes attributes = attributesOf(service, account);
    IgnoredError ignored;
    const Deadline deadline(personPatience, stop);
    secret_password_clearv_sync(itemSchema(), attributes.get(), deadline.cancellable(), &ignored.error);
}

} // namespace fennick::SecretItems
