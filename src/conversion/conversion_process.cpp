#include "conversion/conversion_process.h"

#include "conversion/conversion_report.h"
#include "conversion/private_folder.h"
#include "platform/child_process.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QCoroSignal>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick::ConversionProcess {

namespace {

using Result = std::expected<QStringList, ConverterError>;

// The largest accepted picture takes 880 MB of it (documents/picture_limits).
constexpr qint64 mostMemory = 1LL << 30;

// Other programs use the processor too. This limit only ends a converter that waits for ever.
constexpr int wallTimePerProcessorTime = 5;

// The report may only name files in the folder that the converter was given.
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
        co_return std::unexpected(
            ConverterError{ConverterError::Kind::platform, folder.error().description()});
    }
    const std::stop_token neverStopped;
    co_return co_await convertInto(program, *folder, std::move(file), fileName, baseName, neverStopped,
                                   longestTime);
}

QCoro::Task<Result> convertInto(QString program, QString folder, std::shared_ptr<QFile> file,
                                QString fileName, QString baseName, std::stop_token stop,
                                std::chrono::seconds longestTime) {
    QProcess process;
    const int descriptor = file->handle();
    endWithThisProgram(process, ChildLimits{.memory = mostMemory, .processorTime = longestTime}, descriptor);
    process.setStandardErrorFile(QProcess::nullDevice());
    QTimer::singleShot(longestTime * wallTimePerProcessorTime, &process, &QProcess::kill);
    process.start(program, {u"--descriptor=%1"_s.arg(descriptor), fileName, folder, baseName});
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
