#include "extraction/service_address.h"

#include <QHostAddress>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

bool isLoopback(const QString &host) {
    return host == u"localhost" || QHostAddress(host).isLoopback();
}

bool isSecure(const QUrl &address) {
    return address.scheme() == u"https" || (address.scheme() == u"http" && isLoopback(address.host()));
}

bool isSchemeHostAndPort(const QUrl &address) {
    return address.isValid() && !address.host().isEmpty() && address.userInfo().isEmpty() &&
           address.path().isEmpty() && !address.hasQuery() && !address.hasFragment();
}

} // namespace

bool isOnDevice(const QString &serviceAddress) {
    return serviceAddress == onDeviceAddress;
}

QString hostOfService(const QString &serviceAddress) {
    const QString host = QUrl(serviceAddress).host();
    return host.isEmpty() ? serviceAddress : host;
}

std::optional<QUrl> endpointUrl(const QString &serviceAddress, const QString &model, const QString &apiKey) {
    const QUrl address(serviceAddress, QUrl::StrictMode);
    if (!isSchemeHostAndPort(address) || !isSecure(address)) {
        return std::nullopt;
    }
    const QUrl url(serviceAddress + u"/v1beta/models/"_s + model + u":generateContent?key="_s + apiKey,
                   QUrl::StrictMode);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

} // namespace fennick
