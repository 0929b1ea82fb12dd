#include "pipeline/former_archives.h"

#include "model/data_folder.h"
#include "pipeline/last_error.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int schemaVersion = 1;
const QString versionKey = u"version"_s;
const QString foldersKey = u"folders"_s;

QByteArray encodeFolders(const QStringList &folders) {
    return QJsonDocument(
               QJsonObject{{versionKey, schemaVersion}, {foldersKey, QJsonArray::fromStringList(folders)}})
        .toJson();
}

// Absent for anything that this version does not write.
std::optional<QStringList> decodeFolders(const QByteArray &json) {
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const QJsonValue list = object.value(foldersKey);
    if (object.value(versionKey) != schemaVersion || !list.isArray()) {
        return std::nullopt;
    }
    QStringList folders;
    const QJsonArray entries = list.toArray();
    for (const QJsonValue &entry : entries) {
        if (!entry.toString().startsWith(u'/')) {
            return std::nullopt;
        }
        folders.append(entry.toString());
    }
    return folders;
}

} // namespace

FormerArchives::FormerArchives(SettingsStore *settings, LastError *lastError)
    : settings_(settings)
    , lastError_(lastError)
    , file_(joinedPath(dataFolder(), u"archives.json"_s))
    , configured_(settings->archiveFolderPath()) {
    load();
    connect(settings, &SettingsStore::changed, this, &FormerArchives::followSettings);
}

void FormerArchives::load() {
    if (auto folders = decodeFolders(file_.content())) {
        folders_ = *std::move(folders);
    } else {
        file_.setDamaged(); // if there is one
    }
}

void FormerArchives::remember(const QString &folder) {
    const QString path = QDir::cleanPath(folder);
    const bool isKnown = folders_.contains(path);
    if (folder.isEmpty() || (isKnown && isSaved_)) {
        return;
    }
    if (!isKnown) {
        folders_.append(path);
    }
    const auto saved = file_.rewrite(encodeFolders(folders_));
    isSaved_ = saved.has_value();
    if (!saved) {
        lastError_->set(
            tr("The former archive folder could not be remembered: %1").arg(saved.error().description()));
    }
}

// The store emits before it writes: the former folder is on disk before the setting is.
void FormerArchives::followSettings() {
    const auto former = std::exchange(configured_, settings_->archiveFolderPath());
    if (former && former != configured_) {
        remember(*former);
    }
}

} // namespace fennick
