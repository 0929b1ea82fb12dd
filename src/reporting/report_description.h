#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace fennick {

// One receipt of a report.
struct ReportRow {
    QString filePath;
    QStringList cells; // as many as ReportDescription::columns
    QString line;      // stands at the margin of the receipt's pages and in the bookmarks
};

struct ReportTotal {
    struct Line {
        QString name;
        QString amount;
    };
    Line total;
    QList<Line> parts;
};

// Everything that a report says, in the user's language: the process that makes it only lays it out and adds
// the receipts' pages.
struct ReportDescription {
    QString language; // BCP 47
    QString title;
    QStringList subtitles; // below the title
    QStringList columns;   // the last one holds amounts
    QList<ReportRow> rows;
    QString totalsHeading;
    QList<ReportTotal> totals;
    QString folder; // receipts below it are opened without following links
    QString csvName;
    QString csv;
    QString cannotOpen;               // on the page of a receipt that cannot be opened
    QHash<QString, QString> problems; // the reason, by its key
};

// The description as JSON behind a line with its size in bytes.
[[nodiscard]] QByteArray encodeDescription(const ReportDescription &description);

// The description whose JSON this is. Nothing if it is incomplete.
[[nodiscard]] std::optional<ReportDescription> decodeDescription(const QByteArray &json);

} // namespace fennick
