#include "platform/child_process.h"

#include <QProcess>

#include <sys/prctl.h>

#include <csignal>

namespace fennick {

void endWithThisProgram(QProcess &child) {
    child.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

} // namespace fennick
