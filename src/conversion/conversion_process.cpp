#include "conversion/conversion_process.h"

#include "conversion/conversion_report.h"
#include "conversion/private_folder.h"
#include "platform/child_process.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QCoroSignal>
#include <QProcess>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick::ConversionProcess {

namespace {

using Result = std::expected<QStringList, ConverterError>;

constexpr qint64 mostMemory = 1LL << 30;

// Other programs use the processor too. This only ends what waits for something that does not come.
constexpr int wallTimePerProcessorTime = 5;

// Paths that the report names outside the folder it was given are none of its business.
Result trusted(Result result, const QString &folder) {
    if (result && !std::ranges::all_of(
                      *result, [&folder](const QString &path) { return parentFolder(path) == folder; })) {
        return std::unexpected(ConverterError{ConverterError::Kind::renderFailed, {}});
    }
    return result;
}

} // namespace

QCoro::Task<Result> convertToJPEGs(QString program, std::shared_ptr<QFile> file, QString fileName,
                                   QString baseName, std::chrono::seconds longestTime) {
    const auto folder = createPrivateFolder();
    if (!folder) {
        co_return std::unexpected(ConverterError{ConverterError::Kind::platform, folder.error()});
    }
    const std::stop_token neverStopped;
    co_return co_await convertInto(program, *folder, std::move(file), fileName, baseName, neverStopped,
                                   longestTime);
}

QCoro::Task<Result> convertInto(QString program, QString folder, std::shared_ptr<QFile> file,
                                QString fileName, QString baseName, std::stop_token stop,
                                std::chrono::seconds longestTime) {
    QProcess process;
    endWithThisProgram(process, ChildLimits{.memory = mostMemory, .processorTime = longestTime});
    process.setStandardErrorFile(QProcess::nullDevice());
    QTimer::singleShot(longestTime * wallTimePerProcessorTime, &process, &QProcess::kill);
    process.setStandardInputFile(reopeningPath(*file));
    process.start(program, {u"--standard-input"_s, fileName, folder, baseName}, QIODevice::ReadOnly);
    if (!process.waitForStarted()) {
        const QString reason =
            QCoreApplication::translate("ConverterError", "The converter could not be started: %1")
                .arg(process.errorString());
        co_return std::unexpected(ConverterError{ConverterError::Kind::platform, reason});
    }
    const auto kill = [&process] {
        process.kill();
    };
    const std::stop_callback whenStopped(stop, kill);
    if (process.state() != QProcess::NotRunning) {
        co_await qCoro(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished));
    }
    co_return trusted(decodeReport(process.readAllStandardOutput()), folder);
}

} // namespace fennick::ConversionProcess
