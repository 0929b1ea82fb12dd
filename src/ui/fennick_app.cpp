#include "ui/fennick_app.h"

#include "ui/home_view.h"

namespace fennick {

FennickApp::FennickApp()
    : appState_(&store_, &settings_) {
    window_.setObjectName(QStringLiteral("main"));
    window_.setWindowTitle(QStringLiteral("Fennick"));
    window_.setMinimumSize(720, 420);
    window_.resize(900, 560);
    window_.setCentralWidget(new HomeView(&store_, &settings_));
}

void FennickApp::showMainWindow() {
    const bool appears = !window_.isVisible();
    window_.show();
    window_.raise();
    window_.activateWindow();
    if (appears) {
        appState_.startWatchingIfConfigured();
    }
}

} // namespace fennick
