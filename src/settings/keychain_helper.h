#pragma once

#include <QString>

#include <optional>
#include <stop_token>

// The user's API key as one item of the user's secret store, so that it never lands in the preferences.
// No operation reports a failure; calls block on the store until it has answered or `stop` is requested.
// Callable from any thread.
namespace fennick::KeychainHelper {

// The key as stored, untrimmed; absent when there is none, when it cannot be read or is no valid UTF-8.
// Callers treat an empty text as no key.
[[nodiscard]] std::optional<QString> apiKey(const std::stop_token &stop = {});

// Leaves exactly one item, holding `key`; after a failure possibly none.
void setAPIKey(const QString &key, const std::stop_token &stop = {});

void clearAPIKey(const std::stop_token &stop = {});

} // namespace fennick::KeychainHelper
