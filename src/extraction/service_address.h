#pragma once

#include <QString>
#include <QUrl>

#include <expected>

namespace fennick {

// What stands in place of an address for Fennick's own engine.
inline const QString onDeviceAddress = QStringLiteral("on-device");

// Whether the address of the extraction service stands for Fennick's own engine, which the program then
// starts when it needs it.
bool isOnDevice(const QString &serviceAddress);

// The request's location: model and key go in verbatim. Nothing when that is no valid URL, when the address
// says more than scheme, host and port, or when it is neither https nor a loopback address: the key is part
// of the URL and must not cross a network in the clear.
std::optional<QUrl> endpointUrl(const QString &serviceAddress, const QString &model, const QString &apiKey);

} // namespace fennick
