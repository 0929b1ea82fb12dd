#pragma once

#include <QObject>

namespace fennick {

class AppState;
class Notices;
class SettingsStore;

// Reports once, not for each receipt, that the service refuses the API key, and offers to retry what
// failed for want of a key once one is saved. Owned by the shell; main thread.
class KeyNotices : public QObject {
    Q_OBJECT

public:
    KeyNotices(AppState *appState, const SettingsStore *settings, Notices *notices,
               QObject *parent = nullptr);

    // A batch has ended: if something was scanned, the service takes the key again.
    void noteBatch(int scanned);

private:
    void showRefusal();
    void offerRetry();

    AppState *appState_;
    Notices *notices_;
    bool isRefusalTold_ = false;
};

} // namespace fennick
