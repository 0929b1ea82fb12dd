#include "platform/unreadable_names.h"

#include <QFile>
#include <QUtf8StringView>

#include <filesystem>

namespace fennick {

namespace fs = std::filesystem;

QStringList filesWithUnreadableNames(const QString &folder) {
    QStringList found;
    std::error_code error;
    constexpr auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(QFile::encodeName(folder).toStdString(), options, error), end;
         !error && entry != end; entry.increment(error)) {
        if (entry->path().filename().native().starts_with('.')) {
            entry.disable_recursion_pending();
            continue;
        }
        const std::string &path = entry->path().native();
        std::error_code vanished;
        if (!QUtf8StringView(path).isValidUtf8() &&
            entry->symlink_status(vanished).type() == fs::file_type::regular) {
            found.append(QString::fromUtf8(path));
        }
    }
    found.removeDuplicates();
    return found;
}

bool mayBeUnreadable(const QString &path) {
    return path.contains(QChar::ReplacementCharacter);
}

} // namespace fennick
