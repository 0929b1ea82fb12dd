#include "platform/preferences_format.h"

#include <QMap>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

constexpr QStringView generalSection = u"General";

QString unescaped(QStringView text) {
    QString plain;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (text[index] != u'\\' || index + 1 == text.size()) {
            plain.append(text[index]);
            continue;
        }
        const QChar escape = text[++index];
        if (escape == u'n') {
            plain.append(u'\n');
        } else if (escape == u'r') {
            plain.append(u'\r');
        } else if (escape == u't') {
            plain.append(u'\t');
        } else if (escape == u'x') {
            qsizetype end = index + 1;
            while (end < text.size() && end < index + 5 &&
                   QStringView(u"0123456789abcdefABCDEF").contains(text[end])) {
                ++end;
            }
            plain.append(QChar(text.sliced(index + 1, end - index - 1).toUShort(nullptr, 16)));
            index = end - 1;
        } else {
            plain.append(escape);
        }
    }
    return plain;
}

QVariant valueFromText(QStringView text) {
    if (text == u"true" || text == u"false") {
        return text == u"true";
    }
    if (text.size() >= 2 && text.startsWith(u'"') && text.endsWith(u'"')) {
        return unescaped(text.sliced(1, text.size() - 2));
    }
    return unescaped(text);
}

bool isPlain(const QString &text) {
    const auto isPlainCharacter = [](QChar character) {
        return character.isLetterOrNumber() || QStringView(u"-_./:~@+ ()").contains(character);
    };
    return !text.isEmpty() && text == text.trimmed() && text != u"true" && text != u"false" &&
           std::all_of(text.begin(), text.end(), isPlainCharacter);
}

QString textFromValue(const QVariant &value) {
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool() ? u"true"_s : u"false"_s;
    }
    QString text = value.toString();
    if (isPlain(text)) {
        return text;
    }
    text.replace(u'\\', u"\\\\"_s)
        .replace(u'"', u"\\\""_s)
        .replace(u'\n', u"\\n"_s)
        .replace(u'\r', u"\\r"_s)
        .replace(u'\t', u"\\t"_s);
    return u'"' + text + u'"';
}

} // namespace

bool readPreferences(QIODevice &device, QSettings::SettingsMap &map) {
    QString section = generalSection.toString();
    const QStringList lines = QString::fromUtf8(device.readAll()).split(u'\n');
    for (const QString &rawLine : lines) {
        const QString line = rawLine.trimmed();
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            section = line.sliced(1, line.size() - 2);
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals <= 0 || line.startsWith(u';') || line.startsWith(u'#')) {
            continue;
        }
        const QString key = line.left(equals).trimmed();
        map.insert(section == generalSection ? key : section + u'/' + key,
                   valueFromText(QStringView(line).sliced(equals + 1).trimmed()));
    }
    return true;
}

bool writePreferences(QIODevice &device, const QSettings::SettingsMap &map) {
    QMap<QString, QStringList> sections;
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        const qsizetype slash = entry.key().indexOf(u'/');
        const QString section = slash < 0 ? generalSection.toString() : entry.key().left(slash);
        sections[section].append(entry.key().mid(slash + 1) + u'=' + textFromValue(entry.value()));
    }
    QString content;
    for (auto section = sections.begin(); section != sections.end(); ++section) {
        content += u'[' + section.key() + u"]\n"_s + section.value().join(u'\n') + u'\n';
    }
    return device.write(content.toUtf8()) >= 0;
}

QSettings::Format preferencesFormat() {
    // Registering again would add a second format of the same extension, hence once per process.
    static const QSettings::Format format =
        QSettings::registerFormat(u"conf"_s, readPreferences, writePreferences);
    return format;
}

} // namespace fennick
