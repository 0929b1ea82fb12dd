#pragma once

#include <QString>

namespace fennick {

// Where archives lie at one moment: nothing is taken in there. A value that any thread may ask.
struct ArchivePlaces {
    QString configured; // the clean path of the settings; empty without one

    bool contains(const QString &path) const;
};

} // namespace fennick
