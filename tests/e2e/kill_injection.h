#pragma once

#include "support/conditions.h"

#include <QProcess>
#include <QString>
#include <QStringList>

namespace fennick::test {

using namespace Qt::StringLiterals;

// Whether strace is there and may be used.
inline bool canInjectKills() {
    QProcess strace;
    strace.start(u"strace"_s, {u"-qq"_s, u"-o"_s, u"/dev/null"_s, u"true"_s});
    return strace.waitForFinished(patience) && strace.exitStatus() == QProcess::NormalExit &&
           strace.exitCode() == 0;
}

// The command that becomes a program which is killed right before one of its threads makes one of the system
// calls for the `number`th time; `calls` as in "rename,renameat2".
inline QStringList killedRightBefore(const QString &calls, int number) {
    return {u"strace"_s,
            u"-D"_s, // the tracer is the child, not the program
            u"-f"_s,     u"-qq"_s,
            u"-o"_s,     u"/dev/null"_s,
            u"-e"_s,     u"trace="_s + calls,
            u"-e"_s,     u"inject=%1:signal=SIGKILL:when=%2"_s.arg(calls).arg(number)};
}

} // namespace fennick::test
