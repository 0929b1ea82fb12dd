#pragma once

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace fennick {

class Archive;
class FolderSurvey;
class FolderThreads;
class LastError;
class ReceiptStore;
class SettingsStore;
class Tasks;

// What becomes of the files that lie in a folder when it is chosen.
enum class ExistingFiles { read, ignored };

// Makes a folder that the user has chosen the watched one: looks at it before, and if wanted keeps the files
// that lie there from ever being read. Owned by AppState; main thread.
class FolderAdmission : public QObject {
    Q_OBJECT

public:
    FolderAdmission(ReceiptStore *store, SettingsStore *settings, const Archive *archive,
                    const FolderThreads *folderThreads, LastError *lastError, Tasks *tasks);

    // Has begun when it is returned.
    [[nodiscard]] std::unique_ptr<FolderSurvey> survey(const QString &path) const;

    // Stores the folder as the one to watch. Existing files are ignored on disk before that, so that a crash
    // in between leaves none to be read; if this fails, nothing changes but the last error. A later call
    // replaces one that is still listing its folder.
    void admit(const QString &path, ExistingFiles existing);

Q_SIGNALS:
    void admitted(const QString &path);

private:
    [[nodiscard]] QCoro::Task<> admitWithoutExistingFiles(QString path, int request);
    void store(const QString &path);
    std::function<bool(const QString &path)> unreadPaths() const;

    ReceiptStore *store_;
    SettingsStore *settings_;
    const Archive *archive_;
    const FolderThreads *folderThreads_;
    LastError *lastError_;
    Tasks *tasks_;
    int latestRequest_ = 0;
};

} // namespace fennick
