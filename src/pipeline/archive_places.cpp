#include "pipeline/archive_places.h"

#include "text/path_text.h"

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

bool isDateStamp(QStringView name) {
    static const QString pattern = u"dddd-dd-dd"_s; // d: a digit
    if (name.size() != pattern.size()) {
        return false;
    }
    for (qsizetype index = 0; index < name.size(); ++index) {
        const bool isDigit = name[index] >= u'0' && name[index] <= u'9';
        if (pattern[index] == u'd' ? !isDigit : name[index] != pattern[index]) {
            return false;
        }
    }
    return true;
}

// Whether it lies in a dated folder of `archive`: other files there may be new receipts.
bool isArchivedIn(const QString &archive, const QString &path) {
    const QString below = joinedPath(archive, QString());
    if (!path.startsWith(below)) {
        return false;
    }
    const qsizetype end = path.indexOf(u'/', below.size());
    return end > 0 && isDateStamp(QStringView(path).sliced(below.size(), end - below.size()));
}

} // namespace

bool ArchivePlaces::contains(const QString &path) const {
    if (path.contains(u"/Receipt Archive/")) {
        return true;
    }
    if (!configured.isEmpty() && path.startsWith(joinedPath(configured, QString()))) {
        return true;
    }
    return std::any_of(former.begin(), former.end(),
                       [&path](const QString &archive) { return isArchivedIn(archive, path); });
}

} // namespace fennick
