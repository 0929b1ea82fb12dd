#include "reporting/report_description.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

const QString languageKey = u"language"_s;
const QString titleKey = u"title"_s;
const QString subtitlesKey = u"subtitles"_s;
const QString columnsKey = u"columns"_s;
const QString rowsKey = u"rows"_s;
const QString pathKey = u"path"_s;
const QString cellsKey = u"cells"_s;
const QString lineKey = u"line"_s;
const QString totalsHeadingKey = u"totalsHeading"_s;
const QString totalsKey = u"totals"_s;
const QString nameKey = u"name"_s;
const QString amountKey = u"amount"_s;
const QString partsKey = u"parts"_s;
const QString folderKey = u"folder"_s;
const QString csvNameKey = u"csvName"_s;
const QString csvKey = u"csv"_s;
const QString cannotOpenKey = u"cannotOpen"_s;
const QString problemsKey = u"problems"_s;

QStringList textsOf(const QJsonValue &value) {
    QStringList texts;
    const QJsonArray array = value.toArray();
    for (const auto &text : array) {
        texts.append(text.toString());
    }
    return texts;
}

QJsonObject encodedLine(const ReportTotal::Line &line) {
    return {{nameKey, line.name}, {amountKey, line.amount}};
}

ReportTotal::Line decodedLine(const QJsonObject &object) {
    return {.name = object.value(nameKey).toString(), .amount = object.value(amountKey).toString()};
}

QJsonObject encodedTotal(const ReportTotal &total) {
    QJsonObject object = encodedLine(total.total);
    QJsonArray parts;
    for (const ReportTotal::Line &part : total.parts) {
        parts.append(encodedLine(part));
    }
    object.insert(partsKey, parts);
    return object;
}

ReportTotal decodedTotal(const QJsonObject &object) {
    ReportTotal total{.total = decodedLine(object), .parts = {}};
    const QJsonArray parts = object.value(partsKey).toArray();
    for (const auto &part : parts) {
        total.parts.append(decodedLine(part.toObject()));
    }
    return total;
}

QJsonObject encodedRow(const ReportRow &row) {
    return {{pathKey, row.filePath}, {cellsKey, QJsonArray::fromStringList(row.cells)}, {lineKey, row.line}};
}

ReportRow decodedRow(const QJsonObject &object) {
    return {.filePath = object.value(pathKey).toString(),
            .cells = textsOf(object.value(cellsKey)),
            .line = object.value(lineKey).toString()};
}

QJsonObject encodedProblems(const QHash<QString, QString> &problems) {
    QJsonObject object;
    for (const auto &[key, text] : problems.asKeyValueRange()) {
        object.insert(key, text);
    }
    return object;
}

bool isComplete(const ReportDescription &description) {
    return !description.columns.isEmpty() && std::ranges::all_of(description.rows, [&](const ReportRow &row) {
        return row.cells.size() == description.columns.size();
    });
}

} // namespace

QByteArray encodeDescription(const ReportDescription &description) {
    QJsonArray rows;
    for (const ReportRow &row : description.rows) {
        rows.append(encodedRow(row));
    }
    QJsonArray totals;
    for (const ReportTotal &total : description.totals) {
        totals.append(encodedTotal(total));
    }
    const QJsonObject object{{languageKey, description.language},
                             {titleKey, description.title},
                             {subtitlesKey, QJsonArray::fromStringList(description.subtitles)},
                             {columnsKey, QJsonArray::fromStringList(description.columns)},
                             {rowsKey, rows},
                             {totalsHeadingKey, description.totalsHeading},
                             {totalsKey, totals},
                             {folderKey, description.folder},
                             {csvNameKey, description.csvName},
                             {csvKey, description.csv},
                             {cannotOpenKey, description.cannotOpen},
                             {problemsKey, encodedProblems(description.problems)}};
    const QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    return QByteArray::number(json.size()) + '\n' + json;
}

std::optional<ReportDescription> decodeDescription(const QByteArray &json) {
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    ReportDescription description{.language = object.value(languageKey).toString(),
                                  .title = object.value(titleKey).toString(),
                                  .subtitles = textsOf(object.value(subtitlesKey)),
                                  .columns = textsOf(object.value(columnsKey)),
                                  .rows = {},
                                  .totalsHeading = object.value(totalsHeadingKey).toString(),
                                  .totals = {},
                                  .folder = object.value(folderKey).toString(),
                                  .csvName = object.value(csvNameKey).toString(),
                                  .csv = object.value(csvKey).toString(),
                                  .cannotOpen = object.value(cannotOpenKey).toString(),
                                  .problems = {}};
    const QJsonArray rows = object.value(rowsKey).toArray();
    for (const auto &row : rows) {
        description.rows.append(decodedRow(row.toObject()));
    }
    const QJsonArray totals = object.value(totalsKey).toArray();
    for (const auto &total : totals) {
        description.totals.append(decodedTotal(total.toObject()));
    }
    const QJsonObject problems = object.value(problemsKey).toObject();
    for (auto problem = problems.begin(); problem != problems.end(); ++problem) {
        description.problems.insert(problem.key(), problem.value().toString());
    }
    return isComplete(description) ? std::optional(std::move(description)) : std::nullopt;
}

} // namespace fennick
