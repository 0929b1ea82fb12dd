#pragma once

#include <QString>

#include <optional>
#include <stop_token>

// The user's API key, stored as one item in the user's secret store and never in the preferences. Failures
// are not reported. Calls block until the store answers or `stop` is requested. Callable from any thread.
namespace fennick::KeychainHelper {

// The stored key, untrimmed; absent if there is none, if it cannot be read or if it is not valid UTF-8.
// Callers treat an empty key as absent.
[[nodiscard]] std::optional<QString> apiKey(const std::stop_token &stop = {});

// Stores exactly one item with this key; after a failure there may be none.
void setAPIKey(const QString &key, const std::stop_token &stop = {});

void clearAPIKey(const std::stop_token &stop = {});

} // namespace fennick::KeychainHelper
