#include "ui/dialogs/watch_folder_chooser.h"

#include "pipeline/app_state.h"
#include "settings/settings_store.h"
#include "ui/dialogs/folder_chooser.h"

#include <QCoreApplication>

namespace fennick {

void chooseWatchFolder(QWidget *parent, AppState *appState, SettingsStore *settings) {
    const QString confirmText = QCoreApplication::translate("WatchFolderChooser", "Watch This Folder");
    const auto path = chooseFolder(parent, confirmText, settings->watchFolderPath(), NewFolders::refused);
    if (!path) {
        return;
    }
    settings->setWatchFolderPath(*path);
    appState->startWatching(*path);
}

} // namespace fennick
