#pragma once

#include <QString>
#include <QUrl>

#include <expected>

namespace fennick {

// What stands in place of an address for Fennick's own engine.
inline const QString onDeviceAddress = QStringLiteral("on-device");

// Whether the address of the extraction service means Fennick's own engine, which the program starts when it
// is needed.
bool isOnDevice(const QString &serviceAddress);

// The host of the address, or the address itself if it has none, for display.
QString hostOfService(const QString &serviceAddress);

// The request's location: model and key go in verbatim. Absent if that is no valid URL, if the address
// has more than scheme, host and port, or if it is neither https nor a loopback address: the key is part of
// the URL and must not cross a network unencrypted.
[[nodiscard]] std::optional<QUrl> endpointUrl(const QString &serviceAddress, const QString &model,
                                              const QString &apiKey);

} // namespace fennick
