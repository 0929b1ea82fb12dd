#pragma once

#include <QObject>
#include <QTimer>

namespace fennick {

// Whether the watched folder is missing. A folder that is back within a second, as when another takes its
// place, was not missing. Owned by the intake; main thread.
class FolderPresence : public QObject {
    Q_OBJECT

public:
    FolderPresence();

    void set(bool isThere);
    bool isMissing() const { return isMissing_; }

Q_SIGNALS:
    void changed(bool isMissing);

private:
    void setMissing(bool isMissing);

    bool isMissing_ = false;
    QTimer patience_;
};

} // namespace fennick
