#pragma once

class QWidget;

namespace fennick {

class AppState;

// Opens the folder of archives in the desktop's file manager, or shows why that is not possible.
void openArchiveFolder(QWidget *window, const AppState *appState);

} // namespace fennick
