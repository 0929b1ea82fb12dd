#pragma once

#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "settings/settings_store.h"

#include <QMainWindow>
#include <QObject>

namespace fennick {

// The application's shell: creates the shared objects once, in this order, and shows the main window. Lives
// on the stack of main() until the process ends; main thread.
class FennickApp : public QObject {
    Q_OBJECT

public:
    FennickApp();

    // Brings the one main window to the front; watching starts anew each time it appears.
    void showMainWindow();

private:
    SettingsStore settings_;
    ReceiptStore store_;
    AppState appState_;
    QMainWindow window_;
};

} // namespace fennick
