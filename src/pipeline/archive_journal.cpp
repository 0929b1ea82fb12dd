#include "pipeline/archive_journal.h"

#include "model/data_folder.h"
#include "text/path_text.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString ledgerKey = u"ledger"_s;
const QString formatKey = u"format"_s;

} // namespace

ArchiveJournal::ArchiveJournal()
    : file_(joinedPath(dataFolder(), u"archiving.json"_s)) {}

std::optional<PendingArchive> ArchiveJournal::pending() const {
    const QJsonObject journal = QJsonDocument::fromJson(file_.content()).object();
    const QString ledgerPath = journal.value(ledgerKey).toString();
    if (!ledgerPath.startsWith(u'/')) {
        return std::nullopt;
    }
    using ExportService::Format;
    const bool isHtml = journal.value(formatKey).toString() == ExportService::fileExtension(Format::html);
    return PendingArchive{ledgerPath, isHtml ? Format::html : Format::csv};
}

void ArchiveJournal::begin(const PendingArchive &archive) {
    const QJsonObject journal{{ledgerKey, archive.ledgerPath},
                              {formatKey, ExportService::fileExtension(archive.format)}};
    // Without a journal the archive goes on; only a crash in its middle would be noticed.
    std::ignore = file_.rewrite(QJsonDocument(journal).toJson());
}

void ArchiveJournal::end() {
    file_.remove();
}

} // namespace fennick
