#include "settings/settings_store.h"

#include "text/white_space.h"

namespace fennick {

namespace {

const QString watchFolderKey = QStringLiteral("watchFolder");
const QString archiveFolderKey = QStringLiteral("archiveFolder");
const QString modelKey = QStringLiteral("model");
const QString openAtLoginKey = QStringLiteral("openAtLogin");
const QString menuBarModeKey = QStringLiteral("menuBarMode");
const QString addToPhotosKey = QStringLiteral("addToPhotos");
const QString groupIntoAlbumKey = QStringLiteral("groupIntoAlbum");
const QString defaultModel = QStringLiteral("gemini-2.5-flash");

// A store that works answers well within this; the window shall not wait longer for one that does not.
constexpr std::chrono::milliseconds promptAnswer{500};

} // namespace

SettingsStore::SettingsStore(QObject *parent)
    : QObject(parent)
    , watchFolderPath_(defaults_.string(watchFolderKey))
    , archiveFolderPath_(defaults_.string(archiveFolderKey))
    , model_(defaults_.string(modelKey).value_or(defaultModel))
    , openAtLogin_(defaults_.boolean(openAtLoginKey))
    , menuBarMode_(defaults_.boolean(menuBarModeKey))
    , addToPhotos_(booleanOrTrue(addToPhotosKey))
    , groupIntoAlbum_(booleanOrTrue(groupIntoAlbumKey)) {
    askForAPIKey();
}

// Its answer may come when a key has been set meanwhile: then that one counts.
void SettingsStore::askForAPIKey() {
    QFuture<std::optional<QString>> key = storedKey_.read();
    storedKey_.wait(promptAnswer);
    if (key.isFinished()) {
        hasAPIKey_ = !key.result().value_or(QString()).isEmpty();
        return;
    }
    key.then(this, [this](const std::optional<QString> &late) {
        if (!isAPIKeySet_) {
            hasAPIKey_ = !late.value_or(QString()).isEmpty();
            Q_EMIT changed();
        }
    });
}

void SettingsStore::setWatchFolderPath(const std::optional<QString> &path) {
    watchFolderPath_ = path;
    Q_EMIT changed();
    storePath(watchFolderKey, path);
}

void SettingsStore::setArchiveFolderPath(const std::optional<QString> &path) {
    archiveFolderPath_ = path;
    Q_EMIT changed();
    storePath(archiveFolderKey, path);
}

void SettingsStore::setModel(const QString &model) {
    model_ = model;
    Q_EMIT changed();
    defaults_.set(modelKey, model);
}

void SettingsStore::setOpenAtLogin(bool enabled) {
    openAtLogin_ = enabled;
    Q_EMIT changed();
    defaults_.set(openAtLoginKey, enabled);
}

void SettingsStore::setMenuBarMode(bool enabled) {
    menuBarMode_ = enabled;
    Q_EMIT changed();
    defaults_.set(menuBarModeKey, enabled);
}

void SettingsStore::setAddToPhotos(bool enabled) {
    addToPhotos_ = enabled;
    Q_EMIT changed();
    defaults_.set(addToPhotosKey, enabled);
}

void SettingsStore::setGroupIntoAlbum(bool enabled) {
    groupIntoAlbum_ = enabled;
    Q_EMIT changed();
    defaults_.set(groupIntoAlbumKey, enabled);
}

void SettingsStore::setAPIKey(const QString &key) {
    const QString trimmed = trimmedOfWhiteSpace(key);
    storedKey_.write(trimmed);
    storedKey_.wait(promptAnswer);
    isAPIKeySet_ = true;
    hasAPIKey_ = !trimmed.isEmpty();
    Q_EMIT changed();
}

void SettingsStore::storePath(const QString &key, const std::optional<QString> &path) {
    if (path) {
        defaults_.set(key, *path);
    } else {
        defaults_.remove(key);
    }
}

bool SettingsStore::booleanOrTrue(const QString &key) const {
    const QVariant value = defaults_.object(key);
    return value.typeId() != QMetaType::Bool || value.toBool();
}

} // namespace fennick
