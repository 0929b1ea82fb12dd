#pragma once

#include <QtGlobal>

#include <chrono>
#include <optional>

class QProcess;

namespace fennick {

// What a child may use before the system refuses or ends it.
struct ChildLimits {
    qint64 memory; // bytes of its own data
    std::chrono::seconds processorTime;
};

// To be called before the start: lets the system end the child when this program ends, however it ends, and
// hold it to the limits. The child gets `descriptor`, if there is one, under the same number.
void endWithThisProgram(QProcess &child, const std::optional<ChildLimits> &limits = {},
                        const std::optional<int> &descriptor = {});

} // namespace fennick
