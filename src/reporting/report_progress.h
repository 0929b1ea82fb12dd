#pragma once

#include <QByteArray>

#include <optional>

namespace fennick {

// One line of what the process that makes a report writes to its standard output.
struct ReportProgress {
    enum class Kind {
        receipt,   // this receipt, from 1, is next
        finishing, // all receipts are in the report
        complete,  // the whole report is written
        unwritten, // the file could not be written; nothing follows
    };

    Kind kind;
    int receipt = 0;
};

[[nodiscard]] QByteArray encodeProgress(const ReportProgress &progress);

// Nothing for any other line.
[[nodiscard]] std::optional<ReportProgress> decodeProgress(const QByteArray &line);

} // namespace fennick
