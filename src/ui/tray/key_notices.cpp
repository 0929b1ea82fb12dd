#include "ui/tray/key_notices.h"

#include "pipeline/app_state.h"
#include "settings/settings_store.h"
#include "ui/tray/notices.h"

namespace fennick {

KeyNotices::KeyNotices(AppState *appState, const SettingsStore *settings, Notices *notices, QObject *parent)
    : QObject(parent)
    , appState_(appState)
    , notices_(notices) {
    connect(appState, &AppState::keyRefused, this, &KeyNotices::showRefusal);
    connect(settings, &SettingsStore::apiKeySaved, this, &KeyNotices::offerRetry);
    connect(notices, &Notices::retryRequested, this,
            [this] { appState_->retryAll()->add(appState_->receiptsWithoutKey()); });
}

void KeyNotices::noteBatch(int scanned) {
    if (scanned > 0) {
        isRefusalTold_ = false;
    }
}

void KeyNotices::showRefusal() {
    if (!isRefusalTold_) {
        isRefusalTold_ = true;
        notices_->showFailure(
            tr("The service does not accept the API key. Save a valid one in the settings."));
    }
}

void KeyNotices::offerRetry() {
    isRefusalTold_ = false;
    const qsizetype receipts = appState_->receiptsWithoutKey().size();
    if (receipts > 0) {
        notices_->offerRetry(static_cast<int>(receipts));
    }
}

} // namespace fennick
