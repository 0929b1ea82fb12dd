#include "conversion/conversion_report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

using Kind = ConverterError::Kind;

const QString pathsKey = u"paths"_s;
const QString errorKey = u"error"_s;
const QString payloadKey = u"payload"_s;

// In the order of ConverterError::Kind.
constexpr std::array<QLatin1StringView, 5> kindNames = {
    {"unsupported"_L1, "pdfLoad"_L1, "renderFailed"_L1, "encodeFailed"_L1, "platform"_L1}};

Kind kindNamed(const QString &name) {
    for (std::size_t index = 0; index < kindNames.size(); ++index) {
        if (name == kindNames.at(index)) {
            return static_cast<Kind>(index);
        }
    }
    return Kind::renderFailed;
}

} // namespace

QByteArray encodeReport(const std::expected<QStringList, ConverterError> &result) {
    QJsonObject report;
    if (result) {
        report.insert(pathsKey, QJsonArray::fromStringList(*result));
    } else {
        report.insert(errorKey, kindNames.at(static_cast<std::size_t>(result.error().kind)));
        report.insert(payloadKey, result.error().payload);
    }
    return QJsonDocument(report).toJson(QJsonDocument::Compact) + '\n';
}

std::expected<QStringList, ConverterError> decodeReport(const QByteArray &report) {
    const QJsonObject object = QJsonDocument::fromJson(report).object();
    if (!object.value(pathsKey).isArray()) {
        return std::unexpected(ConverterError{kindNamed(object.value(errorKey).toString()),
                                              object.value(payloadKey).toString()});
    }
    QStringList paths;
    const QJsonArray reported = object.value(pathsKey).toArray();
    for (const auto &path : reported) {
        paths.append(path.toString());
    }
    return paths;
}

} // namespace fennick
