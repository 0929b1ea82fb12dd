#pragma once

#include "model/whole_file.h"

#include <QObject>
#include <QStringList>

#include <optional>

namespace fennick {

class LastError;
class SettingsStore;

// The folders that archives were moved into, or that the settings named for them: what lies in their dated
// folders is not read and paid for again after the setting has changed. Kept in "archives.json" in the data
// folder. Owned by AppState; main thread.
class FormerArchives : public QObject {
    Q_OBJECT

public:
    FormerArchives(SettingsStore *settings, LastError *lastError);

    // Clean paths.
    const QStringList &folders() const { return folders_; }

    // On disk when it returns. A folder that is known already, and the empty path, change nothing.
    void remember(const QString &folder);

private:
    void load();
    void followSettings();

    SettingsStore *settings_;
    LastError *lastError_;
    WholeFile file_;
    QStringList folders_;
    bool isSaved_ = true;               // whether the file has all of them
    std::optional<QString> configured_; // as the settings had it last
};

} // namespace fennick
