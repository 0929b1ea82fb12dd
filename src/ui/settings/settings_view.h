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

// The settings window: a form in sections that edits every preference; each change is stored at once. Each
// time it appears it reads the API key and the Photos status anew. Borrows the shared objects, which outlive
// it; main thread.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    // `canHideFromTaskBar`: whether this window system lets menu-bar mode take effect; if not, the switch
    // says so.
    SettingsView(AppState *appState, SettingsStore *settings, bool canHideFromTaskBar,
                 QWidget *parent = nullptr);

Q_SIGNALS:
    // The preference has changed; not sent for its initial value.
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
