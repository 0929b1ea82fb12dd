#pragma once

#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "settings/login_item.h"
#include "settings/settings_store.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "ui/settings/settings_view.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>

#include <memory>

namespace fennick {

class ElidedLabel;

} // namespace fennick

namespace fennick::test {

// The base of the tests of the settings window: each test starts with a window that is not shown yet, over
// the objects of a fresh installation, in a home with a Pictures folder and an empty secret store.
class SettingsViewUnderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

protected:
    // Makes the objects and the window anew, as the application does, from what is on disk.
    void create();
    void show();

    // The child with this name; there must be one.
    template <typename Control>
    Control *control(const char *name) const {
        auto *const found = view_->findChild<Control *>(QLatin1String(name));
        if (found == nullptr) {
            qFatal("There is no %s", name);
        }
        return found;
    }

    QPushButton *button(const char *name) const { return control<QPushButton>(name); }
    QLineEdit *field(const char *name) const { return control<QLineEdit>(name); }
    QCheckBox *toggle(const char *name) const { return control<QCheckBox>(name); }
    ElidedLabel *path(const char *name) const;
    QScrollArea *scrollArea() const { return control<QScrollArea>("settingsScrollArea"); }
    QWidget *form() const { return scrollArea()->widget(); }

    // Scrolls to the widget and clicks on it.
    void click(QWidget *widget) const;

    // Types in place of what stands in the field.
    static void type(QLineEdit *lineEdit, const QString &text);

    // Whether the whole widget lies within what is scrolled into view.
    bool isInSight(const QWidget *widget) const;

    // The value as it stands in the preferences file.
    QByteArray storedPreference(const QByteArray &key) const;

    QString makeFolder(const QString &name) const;
    QString autostartFile() const;

    // Libraries look up the user's folders once per process, hence one home for all tests.
    TemporaryHome home_;
    PrivateSession session_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<LoginItem> loginItem_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
    std::unique_ptr<SettingsView> view_;
};

} // namespace fennick::test
