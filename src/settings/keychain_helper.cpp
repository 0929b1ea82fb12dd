#include "settings/keychain_helper.h"

#include "platform/application_id.h"
#include "platform/secret_items.h"

#include <QByteArray>
#include <QUtf8StringView>

namespace fennick::KeychainHelper {

namespace {

const QString account = QStringLiteral("gemini-api-key");

} // namespace

std::optional<QString> apiKey() {
    const std::optional<QByteArray> bytes = SecretItems::copyMatching(applicationId, account);
    if (!bytes || !bytes->isValidUtf8()) {
        return std::nullopt;
    }
    return QString::fromUtf8(*bytes);
}

void setAPIKey(const QString &key) {
    // Never updated in place: a store may keep several items of the same attributes.
    SecretItems::remove(applicationId, account);
    SecretItems::add(applicationId, account, key.toUtf8());
}

void clearAPIKey() {
    SecretItems::remove(applicationId, account);
}

} // namespace fennick::KeychainHelper
