#include "pipeline/corrected_receipts.h"

#include "model/data_folder.h"
#include "text/path_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int schemaVersion = 1;
const QString schemaVersionKey = u"version"_s;
const QString correctedIdsKey = u"receipts"_s;

} // namespace

CorrectedReceipts::CorrectedReceipts()
    : file_(joinedPath(dataFolder(), u"corrected.json"_s)) {
    load();
}

void CorrectedReceipts::insert(const QString &id) {
    if (!ids_.contains(id)) {
        ids_.insert(id);
        save();
    }
}

void CorrectedReceipts::remove(const QString &id) {
    if (ids_.remove(id)) {
        save();
    }
}

// A file of a later version is not understood either: it is set aside, not overwritten.
void CorrectedReceipts::load() {
    const QJsonObject content = QJsonDocument::fromJson(file_.content()).object();
    const QJsonValue ids = content.value(correctedIdsKey);
    if (content.value(schemaVersionKey).toInt() != schemaVersion || !ids.isArray()) {
        file_.setDamaged();
        return;
    }
    const QJsonArray array = ids.toArray();
    for (const QJsonValueConstRef id : array) {
        ids_.insert(id.toString());
    }
}

// A failure is not reported: the list, which is saved next, fails for the same reason and says so.
void CorrectedReceipts::save() {
    const QJsonObject content{
        {schemaVersionKey, schemaVersion},
        {correctedIdsKey, QJsonArray::fromStringList(QStringList(ids_.cbegin(), ids_.cend()))}};
    std::ignore = file_.rewrite(QJsonDocument(content).toJson(QJsonDocument::Compact));
}

} // namespace fennick
