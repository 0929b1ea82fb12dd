#include "settings/settings_store.h"

#include "settings/preferences.h"
#include "text/white_space.h"

namespace fennick {

namespace {

// A store that works answers well within this; the window shall not wait longer for one that does not.
constexpr std::chrono::milliseconds promptAnswer{500};

} // namespace

SettingsStore::SettingsStore(QObject *parent)
    : QObject(parent)
    , watchFolderPath_(Preferences::read(defaults_, Preferences::watchFolder))
    , archiveFolderPath_(Preferences::read(defaults_, Preferences::archiveFolder))
    , model_(Preferences::read(defaults_, Preferences::model))
    , openAtLogin_(Preferences::read(defaults_, Preferences::openAtLogin))
    , menuBarMode_(Preferences::read(defaults_, Preferences::menuBarMode))
    , addToPhotos_(Preferences::read(defaults_, Preferences::addToPhotos))
    , groupIntoAlbum_(Preferences::read(defaults_, Preferences::groupIntoAlbum)) {
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

template <typename Value>
void SettingsStore::assign(Value &field, const Preference<Value> &preference, const Value &value) {
    field = value;
    Q_EMIT changed();
    Preferences::write(defaults_, preference.key, value);
}

void SettingsStore::setWatchFolderPath(const std::optional<QString> &path) {
    assign(watchFolderPath_, Preferences::watchFolder, path);
}

void SettingsStore::setArchiveFolderPath(const std::optional<QString> &path) {
    assign(archiveFolderPath_, Preferences::archiveFolder, path);
}

void SettingsStore::setModel(const QString &model) {
    assign(model_, Preferences::model, model);
}

void SettingsStore::setOpenAtLogin(bool enabled) {
    assign(openAtLogin_, Preferences::openAtLogin, enabled);
}

void SettingsStore::setMenuBarMode(bool enabled) {
    assign(menuBarMode_, Preferences::menuBarMode, enabled);
}

void SettingsStore::setAddToPhotos(bool enabled) {
    assign(addToPhotos_, Preferences::addToPhotos, enabled);
}

void SettingsStore::setGroupIntoAlbum(bool enabled) {
    assign(groupIntoAlbum_, Preferences::groupIntoAlbum, enabled);
}

// By defaults of its own, which look at the file anew when it has changed.
QString SettingsStore::serviceAddress() const {
    return Preferences::read(UserDefaults(), Preferences::serviceAddress);
}

void SettingsStore::setServiceAddress(const QString &address) {
    const auto &preference = Preferences::serviceAddress;
    const bool isStandard = address == preference.standard;
    Preferences::write(defaults_, preference.key, isStandard ? std::nullopt : std::optional(address));
    if (serviceAddress() != address) { // the system-wide file has another one
        Preferences::write(defaults_, preference.key, address);
    }
    Q_EMIT changed();
}

void SettingsStore::setAPIKey(const QString &key) {
    const QString trimmed = trimmedOfWhiteSpace(key);
    storedKey_.write(trimmed);
    storedKey_.wait(promptAnswer);
    isAPIKeySet_ = !trimmed.isEmpty();
    Q_EMIT changed();
    if (*isAPIKeySet_) {
        Q_EMIT apiKeySaved();
    }
}

bool SettingsStore::finishStoringAPIKey() {
    return storedKey_.finish(StoredKey::longestEnd);
}

} // namespace fennick
