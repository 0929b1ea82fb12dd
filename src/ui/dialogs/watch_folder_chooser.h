#pragma once

class QWidget;

namespace fennick {

class AppState;
class SettingsStore;

// Asks for the folder to watch, starting in the current one. Stores the chosen folder and starts watching it
// at once.
void chooseWatchFolder(QWidget *parent, AppState *appState, SettingsStore *settings);

} // namespace fennick
