#pragma once

#include <QString>

#include <optional>

namespace fennick {

class UserDefaults;

// An entry of the user's preferences file.
template <typename Value>
struct Preference {
    QString key;
    Value standard; // while the file has no value of this type
};

// All of them. The optional ones are folder paths as the user chose them.
namespace Preferences {

using namespace Qt::StringLiterals;

inline const Preference<std::optional<QString>> watchFolder{u"watchFolder"_s, std::nullopt};
inline const Preference<std::optional<QString>> archiveFolder{u"archiveFolder"_s, std::nullopt};
inline const Preference<QString> model{u"model"_s, u"gemini-2.5-flash"_s};
inline const Preference<bool> openAtLogin{u"openAtLogin"_s, false};
inline const Preference<bool> menuBarMode{u"menuBarMode"_s, false};
inline const Preference<bool> addToPhotos{u"addToPhotos"_s, true};
inline const Preference<bool> groupIntoAlbum{u"groupIntoAlbum"_s, true};

// The extraction service: scheme, host and optional port, or what stands for the engine on this computer. The
// program writes no other address than these two, and whatever stood there before.
inline const Preference<QString> serviceAddress{u"geminiEndpoint"_s,
                                                u"https://generativelanguage.googleapis.com"_s};

// An entry of the system-wide file counts where the user's has none.
[[nodiscard]] std::optional<QString> read(const UserDefaults &defaults,
                                          const Preference<std::optional<QString>> &preference);
QString read(const UserDefaults &defaults, const Preference<QString> &preference);

// A switch that is off by default also understands texts like "YES"; one that is on by default is on for
// everything that is not a boolean.
bool read(const UserDefaults &defaults, const Preference<bool> &preference);

// These are on disk when they return. An absent value removes the entry.
void write(UserDefaults &defaults, const QString &key, const std::optional<QString> &value);
void write(UserDefaults &defaults, const QString &key, const QString &value);
void write(UserDefaults &defaults, const QString &key, bool value);

} // namespace Preferences

} // namespace fennick
