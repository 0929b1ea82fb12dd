#include "pipeline/ignored_dates.h"

#include "model/data_folder.h"
#include "model/receipt_store.h"
#include "text/path_text.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int ignoredDatesVersion = 1;
const QString ignoredDatesVersionKey = u"version"_s;
const QString ignoredDatesKey = u"dates"_s;

} // namespace

IgnoredDates::IgnoredDates(const ReceiptStore *store)
    : store_(store)
    , file_(joinedPath(dataFolder(), u"ignored-dates.json"_s)) {
    for (const QString &path : store->ignoredPaths()) {
        dates_.insert(path, QDateTime());
    }
    load();
    connect(store, &ReceiptStore::ignoredPathsChanged, this, &IgnoredDates::follow);
}

std::optional<QDateTime> IgnoredDates::date(const QString &path) const {
    const QDateTime date = dates_.value(path);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

// Of the paths that are still ignored.
void IgnoredDates::load() {
    const QJsonObject content = QJsonDocument::fromJson(file_.content()).object();
    const QJsonValue dates = content.value(ignoredDatesKey);
    if (content.value(ignoredDatesVersionKey).toInt() != ignoredDatesVersion || !dates.isObject()) {
        file_.setDamaged(); // if there is one
        return;
    }
    const QJsonObject entries = dates.toObject();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const auto known = dates_.find(entry.key());
        if (known != dates_.end()) {
            *known = QDateTime::fromString(entry.value().toString(), Qt::ISODate);
        }
    }
}

void IgnoredDates::follow() {
    const QSet<QString> &ignored = store_->ignoredPaths();
    dates_.removeIf([&ignored](const auto &entry) { return !ignored.contains(entry.key()); });
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (const QString &path : ignored) {
        if (!dates_.contains(path)) {
            dates_.insert(path, now);
        }
    }
    save();
}

// A failure is not reported: the ignored paths, which were saved before, failed for the same reason.
void IgnoredDates::save() {
    QJsonObject dates;
    for (auto entry = dates_.cbegin(); entry != dates_.cend(); ++entry) {
        if (entry->isValid()) {
            dates.insert(entry.key(), entry->toString(Qt::ISODate));
        }
    }
    const QJsonObject content{{ignoredDatesVersionKey, ignoredDatesVersion}, {ignoredDatesKey, dates}};
    std::ignore = file_.rewrite(QJsonDocument(content).toJson(QJsonDocument::Compact));
}

} // namespace fennick
