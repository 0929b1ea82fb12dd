#include "ui/dialogs/watch_folder_chooser.h"

#include "pipeline/app_state.h"
#include "settings/settings_store.h"
#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/watch_folder_request.h"

#include <QCoreApplication>
#include <QPointer>

namespace fennick {

void chooseWatchFolder(QWidget *parent, AppState *appState, SettingsStore *settings) {
    const QPointer<QWidget> window(parent); // which may be gone when the dialog closes
    const QString confirmText = QCoreApplication::translate("WatchFolderChooser", "Watch This Folder");
    const auto path = chooseFolder(parent, confirmText, settings->watchFolderPath(), NewFolders::refused);
    if (path) {
        WatchFolderRequest::start(*path, window, appState, settings);
    }
}

} // namespace fennick
