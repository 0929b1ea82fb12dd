#pragma once

#include "platform/user_defaults.h"
#include "settings/stored_key.h"

#include <QDeadlineTimer>
#include <QFuture>
#include <QObject>
#include <QString>

#include <optional>

namespace fennick {

template <typename Value>
struct Preference;

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

    // The extraction service's address, as the preferences file has it now. Only the user changes it there.
    QString serviceAddress() const;

    // What the secret store held at creation, for which it waits half a second from then; a store that is
    // slower counts as empty until it tells. Afterwards it follows the text given to setAPIKey, not the
    // store's answer to it.
    bool hasAPIKey() const;

    // The stored key once the secret store has told it; absent or empty means none.
    [[nodiscard]] QFuture<std::optional<QString>> storedAPIKey() { return storedKey_.read(); }

    // Stores the trimmed key, or removes the stored one when nothing is left of it.
    void setAPIKey(const QString &key);

    // To be called at the program's end: waits some seconds for a key that is still being stored. Returns
    // whether it was stored; true also when there was none.
    [[nodiscard]] bool finishStoringAPIKey();

Q_SIGNALS:
    void changed();

private:
    void askForAPIKey();
    template <typename Value>
    void assign(Value &field, const Preference<Value> &preference, const Value &value);

    UserDefaults defaults_;
    std::optional<QString> watchFolderPath_;
    std::optional<QString> archiveFolderPath_;
    QString model_;
    bool openAtLogin_;
    bool menuBarMode_;
    bool addToPhotos_;
    bool groupIntoAlbum_;
    std::optional<bool> isAPIKeySet_; // by setAPIKey; absent: not called since the start
    QDeadlineTimer promptAnswer_;
    QFuture<bool> wasAPIKeyStored_;
    StoredKey storedKey_;
};

} // namespace fennick
