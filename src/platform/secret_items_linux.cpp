#include "platform/secret_items.h"

#include <libsecret/secret.h>

#include <memory>

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

} // namespace

std::optional<QByteArray> copyMatching(const QString &service, const QString &account) {
    const Attributes attributes = attributesOf(service, account);
    IgnoredError ignored;
    const Value value(
        secret_password_lookupv_binary_sync(itemSchema(), attributes.get(), nullptr, &ignored.error),
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
    secret_password_storev_binary_sync(itemSchema(), attributes.get(), SECRET_COLLECTION_DEFAULT,
                                       "Fennick: Gemini API key", value.get(), nullptr, &ignored.error);
}

void remove(const QString &service, const QString &account) {
    const Attributes attributes = attributesOf(service, account);
    IgnoredError ignored;
    secret_password_clearv_sync(itemSchema(), attributes.get(), nullptr, &ignored.error);
}

} // namespace fennick::SecretItems
