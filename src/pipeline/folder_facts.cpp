#include "pipeline/folder_facts.h"

#include "text/path_text.h"

#include <algorithm>

namespace fennick {

bool needsConsent(const FolderFacts &facts) {
    return facts.isWide || !facts.isCountComplete || facts.unreadFiles > mostFilesUnasked;
}

bool isOrContains(const QString &folder, const QStringList &places) {
    return std::any_of(places.begin(), places.end(), [&folder](const QString &place) {
        return place == folder || isLexicallyBelow(place, folder);
    });
}

} // namespace fennick
