#pragma once

#include <QWidget>

namespace fennick {

class AppState;
class SettingsFolderRow;
class SettingsGeminiSection;
class SettingsPhotosSection;
class SettingsSection;
class SettingsStore;
class SwitchControl;

// The settings window: a form in sections that edits every preference and stores each change at once. Reads
// the API key and the Photos permission whenever it is shown. Borrows the shared objects, which outlive it;
// main thread.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    // `canHideFromTaskBar`: whether menu-bar mode can take effect on this window system; otherwise a tool
    // tip of the switch explains the limit.
    SettingsView(AppState *appState, SettingsStore *settings, bool canHideFromTaskBar,
                 QWidget *parent = nullptr);

Q_SIGNALS:
    // Emitted when the preference changes, not for its initial value.
    void menuBarModeChanged(bool enabled);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void showScrolling(QWidget *form);
    SettingsSection *makeWatchedFolderSection();
    SettingsSection *makeArchiveSection();
    SettingsSection *makeStartupSection(bool canHideFromTaskBar);
    void showSettings();
    void announceMenuBarMode();
    void chooseArchiveFolder();

    AppState *appState_;
    SettingsStore *settings_;
    SettingsFolderRow *watchFolder_;
    SettingsGeminiSection *gemini_;
    SettingsPhotosSection *photos_;
    SettingsFolderRow *archiveFolder_;
    SwitchControl *launchAtLogin_;
    SwitchControl *menuBarMode_;
    bool isInMenuBarMode_; // as last announced
};

} // namespace fennick
