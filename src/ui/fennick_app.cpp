#include "ui/fennick_app.h"

#include "platform/activation_policy.h"
#include "platform/file_manager.h"
#include "platform/launcher_progress.h"
#include "platform/tray_watch.h"
#include "settings/window_memory.h"
#include "ui/details/details_window.h"
#include "ui/dialogs/confirmations.h"
#include "ui/settings/settings_view.h"
#include "ui/summary/summary_window.h"
#include "ui/widgets/symbols.h"

#include <QApplication>
#include <QMessageBox>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds trayReturn{2}; // a panel that is restarted brings its tray back by then

} // namespace

FennickApp::FennickApp()
    : loginItem_(&settings_)
    , appState_(&store_, &settings_)
    , window_(&store_, &settings_, &appState_)
    , menu_(&store_)
    , progress_(&store_)
    , notices_([] { return QApplication::activeWindow() != nullptr; })
    , keyNotices_(&appState_, &settings_, &notices_)
    , archiveNotices_(appState_.history(), &notices_) {
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());
    connectNotices();
    appState_.recoverFromInterruption();
    connectWindow();
    buildTrayIcon();
}

FennickApp::~FennickApp() {
    delete settingsView_;
    delete summary_;
}

void FennickApp::connectWindow() {
    // Queued: the window system knows the window only after the show event.
    connect(
        &window_, &MainWindow::appeared, this,
        [this] {
            appState_.startWatchingIfConfigured();
            applyMenuBarMode();
        },
        Qt::QueuedConnection);
    connect(&window_, &MainWindow::closeRequested, this, &FennickApp::putMainWindowAway);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        if (focused != nullptr && focused == window_.windowHandle()) {
            isPutAway_ = false;
        }
    });
    connect(window_.actions().settings, &QAction::triggered, this, &FennickApp::showSettings);
    connect(window_.actions().details, &QAction::triggered, this, &FennickApp::showDetails);
    connect(window_.actions().summary, &QAction::triggered, this, &FennickApp::showSummary);
    connect(window_.actions().quit, &QAction::triggered, this, &FennickApp::terminate);
}

void FennickApp::buildTrayIcon() {
    connect(&menu_, &MenuBarContent::showReceiptsRequested, this, &FennickApp::showMainWindow);
    connect(&menu_, &MenuBarContent::settingsRequested, this, &FennickApp::showSettings);
    connect(&menu_, &MenuBarContent::quitRequested, this, &FennickApp::terminate);
    new RetryEntries(appState_.retryAll(), &menu_, menu_.endOfReceipts());
    showProgress();
    trayIcon_.setContextMenu(&menu_);
    connect(&trayIcon_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            showMainWindow();
        }
    });
    trayIcon_.show();

    trayCheck_.setSingleShot(true);
    trayCheck_.setInterval(trayReturn);
    connect(&trayCheck_, &QTimer::timeout, this, &FennickApp::keepReachable);
    watchTray(this, [this] {
        if (!window_.isVisible()) {
            trayCheck_.start();
        }
    });
}

void FennickApp::connectNotices() {
    connect(&progress_, &BatchProgress::changed, this, &FennickApp::showProgress);
    connect(&progress_, &BatchProgress::ended, &notices_, [this](int scanned, int failed) {
        notices_.showBatch(scanned, failed,
                           appState_.duplicates()->repeatsAmong(progress_.scannedReceipts()));
    });
    connect(&progress_, &BatchProgress::ended, &keyNotices_, &KeyNotices::noteBatch);
    connect(appState_.retryAll(), &RetryAll::changed, this, &FennickApp::followRetries);
    connect(&appState_, &AppState::lastErrorChanged, &notices_,
            [this] { notices_.showFailure(appState_.lastError().value_or(QString())); });
    connect(&appState_, &AppState::watchedFolderMissingChanged, &notices_, [this](bool isMissing) {
        if (isMissing) {
            notices_.showFolderMissing(settings_.watchFolderPath().value_or(QString()));
        } else {
            notices_.showFolderFound();
        }
    });
    connect(&window_, &MainWindow::ledgerSaved, &notices_, &Notices::showSaved);
    connect(&window_, &MainWindow::ledgerNotSaved, &notices_, &Notices::showNotSaved);
    connect(&notices_, &Notices::activated, this, &FennickApp::showMainWindow);
    connect(&archiveNotices_, &ArchiveNotices::undoMissed, this, &FennickApp::showMainWindow);
    connect(&notices_, &Notices::showFileRequested, this,
            [](const QString &path) { FileManager::reveal(path); });
}

// Of the receipts under way: in the tray and, where there is such a thing, in the task bar.
void FennickApp::showProgress() {
    const RetryAll &retries = *appState_.retryAll();
    if (!progress_.isUnderWay() && !retries.isUnderWay()) {
        trayIcon_.setIcon(symbolIcon(Symbol::receipts));
        trayIcon_.setToolTip(u"Fennick"_s);
        hideLauncherProgress();
        return;
    }
    const int total = progress_.totalCount();
    trayIcon_.setIcon(symbolIcon(Symbol::receipts, Tint::success));
    //: %1 is the number of the receipt under way, %2 how many there are.
    trayIcon_.setToolTip(retries.isUnderWay()
                             ? RetryEntries::progressText(retries)
                             : tr("Scanning %1 of %2").arg(progress_.finishedCount() + 1).arg(total));
    showLauncherProgress(static_cast<double>(progress_.finishedCount()) / std::max(total, 1));
}

// Between two retries nothing may be under way for a while.
void FennickApp::followRetries() {
    progress_.setMoreToCome(appState_.retryAll()->isUnderWay());
    showProgress();
}

// A window that went into a tray would be out of reach once the tray has gone.
void FennickApp::keepReachable() {
    if (!window_.isVisible() && !QSystemTrayIcon::isSystemTrayAvailable()) {
        putMainWindowAway();
    }
}

void FennickApp::showMainWindow() {
    if (window_.isMinimized() || isPutAway_) {
        // Under Wayland a program is not told of its windows' minimising and cannot undo it: it can only show
        // them anew.
        window_.hide();
        window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    }
    window_.show();
    window_.raise();
    window_.activateWindow();
    applyMenuBarMode();
}

// Not QApplication::quit: that asks the windows first, and the main window never closes by itself.
void FennickApp::terminate() {
    if (mayDiscardTypedFields()) {
        QCoreApplication::exit();
    }
}

bool FennickApp::mayDiscardTypedFields() {
    return !details_ || !details_->hasUnsavedFields() || Confirmations::confirmDiscard(&window_);
}

// Into the tray where there is one. Elsewhere a hidden window could only be reached by starting the program
// again, which not everybody would think of: it is minimised.
void FennickApp::putMainWindowAway() {
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        window_.hide();
        explainTray();
    } else {
        setActivationPolicy(window_.windowHandle(), ActivationPolicy::regular);
        window_.showMinimized();
        isPutAway_ = true;
    }
}

// Once ever: who closes a window expects the program to end.
void FennickApp::explainTray() {
    WindowMemory memory;
    if (!memory.isTrayExplained()) {
        memory.setTrayExplained();
        notices_.showInTray();
    }
}

void FennickApp::applyMenuBarMode() {
    const auto policy = settings_.menuBarMode() ? ActivationPolicy::accessory : ActivationPolicy::regular;
    setActivationPolicy(window_.windowHandle(), policy);
    if (settingsView_) {
        setActivationPolicy(settingsView_->windowHandle(), policy);
    }
    if (summary_) {
        setActivationPolicy(summary_->windowHandle(), policy);
    }
    if (details_) {
        setActivationPolicy(details_->windowHandle(), policy);
    }
}

void FennickApp::finish() {
    if (settings_.finishStoringAPIKey()) {
        return;
    }
    const QString reason = tr("The API key could not be stored: the secret store does not answer.");
    qWarning("%s", qPrintable(reason));
    QMessageBox::warning(nullptr, u"Fennick"_s, reason);
}

void FennickApp::showDetails() {
    if (!details_) {
        details_ = std::make_unique<DetailsWindow>(&store_, &appState_);
        const auto follow = [this] {
            details_->showReceipt(window_.selectedReceipt());
        };
        connect(&window_, &MainWindow::selectedReceiptChanged, details_.get(), follow);
        connect(details_.get(), &DetailsWindow::stepRequested, &window_, &MainWindow::selectFurther);
        connect(details_.get(), &DetailsWindow::receiptRequested, &window_, &MainWindow::selectReceipt);
        details_->addActions({window_.actions().undo, window_.actions().redo}); // for its corrections
        follow();
    }
    details_->show();
    details_->raise();
    details_->activateWindow();
    applyMenuBarMode();
}

void FennickApp::showSummary() {
    if (!summary_) {
        summary_ = new SummaryWindow(&store_, &appState_);
        summary_->setAttribute(Qt::WA_DeleteOnClose);
    }
    summary_->show();
    summary_->raise();
    summary_->activateWindow();
    applyMenuBarMode();
}

void FennickApp::showSettings() {
    if (!settingsView_) {
        settingsView_ = new SettingsView(&appState_, &settings_, canHideFromTaskBar());
        settingsView_->setAttribute(Qt::WA_DeleteOnClose);
        connect(settingsView_, &SettingsView::menuBarModeChanged, this, &FennickApp::applyMenuBarMode);
    }
    settingsView_->show();
    settingsView_->raise();
    settingsView_->activateWindow();
    applyMenuBarMode();
}

} // namespace fennick
