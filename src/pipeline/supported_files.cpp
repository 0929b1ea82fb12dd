#include "pipeline/supported_files.h"

#include "text/characters.h"
#include "text/path_text.h"

#include <QSet>

namespace fennick {

using namespace Qt::StringLiterals;

bool isSupported(const QString &path) {
    static const QSet<QString> supportedExtensions = {u"pdf"_s,  u"png"_s,  u"jpg"_s,
                                                      u"jpeg"_s, u"heic"_s, u"webp"_s};
    return supportedExtensions.contains(lowerCased(pathExtension(path)));
}

} // namespace fennick
