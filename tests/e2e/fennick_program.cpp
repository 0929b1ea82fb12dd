#include "fennick_program.h"

#include "support/conditions.h"

#include <QDir>
#include <QFile>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <utility>

namespace fennick::test {

QString FennickProgram::builtProgram() {
    return QStringLiteral(FENNICK_BIN_DIR "/fennick");
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
    struct stat folderStatus{};
    if (stat(QFile::encodeName(folder).constData(), &folderStatus) != 0) {
        return false;
    }
    const QByteArray inode = " ino:" + QByteArray::number(folderStatus.st_ino, 16) + ' ';
    const QDir descriptors(QStringLiteral("/proc/%1/fdinfo").arg(process_.processId()));
    const QStringList names = descriptors.entryList(QDir::Files);
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        QFile file(descriptors.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            return false;
        }
        const QByteArray description = file.readAll();
        return description.contains("inotify wd:") && description.contains(inode);
    });
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
