#pragma once

#include <QString>

namespace fennick {

// The folder that is being watched, set by the intake. Other parts of the pipeline follow no link below it.
struct WatchedFolder {
    QString path; // clean; empty before the first watch
};

} // namespace fennick
