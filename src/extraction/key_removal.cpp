#include "extraction/key_removal.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace fennick::GeminiClient {

namespace {

QString inJson(const QString &text) {
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(2, array.size() - 4)); // without brackets and quotes
}

} // namespace

QString withoutKey(QString text, const QString &key) {
    if (key.isEmpty()) {
        return text;
    }
    const QString json = inJson(key);
    QStringList spellings = {key, QString::fromLatin1(QUrl::toPercentEncoding(key)), json,
                             QString(json).replace(u'/', u"\\/"_s)};
    spellings.removeDuplicates(); // or what stands for the key would be looked through as well
    for (const QString &spelling : std::as_const(spellings)) {
        text.replace(spelling, u"[API key]"_s);
    }
    return text;
}

} // namespace fennick::GeminiClient
