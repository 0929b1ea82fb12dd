#pragma once

#include "platform/user_defaults.h"

#include <QObject>
#include <QString>

#include <optional>

namespace fennick {

// The user's preferences and whether an API key is stored. Each preference is read once, at creation, and
// written back on every assignment, also of an unchanged value; every assignment is announced by `changed`.
// Created once by the application, which owns it; main thread only.
class SettingsStore : public QObject {
    Q_OBJECT

public:
    explicit SettingsStore(QObject *parent = nullptr);

    // Folder paths as the user chose them; absent = none. Setting them to absent removes the stored key.
    const std::optional<QString> &watchFolderPath() const { return watchFolderPath_; }
    void setWatchFolderPath(const std::optional<QString> &path);
    const std::optional<QString> &archiveFolderPath() const { return archiveFolderPath_; }
    void setArchiveFolderPath(const std::optional<QString> &path);

    // The extraction model's name, handed on unchanged and never checked here.
    const QString &model() const { return model_; }
    void setModel(const QString &model);

    bool openAtLogin() const { return openAtLogin_; }
    void setOpenAtLogin(bool enabled);
    bool menuBarMode() const { return menuBarMode_; }
    void setMenuBarMode(bool enabled);

    // On by default, also when something other than a boolean is stored.
    bool addToPhotos() const { return addToPhotos_; }
    void setAddToPhotos(bool enabled);
    bool groupIntoAlbum() const { return groupIntoAlbum_; }
    void setGroupIntoAlbum(bool enabled);

    // Follows the text given to setAPIKey, not the secret store's answer to it.
    bool hasAPIKey() const { return hasAPIKey_; }

    // Stores the trimmed key, or removes the stored one when nothing is left of it.
    void setAPIKey(const QString &key);

Q_SIGNALS:
    void changed();

private:
    void storePath(const QString &key, const std::optional<QString> &path);
    bool booleanOrTrue(const QString &key) const;

    UserDefaults defaults_;
    std::optional<QString> watchFolderPath_;
    std::optional<QString> archiveFolderPath_;
    QString model_;
    bool openAtLogin_;
    bool menuBarMode_;
    bool addToPhotos_;
    bool groupIntoAlbum_;
    bool hasAPIKey_;
};

} // namespace fennick
