#pragma once

#include "support/conditions.h"

#include <QProcess>
#include <QString>
#include <QStringList>

namespace fennick::test {

// Whether strace is there and may be used.
inline bool canInjectKills() {
    QProcess strace;
    strace.start(QStringLiteral("strace"), {QStringLiteral("-qq"), QStringLiteral("-o"),
                                            QStringLiteral("/dev/null"), QStringLiteral("true")});
    return strace.waitForFinished(patience) && strace.exitStatus() == QProcess::NormalExit &&
           strace.exitCode() == 0;
}

// The command that becomes a program which is killed right before one of its threads makes one of the system
// calls for the `number`th time; `calls` as in "rename,renameat2".
inline QStringList killedRightBefore(const QString &calls, int number) {
    return {
        QStringLiteral("strace"),
        QStringLiteral("-D"), // the tracer is the child, not the program
        QStringLiteral("-f"),     QStringLiteral("-qq"),
        QStringLiteral("-o"),     QStringLiteral("/dev/null"),
        QStringLiteral("-e"),     QStringLiteral("trace=") + calls,
        QStringLiteral("-e"),     QStringLiteral("inject=%1:signal=SIGKILL:when=%2").arg(calls).arg(number)};
}

} // namespace fennick::test
