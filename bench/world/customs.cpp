#include "customs.h"

#include <QDir>
#include <QFile>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString countriesFolder = u":/world/countries"_s;
const QString languagesFolder = u":/world/languages"_s;

QStringList valuesOf(const QString &text) {
    QStringList values;
    for (const QString &value : text.split(u'|')) {
        values.append(value.trimmed());
    }
    return values;
}

// "key: value | value" in each line; one that begins with # is a comment.
std::expected<QHash<QString, QStringList>, QString> valuesIn(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::unexpected(u"cannot open %1"_s.arg(path));
    }
    QHash<QString, QStringList> values;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'#')) {
            continue;
        }
        const qsizetype colon = line.indexOf(u':');
        if (colon < 0) {
            return std::unexpected(u"%1: no key in \"%2\""_s.arg(path, line));
        }
        values.insert(line.first(colon).trimmed(), valuesOf(line.sliced(colon + 1)));
    }
    return values;
}

} // namespace

std::expected<Customs, QString> Customs::read(const QString &name) {
    const auto country = valuesIn(countriesFolder + u'/' + name + u".txt"_s);
    if (!country) {
        return std::unexpected(country.error());
    }
    const QString language = country->value(u"language"_s).value(0);
    auto values = valuesIn(languagesFolder + u'/' + language + u".txt"_s);
    if (!values) {
        return std::unexpected(values.error());
    }
    values->insert(*country);
    for (const QString &key : {u"currency"_s, u"amount"_s, u"total amount"_s, u"date"_s, u"time"_s,
                               u"total"_s, u"places"_s, u"streets"_s, u"held out"_s}) {
        if (!values->contains(key)) {
            return std::unexpected(u"%1 has no \"%2\""_s.arg(name, key));
        }
    }
    Customs customs;
    customs.m_name = name;
    customs.m_values = *values;
    return customs;
}

bool Customs::isHeldOut() const {
    return first(u"held out"_s) == u"yes";
}

double Customs::number(const QString &key, double otherwise) const {
    return has(key) ? first(key).toDouble() : otherwise;
}

QStringList customsNames() {
    QStringList names;
    for (const QString &file : QDir(countriesFolder).entryList(QDir::Files, QDir::Name)) {
        names.append(file.chopped(4));
    }
    return names;
}

} // namespace fennick
