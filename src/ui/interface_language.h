#pragma once

#include <QString>
#include <QStringList>
#include <QTranslator>

#include <optional>

namespace fennick {

// The language of the windows: the program's own texts and those of the widget library. It leaves QLocale as
// it is: how numbers and money are written follows the user's formats, names of files and ledgers follow
// neither. Made once, on the main thread and before the first text; the texts are English again when it ends.
class InterfaceLanguage {
public:
    // Installs the translation for the user's languages, best first, as QLocale::uiLanguages() names them.
    explicit InterfaceLanguage(const QStringList &userLanguages);

    // The ISO 639-1 code of the first language that the windows can be in; nothing for English, in which the
    // texts are written and which is the last resort.
    [[nodiscard]] static std::optional<QString> chosen(const QStringList &userLanguages);

private:
    QTranslator own_;
    QTranslator library_;
};

} // namespace fennick
