#include "pipeline/undo/renaming_journal.h"

#include "model/data_folder.h"
#include "text/path_text.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int renamingVersion = 1;
const QString renamingVersionKey = u"version"_s;
const QString renamedIdKey = u"receipt"_s;
const QString renamedFromKey = u"from"_s;
const QString renamedToKey = u"to"_s;

} // namespace

RenamingJournal::RenamingJournal()
    : file_(joinedPath(dataFolder(), u"renaming.json"_s)) {}

// Whatever the file says, nothing but a renaming within one folder follows from it.
std::optional<PendingRenaming> RenamingJournal::pending() const {
    const QJsonObject journal = QJsonDocument::fromJson(file_.content()).object();
    const PendingRenaming renaming{journal.value(renamedIdKey).toString(),
                                   journal.value(renamedFromKey).toString(),
                                   journal.value(renamedToKey).toString()};
    const bool isOneFolder = isLexicallyBelow(renaming.from, u"/"_s) &&
                             isLexicallyBelow(renaming.to, u"/"_s) &&
                             parentFolder(renaming.from) == parentFolder(renaming.to);
    if (journal.value(renamingVersionKey).toInt() != renamingVersion || !isOneFolder) {
        return std::nullopt;
    }
    return renaming;
}

void RenamingJournal::begin(const PendingRenaming &renaming) {
    const QJsonObject journal{{renamingVersionKey, renamingVersion},
                              {renamedIdKey, renaming.receiptId},
                              {renamedFromKey, renaming.from},
                              {renamedToKey, renaming.to}};
    // Without a journal the renaming goes on; only a crash in its middle would be noticed.
    std::ignore = file_.rewrite(QJsonDocument(journal).toJson());
}

void RenamingJournal::end() {
    file_.remove();
}

} // namespace fennick
