#pragma once

#include <QSet>
#include <QString>

namespace fennick {

// Finds paths for files that are about to be moved: free ones, and no two of them alike.
class PlannedPaths {
public:
    // The path `name` in `folder`, or the first free one of "name (2)", "name (3)" ... It is planned then.
    QString take(const QString &folder, const QString &name);

    // No other file gets this path.
    void insert(const QString &path) { planned_.insert(path); }

private:
    bool isFree(const QString &path) const;

    QSet<QString> planned_;
};

} // namespace fennick
