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

// Call this before the start: the system ends the child when this program ends, however it ends, and holds it
// to the limits. The child gets `descriptor`, if there is one, under the same number. Its standard input must
// stay open: not every system has a way to end a child, so a child calls endWithStandardInput as well.
void endWithThisProgram(QProcess &child, const std::optional<ChildLimits> &limits = {},
                        const std::optional<int> &descriptor = {});

// For a child: ends this process at once when its standard input closes, as it does when the parent ends.
// Nothing else may read from standard input afterwards.
void endWithStandardInput();

} // namespace fennick
