#pragma once

#include "settings/settings_store.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "ui/main_window/main_window.h"
#include "ui/main_window/receipts_table.h"

#include <QToolButton>

#include <memory>

namespace fennick::test {

// The main window with an empty list, an empty folder to watch and new settings, in a home of its own.
struct MainWindowUnderTest {
    // Makes everything anew and shows the window. Fails the test if it does not become active.
    void renew();
    void close();

    // A file in the folder to watch; returns its path.
    QString addFile(const QString &name) const;

    QAction *action(const char *name) const {
        return window->findChild<QAction *>(QString::fromLatin1(name));
    }
    QToolButton *button(const char *name) const {
        return window->findChild<QToolButton *>(QString::fromLatin1(name));
    }
    ReceiptsTable *table() const { return window->findChild<ReceiptsTable *>(); }
    QStringList menuTexts(const char *name) const;

    TemporaryHome home;
    PrivateSession session;
    QString watched;
    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<ReceiptStore> store;
    std::unique_ptr<AppState> appState;
    std::unique_ptr<MainWindow> window;
};

} // namespace fennick::test
