#pragma once

#include <QString>

namespace fennick {

// Whether the file system answers when it is asked for `path`, within a second, and be it that nothing is
// there. On an unreachable network, whoever asks waits for ever; the thread that asked is then left behind.
// To be called by a thread that must not wait, before it uses files in a folder of the user's. Any thread.
[[nodiscard]] bool fileSystemAnswers(const QString &path);

} // namespace fennick
