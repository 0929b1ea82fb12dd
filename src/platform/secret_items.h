#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <stop_token>

// The user's secret store, by the two attributes that name an item. Calls block on the store, at most
// 15 seconds while it is silent and a minute while it asks the user for a password; a requested stop ends
// them. Any failure (no store, locked, refused, silent) reads as "no item" or is dropped. Callable from any
// thread.
namespace fennick::SecretItems {

// The bytes of the one item with these attributes.
[[nodiscard]] std::optional<QByteArray> copyMatching(const QString &service, const QString &account,
                                                     const std::stop_token &stop);

void add(const QString &service, const QString &account, const QByteArray &secret,
         const std::stop_token &stop);

// Removes every item with these attributes.
void remove(const QString &service, const QString &account, const std::stop_token &stop);

} // namespace fennick::SecretItems
