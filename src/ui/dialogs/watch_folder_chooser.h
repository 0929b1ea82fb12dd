#pragma once

class QWidget;

namespace fennick {

class AppState;
class SettingsStore;

// Asks for the folder to watch, starting in the current one. The chosen folder is stored and watched as soon
// as it was looked at and, if it holds more than was perhaps meant, the user agrees.
void chooseWatchFolder(QWidget *parent, AppState *appState, SettingsStore *settings);

} // namespace fennick
