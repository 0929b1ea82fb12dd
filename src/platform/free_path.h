#pragma once

#include <QString>

namespace fennick {

// A path in `folder` at which nothing exists, not even a link without a target: the name itself or the first
// of "name (2)", "name (3)" ... Another program may take it at any moment, so the caller must not
// replace a file there.
QString freePath(const QString &folder, const QString &stem, const QString &extension);

// The same for a whole name; the number goes before its extension.
QString freePath(const QString &folder, const QString &name);

} // namespace fennick
