#pragma once

class QProcess;

namespace fennick {

// To be called before the start: lets the system end the child when this program ends, however it ends.
void endWithThisProgram(QProcess &child);

} // namespace fennick
