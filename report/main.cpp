#include "platform/allocator_tuning.h"
#include "platform/child_process.h"
#include "report/report_writer.h"
#include "reporting/report_description.h"
#include "reporting/report_progress.h"

#include <QFile>
#include <QGuiApplication>

#include <cstdio>
#include <exception>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Kind = fennick::ReportProgress::Kind;

// What follows it is the number of an open file.
const QString descriptorOption = u"--descriptor="_s;

// More than the ledger of any list.
constexpr qint64 largestDescription = 1LL << 29;

// Unbuffered, because the rest of the input belongs to endWithStandardInput().
std::optional<fennick::ReportDescription> readDescription() {
    constexpr int standardInput = 0;
    constexpr qsizetype mostDigits = 12;
    QFile input;
    if (!input.open(standardInput, QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return std::nullopt;
    }
    QByteArray digits;
    char next = 0;
    while (input.read(&next, 1) == 1 && next != '\n' && digits.size() < mostDigits) {
        digits += next;
    }
    const qint64 size = digits.toLongLong();
    if (size <= 0 || size > largestDescription) {
        return std::nullopt;
    }
    QByteArray json;
    while (json.size() < size) {
        const QByteArray piece = input.read(size - json.size());
        if (piece.isEmpty()) {
            return std::nullopt;
        }
        json += piece;
    }
    return fennick::decodeDescription(json);
}

void printProgress(const fennick::ReportProgress &progress) {
    const QByteArray line = fennick::encodeProgress(progress);
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

bool makeReport(const fennick::ReportDescription &description, QFile &output) {
    fennick::ReportWriter writer(&description, &output);
    return writer.write(printProgress) && output.flush();
}

} // namespace

// make_report --descriptor=NUMBER: makes the report that standard input describes and writes it to the open
// file of that number. It writes to standard output how far it is and ends when standard input closes.
int main(int argc, char **argv) {
    fennick::keepFreedMemory();
    qputenv("QT_QPA_PLATFORM", "offscreen"); // pages are drawn, windows are not
    const QGuiApplication application(argc, argv);
    const QString option = QGuiApplication::arguments().value(1);
    if (!option.startsWith(descriptorOption)) {
        std::fputs("usage: make_report --descriptor=NUMBER < DESCRIPTION\n", stderr);
        return 2;
    }
    QFile output;
    if (!output.open(option.sliced(descriptorOption.size()).toInt(), QIODevice::WriteOnly)) {
        return 2;
    }
    const auto description = readDescription();
    if (!description) {
        return 2;
    }
    fennick::endWithStandardInput();
    try {
        const bool isWritten = makeReport(*description, output);
        printProgress({.kind = isWritten ? Kind::complete : Kind::unwritten});
        return isWritten ? 0 : 1;
    } catch (const std::exception &) {
        return 1;
    }
}
