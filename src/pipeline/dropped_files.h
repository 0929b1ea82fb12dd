#pragma once

#include <QCoroTask>
#include <QObject>
#include <QStringList>

namespace fennick {

class LastError;
class SettingsStore;
class Tasks;

// Copies receipt files that the user drops onto the window into the watched folder, where the intake finds
// them. Owned by AppState; main thread.
class DroppedFiles : public QObject {
    Q_OBJECT

public:
    DroppedFiles(SettingsStore *settings, LastError *lastError, Tasks *tasks);

    // Never replaces an existing file and ignores other kinds of files.
    void copyIntoWatchFolder(const QStringList &paths);

private:
    [[nodiscard]] QCoro::Task<> copyReceipts(QStringList paths, QString folder);

    SettingsStore *settings_;
    LastError *lastError_;
    Tasks *tasks_;
};

} // namespace fennick
