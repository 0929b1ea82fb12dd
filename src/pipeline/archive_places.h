#pragma once

#include <QStringList>

namespace fennick {

// Where archives lie at one moment: nothing is taken in there. A value that any thread may ask.
struct ArchivePlaces {
    QString configured; // the clean path of the settings; empty without one
    QStringList former; // clean paths of earlier settings: archives lie in their dated folders

    bool contains(const QString &path) const;
};

} // namespace fennick
