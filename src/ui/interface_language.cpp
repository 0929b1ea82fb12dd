#include "ui/interface_language.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString translationOf(const QString &language) {
    return u":/translations/fennick_%1.qm"_s.arg(language);
}

// "C" and "POSIX" request untranslated texts.
bool wantsTextsAsWritten(const QString &name) {
    return name == u"C" || name == u"POSIX" || QLocale(name).language() == QLocale::English;
}

} // namespace

InterfaceLanguage::InterfaceLanguage(const QStringList &userLanguages) {
    const auto language = chosen(userLanguages);
    if (!language || !own_.load(translationOf(*language))) {
        return;
    }
    // Before our own, which is looked at first then. Systems may be without it: its few texts are English
    // there.
    if (library_.load(u"qtbase_"_s + *language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&library_);
    }
    QCoreApplication::installTranslator(&own_);
}

// Not left to QTranslator::load(QLocale, ...): it finds no translation into English and would go on to the
// next language of somebody who prefers English.
std::optional<QString> InterfaceLanguage::chosen(const QStringList &userLanguages) {
    for (const QString &name : userLanguages) {
        if (wantsTextsAsWritten(name)) {
            return std::nullopt;
        }
        QString language = QLocale::languageToCode(QLocale(name).language());
        if (QFile::exists(translationOf(language))) {
            return language;
        }
    }
    return std::nullopt;
}

} // namespace fennick
