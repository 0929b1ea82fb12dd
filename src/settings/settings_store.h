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

// The user's preferences, and whether an API key is stored. Each preference is read once, at creation. Every
// assignment, even of an unchanged value, emits `changed` and is then written. Created and owned by the
// application; main thread only.
class SettingsStore : public QObject {
    Q_OBJECT

public:
    explicit SettingsStore(QObject *parent = nullptr);

    // Folder paths as the user chose them; absent = none. Setting an absent path removes the entry from the
    // file.
    const std::optional<QString> &watchFolderPath() const { return watchFolderPath_; }
    void setWatchFolderPath(const std::optional<QString> &path);
    const std::optional<QString> &archiveFolderPath() const { return archiveFolderPath_; }
    void setArchiveFolderPath(const std::optional<QString> &path);

    // The name of the extraction model, passed on unchanged and not validated here.
    const QString &model() const { return model_; }
    void setModel(const QString &model);

    bool openAtLogin() const { return openAtLogin_; }
    void setOpenAtLogin(bool enabled);
    bool menuBarMode() const { return menuBarMode_; }
    void setMenuBarMode(bool enabled);

    // On by default, and also on if a value other than a boolean is stored.
    bool addToPhotos() const { return addToPhotos_; }
    void setAddToPhotos(bool enabled);
    bool groupIntoAlbum() const { return groupIntoAlbum_; }
    void setGroupIntoAlbum(bool enabled);

    // The address of the extraction service as the preferences file has it now. Not cached, because users
    // edit the file.
    QString serviceAddress() const;

    // Counts from the next scan on. The public service's address needs no entry in the file, unless the
    // system-wide file has another one.
    void setServiceAddress(const QString &address);

    // Whether the secret store held a key at creation. Waits half a second for it, counted from creation; a
    // slower store counts as empty until it answers. After setAPIKey, it follows the given key and not the
    // store's result.
    bool hasAPIKey() const;

    // The stored key, as soon as the secret store answers; absent or empty = none.
    [[nodiscard]] QFuture<std::optional<QString>> storedAPIKey() { return storedKey_.read(); }

    // Stores the trimmed key. Removes the stored key if the trimmed one is empty.
    void setAPIKey(const QString &key);

    // Call when the program ends: waits a few seconds for a key that is still being stored. Returns whether
    // it was stored, or true if none was pending.
    [[nodiscard]] bool finishStoringAPIKey();

Q_SIGNALS:
    void changed();

    // A key was given, not removed.
    void apiKeySaved();

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
