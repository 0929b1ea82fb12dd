#include "reporting/report_process.h"

#include "platform/child_process.h"
#include "platform/regular_file.h"
#include "reporting/report_description.h"
#include "reporting/report_progress.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

// The largest accepted picture takes most of it.
constexpr qint64 mostMemory = 1LL << 30;

constexpr std::chrono::seconds timeOfAReport{120};
constexpr std::chrono::seconds timeOfAReceipt{20};

QString textOf(const char *text) {
    return QCoreApplication::translate("Report", text);
}

} // namespace

ReportProcess::ReportProcess(QString program, QObject *parent)
    : QObject(parent)
    , program_(std::move(program)) {
    connect(&process_, &QProcess::readyReadStandardOutput, this, &ReportProcess::readProgress);
    connect(&process_, &QProcess::finished, this, &ReportProcess::finish);
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(textOf(QT_TRANSLATE_NOOP("Report", "The program that makes it could not be started: %1"))
                     .arg(process_.errorString()));
        }
    });
}

ReportProcess::~ReportProcess() {
    cancel();
}

void ReportProcess::start(const ReportDescription &description, const QString &path) {
    for (const ReportRow &row : description.rows) {
        lines_.append(row.line);
    }
    if (fileStateAt(path).kind == FileKind::link) {
        fail(textOf(QT_TRANSLATE_NOOP("Report", "There is a link of this name.")));
        return;
    }
    file_ = std::make_unique<QSaveFile>(path);
    if (!file_->open(QIODevice::WriteOnly)) {
        fail(file_->errorString());
        return;
    }
    const ChildLimits limits{.memory = mostMemory,
                             .processorTime = timeOfAReport + timeOfAReceipt * description.rows.size()};
    endWithThisProgram(process_, limits, file_->handle());
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(program_, {u"--descriptor=%1"_s.arg(file_->handle())});
    process_.write(encodeDescription(description));
}

void ReportProcess::cancel() {
    process_.disconnect(this);
    process_.kill();
    file_.reset();
}

void ReportProcess::readProgress() {
    while (process_.canReadLine()) {
        const auto progress = decodeProgress(process_.readLine());
        if (!progress) {
            continue;
        }
        switch (progress->kind) {
        case ReportProgress::Kind::receipt:
            receipt_ = progress->receipt;
            Q_EMIT progressed(receipt_ - 1);
            break;
        case ReportProgress::Kind::finishing:
            receipt_ = 0;
            Q_EMIT progressed(static_cast<int>(lines_.size()));
            break;
        case ReportProgress::Kind::complete:
            isComplete_ = true;
            break;
        case ReportProgress::Kind::unwritten:
            isUnwritten_ = true;
            break;
        }
    }
}

void ReportProcess::finish() {
    readProgress();
    const bool isWhole =
        isComplete_ && process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
    if (!isWhole) {
        fail(reasonOfTheEnd());
        return;
    }
    if (!file_->commit()) {
        fail(file_->errorString());
        return;
    }
    file_.reset();
    Q_EMIT saved();
}

QString ReportProcess::reasonOfTheEnd() const {
    if (isUnwritten_) {
        return textOf(QT_TRANSLATE_NOOP("Report", "The file could not be written. Is the disk full?"));
    }
    if (receipt_ < 1 || receipt_ > lines_.size()) {
        return textOf(QT_TRANSLATE_NOOP("Report", "The program that makes it ended unexpectedly."));
    }
    //: %1 is a receipt's number, date, place and amount.
    return textOf(QT_TRANSLATE_NOOP("Report",
                                    "The program that makes it ended unexpectedly at this receipt: %1"))
        .arg(lines_.at(receipt_ - 1));
}

void ReportProcess::fail(const QString &reason) {
    process_.disconnect(this);
    file_.reset(); // its temporary file goes
    Q_EMIT failed(reason);
}

} // namespace fennick
