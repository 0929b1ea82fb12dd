#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <memory>

namespace fennick {

// A reply resumes the task from inside one of its own signals, so neither it nor its session may go at once.
struct DeleteLater {
    void operator()(QObject *object) const { object->deleteLater(); }
};
using SessionPointer = std::unique_ptr<QNetworkAccessManager, DeleteLater>;
using ReplyPointer = std::unique_ptr<QNetworkReply, DeleteLater>;

} // namespace fennick
