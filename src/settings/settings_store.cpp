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

// Not waited for here: a window can be built meanwhile.
void SettingsStore::askForAPIKey() {
    promptAnswer_ = QDeadlineTimer(promptAnswer);
    wasAPIKeyStored_ = storedKey_.read().then(
        [](const std::optional<QString> &key) { return !key.value_or(QString()).isEmpty(); });
    wasAPIKeyStored_.then(this, [this](bool /*wasStored*/) {
        const bool wasLate = promptAnswer_.hasExpired();
        if (wasLate && !isAPIKeySet_) {
            Q_EMIT changed();
        }
    });
}

bool SettingsStore::hasAPIKey() const {
    if (isAPIKeySet_) {
        return *isAPIKeySet_;
    }
    if (!wasAPIKeyStored_.isFinished()) {
        storedKey_.wait(std::chrono::milliseconds(promptAnswer_.remainingTime()));
    }
    return wasAPIKeyStored_.isFinished() && wasAPIKeyStored_.result();
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
    isAPIKeySet_ = !trimmed.isEmpty();
    Q_EMIT changed();
}

bool SettingsStore::finishStoringAPIKey() {
    return storedKey_.finish(StoredKey::longestEnd);
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
