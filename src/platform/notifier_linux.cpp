#include "platform/application_id.h"
#include "platform/notifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace fennick {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString serverPath = QStringLiteral("/org/freedesktop/Notifications");
const QString defaultAction = QStringLiteral("default"); // a click on the notice itself
constexpr int usualTime = -1;

QDBusMessage call(const QString &method) {
    return QDBusMessage::createMethodCall(service, serverPath, service, method);
}

} // namespace

Notifier::Notifier(QObject *parent)
    : QObject(parent) {
    QDBusConnection::sessionBus().connect(service, serverPath, service, QStringLiteral("ActionInvoked"), this,
                                          SLOT(handleAction(uint, QString)));
    askForCapabilities();
}

void Notifier::askForCapabilities() {
    auto *const answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call(QStringLiteral("GetCapabilities"))), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QStringList> reply = *answer;
        takesMarkup_ = !reply.isValid() || reply.value().contains(QStringLiteral("body-markup"));
        answer->deleteLater();
    });
}

void Notifier::show(const QString &title, const QString &text) {
    QDBusMessage notify = call(QStringLiteral("Notify"));
    notify.setArguments({QStringLiteral("Fennick"), last_, applicationId, title,
                         takesMarkup_ ? text.toHtmlEscaped() : text,
                         QStringList{defaultAction, tr("Show Receipts")},
                         QVariantMap{{QStringLiteral("desktop-entry"), applicationId}}, usualTime});
    auto *const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(notify), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<uint> reply = *answer;
        last_ = reply.isValid() ? reply.value() : 0;
        answer->deleteLater();
    });
}

void Notifier::handleAction(uint notice, const QString &action) {
    if (notice == last_ && action == defaultAction) {
        Q_EMIT activated();
    }
}

} // namespace fennick
