#pragma once

class QWidget;

namespace fennick {

class AppState;
class SettingsStore;

// Asks for the folder to watch, starting in the present one; a chosen folder is stored and watched at once.
void chooseWatchFolder(QWidget *parent, AppState *appState, SettingsStore *settings);

} // namespace fennick
