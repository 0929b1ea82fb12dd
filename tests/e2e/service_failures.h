#pragma once

#include "support/scripted_server.h"

#include <QList>
#include <QString>

namespace fennick::test {

// An answer of the service that ends a scan with a failure, and the text that the receipt then carries.
struct ServiceFailure {
    QByteArray name;
    HttpReply reply;
    QString error;
};

// Every way in which an answer can fail. `key` is what some answers repeat and no text may carry.
QList<ServiceFailure> serviceFailures(const QByteArray &key);

} // namespace fennick::test
