#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The user's secret store, by the two attributes that name an item. Calls block on the store, for a few
// seconds at most; any failure (no store, locked, refused, silent) reads as "no item" or is dropped.
namespace fennick::SecretItems {

// The bytes of the one item with these attributes.
std::optional<QByteArray> copyMatching(const QString &service, const QString &account);

void add(const QString &service, const QString &account, const QByteArray &secret);

// Removes every item with these attributes.
void remove(const QString &service, const QString &account);

} // namespace fennick::SecretItems
