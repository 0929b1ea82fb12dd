#include "platform/application_id.h"
#include "platform/notifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString serverPath = u"/org/freedesktop/Notifications"_s;
const QString defaultAction = u"default"_s; // a click on the notice itself
constexpr int usualTime = -1;

// "button", "button2", "button3" ...
QString buttonAction(int number) {
    return number == 0 ? u"button"_s : u"button"_s + QString::number(number + 1);
}

QDBusMessage call(const QString &method) {
    return QDBusMessage::createMethodCall(service, serverPath, service, method);
}

} // namespace

Notifier::Notifier(QObject *parent)
    : QObject(parent) {
    QDBusConnection::sessionBus().connect(service, serverPath, service, u"ActionInvoked"_s, this,
                                          SLOT(handleAction(uint, QString)));
    askForCapabilities();
}

void Notifier::askForCapabilities() {
    auto *const answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call(u"GetCapabilities"_s)), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QStringList> reply = *answer;
        takesMarkup_ = !reply.isValid() || reply.value().contains(u"body-markup"_s);
        answer->deleteLater();
    });
}

void Notifier::show(const QString &title, const QString &text, const QStringList &buttons) {
    buttonCount_ = static_cast<int>(buttons.size());
    QStringList actions{defaultAction, tr("Show Receipts")};
    for (int number = 0; number < buttonCount_; ++number) {
        actions.append({buttonAction(number), buttons[number]});
    }
    QDBusMessage notify = call(u"Notify"_s);
    notify.setArguments({u"Fennick"_s, last_, applicationId, title,
                         takesMarkup_ ? text.toHtmlEscaped() : text, actions,
                         QVariantMap{{u"desktop-entry"_s, applicationId}}, usualTime});
    auto *const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(notify), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<uint> reply = *answer;
        last_ = reply.isValid() ? reply.value() : 0;
        answer->deleteLater();
    });
}

void Notifier::close() {
    QDBusMessage closing = call(u"CloseNotification"_s);
    closing.setArguments({last_});
    QDBusConnection::sessionBus().asyncCall(closing);
}

void Notifier::handleAction(uint notice, const QString &action) {
    if (notice != last_) {
        return;
    }
    if (action == defaultAction) {
        Q_EMIT activated();
        return;
    }
    for (int number = 0; number < buttonCount_; ++number) {
        if (action == buttonAction(number)) {
            Q_EMIT buttonClicked(number);
            return;
        }
    }
}

} // namespace fennick
