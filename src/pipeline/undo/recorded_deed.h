#pragma once

#include "export/export_service.h"
#include "model/receipt_store.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace fennick {

// A receipt's file that an archive takes, or has taken, from one path to another.
struct MovedFile {
    QString receiptId;
    QString from;
    QString to;
    bool operator==(const MovedFile &other) const = default;
};

// That the list was cleared or archived, with everything that taking it back needs, also after a restart.
struct RecordedDeed {
    enum class Kind { clear, archive };

    QString id;
    Kind kind = Kind::clear;
    RemovedReceipts removed;
    bool isBeingUndone = false; // taking it back was begun and has not ended
    QString ledgerPath;         // from here on of an archive
    ExportService::Format format = ExportService::Format::csv;
    QList<MovedFile> files;
};

QSet<QString> receiptIds(const RecordedDeed &deed);

// The stored form. Reading accepts nothing that writing does not produce; the paths of the files are absolute
// then, without detours, but may lead anywhere.
QByteArray encodeDeeds(const QList<RecordedDeed> &deeds);
[[nodiscard]] std::optional<QList<RecordedDeed>> decodeDeeds(const QByteArray &json);

} // namespace fennick
