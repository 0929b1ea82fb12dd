#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>

namespace fennick::test {

// The desktop's side of tray icons over D-Bus, as far as a panel needs it to show an icon's menu: announces
// itself on the session bus, takes the registration of one icon, and reads and clicks its menu.
class NotifierHost : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)

public:
    NotifierHost();
    ~NotifierHost() override;

    static bool isHostRegistered() { return true; }
    bool hasIcon() const { return !item_.isEmpty(); }

    // The texts of the menu from top to bottom; a separator is "-".
    QStringList menuTexts() const;
    // Whether the item is shown as one that can be chosen.
    bool isEnabled(const QString &text) const;
    // Chooses the item with exactly this text; returns whether there is one.
    bool choose(const QString &text) const;
    // A left click on the icon.
    void activateIcon() const;

public Q_SLOTS:
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString &service);

private:
    struct MenuItem {
        int id;
        QString text;
        bool isEnabled;
    };
    QList<MenuItem> menuItems() const;

    QDBusConnection bus_;
    QString item_;
};

} // namespace fennick::test
