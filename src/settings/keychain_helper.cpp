#include "settings/keychain_helper.h"

#include "platform/application_id.h"
#include "platform/secret_items.h"
#include "text/json_reader.h"

#include <QByteArray>
#include <QUtf8StringView>

namespace fennick::KeychainHelper {

using namespace Qt::StringLiterals;

namespace {

const QString account = u"gemini-api-key"_s;

} // namespace

std::optional<QString> apiKey(const std::stop_token &stop) {
    const std::optional<QByteArray> bytes = SecretItems::copyMatching(applicationId, account, stop);
    if (!bytes || !bytes->isValidUtf8()) {
        return std::nullopt;
    }
    return textFromUtf8({bytes->constData(), static_cast<size_t>(bytes->size())});
}

void setAPIKey(const QString &key, const std::stop_token &stop) {
    // Never updated in place: a store may keep several items of the same attributes.
    SecretItems::remove(applicationId, account, stop);
    SecretItems::add(applicationId, account, key.toUtf8(), stop);
}

void clearAPIKey(const std::stop_token &stop) {
    SecretItems::remove(applicationId, account, stop);
}

} // namespace fennick::KeychainHelper
