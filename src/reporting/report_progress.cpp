#include "reporting/report_progress.h"

namespace fennick {

namespace {

using Kind = ReportProgress::Kind;

constexpr QByteArrayView receiptStart = "receipt ";
constexpr QByteArrayView finishingLine = "finishing\n";
constexpr QByteArrayView completeLine = "complete\n";
constexpr QByteArrayView unwrittenLine = "unwritten\n";

} // namespace

QByteArray encodeProgress(const ReportProgress &progress) {
    switch (progress.kind) {
    case Kind::receipt:
        return receiptStart.toByteArray() + QByteArray::number(progress.receipt) + '\n';
    case Kind::finishing:
        return finishingLine.toByteArray();
    case Kind::complete:
        return completeLine.toByteArray();
    case Kind::unwritten:
        break;
    }
    return unwrittenLine.toByteArray();
}

std::optional<ReportProgress> decodeProgress(const QByteArray &line) {
    if (line == finishingLine) {
        return ReportProgress{.kind = Kind::finishing};
    }
    if (line == completeLine) {
        return ReportProgress{.kind = Kind::complete};
    }
    if (line == unwrittenLine) {
        return ReportProgress{.kind = Kind::unwritten};
    }
    if (!line.startsWith(receiptStart) || !line.endsWith('\n')) {
        return std::nullopt;
    }
    bool isNumber = false;
    const int receipt = line.sliced(receiptStart.size()).chopped(1).toInt(&isNumber);
    return isNumber && receipt > 0 ? std::optional(ReportProgress{.kind = Kind::receipt, .receipt = receipt})
                                   : std::nullopt;
}

} // namespace fennick
