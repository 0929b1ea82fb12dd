#include "fennick_program.h"

#include "support/conditions.h"
#include "support/process_status.h"

#include <linux/capability.h>
#include <sys/prctl.h>

#include <csignal>
#include <utility>

namespace fennick::test {

QString FennickProgram::builtProgram() {
    return QString::fromUtf8(FENNICK_BIN_DIR "/fennick");
}

FennickProgram::FennickProgram(QString program)
    : program_(std::move(program)) {
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.setChildProcessModifier([] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
    });
}

FennickProgram::~FennickProgram() {
    kill();
}

void FennickProgram::start(const QProcessEnvironment &environment, const QStringList &wrapper) {
    earlierOutput_ += process_.readAll(); // which a new start would discard
    process_.setProcessEnvironment(environment);
    const QStringList command = wrapper + QStringList{program_};
    process_.setProgram(command.first());
    process_.setArguments(command.mid(1));
    process_.start();
    if (!process_.waitForStarted(patience)) {
        qFatal("%s: %s", qPrintable(process_.program()), qPrintable(process_.errorString()));
    }
}

bool FennickProgram::isWatching(const QString &folder) const {
    return isWatchingFolder(process_.processId(), folder);
}

bool FennickProgram::terminate() {
    process_.terminate();
    return waitUntil([this] { return !isRunning(); });
}

void FennickProgram::kill() {
    if (isRunning()) {
        process_.kill();
        process_.waitForFinished(patience);
    }
}

bool FennickProgram::endsWithSuccess(int milliseconds) {
    return waitUntil([this] { return !isRunning(); }, milliseconds) &&
           process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
}

QByteArray FennickProgram::takeOutput() {
    return std::exchange(earlierOutput_, {}) + process_.readAll();
}

} // namespace fennick::test
