#pragma once

#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "settings/login_item.h"
#include "settings/settings_store.h"
#include "ui/main_window/main_window.h"
#include "ui/tray/archive_notices.h"
#include "ui/tray/batch_progress.h"
#include "ui/tray/key_notices.h"
#include "ui/tray/menu_bar_content.h"
#include "ui/tray/notices.h"
#include "ui/tray/retry_entries.h"

#include <QObject>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QTimer>

#include <memory>

namespace fennick {

class DetailsWindow;
class SettingsView;
class SummaryWindow;

// The application's shell: creates the shared objects in this order and owns the windows and the tray icon.
// Closing the main window stops nothing. Lives on the stack of main(); main thread.
class FennickApp : public QObject {
    Q_OBJECT

public:
    FennickApp();
    ~FennickApp() override;

    // Brings the main window to the front, even if it is hidden or minimised.
    void showMainWindow();

    void showSettings();

    // Shows the receipt that is selected in the main window.
    void showDetails();

    // Shows what was spent, by month and category.
    void showSummary();

    // Call after the event loop has ended: waits until a pending key is stored, and informs the user if that
    // fails.
    void finish();

private:
    void connectWindow();
    void buildTrayIcon();
    void connectNotices();
    void followRetries();
    void showProgress();
    bool mayDiscardTypedFields();
    void terminate();
    void putMainWindowAway();
    void explainTray();
    void keepReachable();
    void applyMenuBarMode();

    SettingsStore settings_;
    LoginItem loginItem_;
    ReceiptStore store_;
    AppState appState_;
    MainWindow window_;
    MenuBarContent menu_;
    BatchProgress progress_;
    Notices notices_;
    KeyNotices keyNotices_;
    ArchiveNotices archiveNotices_;
    QSystemTrayIcon trayIcon_;
    QTimer trayCheck_;
    bool isPutAway_ = false; // minimised by its close button, until it has the focus again
    QPointer<SettingsView> settingsView_;
    QPointer<SummaryWindow> summary_;
    std::unique_ptr<DetailsWindow> details_; // from its first use on, for it keeps what was typed
};

} // namespace fennick
