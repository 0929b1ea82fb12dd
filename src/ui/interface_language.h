#pragma once

#include <QString>
#include <QStringList>
#include <QTranslator>

#include <optional>

namespace fennick {

// The language of the windows: the program's own texts and those of the widget library. Does not change
// QLocale: numbers and money follow the user's formats, file names and ledgers follow neither. Create one on
// the main thread before the first text is shown; its destruction switches back to English.
class InterfaceLanguage {
public:
    // Installs the translation for the user's languages, in order of preference as in
    // QLocale::uiLanguages().
    explicit InterfaceLanguage(const QStringList &userLanguages);

    // The ISO 639-1 code of the first language that has a translation. Absent for English, the language of
    // the source texts and the last resort.
    [[nodiscard]] static std::optional<QString> chosen(const QStringList &userLanguages);

private:
    QTranslator own_;
    QTranslator library_;
};

} // namespace fennick
