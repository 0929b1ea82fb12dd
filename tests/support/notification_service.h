#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QList>
#include <QStringList>

namespace fennick::test {

using namespace Qt::StringLiterals;

// A notice as a desktop shows it.
struct Notice {
    uint replaces;
    QString icon;
    QString title;
    QString text;
    QStringList actions;
};

// The desktop's notification service on the private session's bus, on a connection of its own. Keeps what it
// is asked to show.
class NotificationService : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit NotificationService(QStringList capabilities = {u"body-markup"_s});
    ~NotificationService() override;

    const QList<Notice> &notices() const { return notices_; }

    // How many requests to take a notice back there were.
    int closed() const { return closed_; }

    // As a user's click on the notice that was shown last, or on its button for `action`.
    void click(const QString &action = u"default"_s) const;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection connection_;
    QStringList capabilities_;
    QList<Notice> notices_;
    int closed_ = 0;
};

} // namespace fennick::test
