#include "reporting/report_contents.h"

#include "export/export_service.h"
#include "export/report_totals.h"
#include "platform/file_problem.h"
#include "text/currency_text.h"
#include "text/display_text.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

const QString missing = u"—"_s;

QString translated(const char *text) {
    return QCoreApplication::translate("Report", text);
}

QString valueOrDash(const std::optional<QString> &value) {
    return value && !value->isEmpty() ? displayText(*value) : missing;
}

// From the first to the last day; empty if no receipt has a date.
QString periodOf(const QList<Receipt> &receipts) {
    QStringList dates;
    for (const Receipt &receipt : receipts) {
        if (receipt.date && !receipt.date->isEmpty()) {
            dates.append(displayText(*receipt.date));
        }
    }
    if (dates.isEmpty()) {
        return {};
    }
    const auto [first, last] = std::ranges::minmax_element(dates);
    return *first == *last ? *first : *first + u" – "_s + *last;
}

QStringList subtitlesOf(const QList<Receipt> &receipts, const QString &name) {
    const auto count = static_cast<int>(receipts.size());
    QStringList subtitles{displayText(name), periodOf(receipts),
                          count == 1 ? QCoreApplication::translate("Report", "1 receipt")
                                     : QCoreApplication::translate("Report", "%n receipts", nullptr, count)};
    subtitles.removeAll(QString());
    return subtitles;
}

// Otherwise a value in Arabic or Hebrew would change places with those behind it.
QString withinALine(const QString &value) {
    const QString shown = displayText(value);
    return shown.isRightToLeft() ? shown + QChar(0x200E) : shown;
}

ReportRow rowOf(const Receipt &receipt, int number, AmountFormatter &amounts) {
    const QString amount = receipt.amount ? amounts.text(*receipt.amount, receipt.currency) : missing;
    QStringList known{QCoreApplication::translate("Report", "No. %1").arg(number)};
    for (const auto &value : {receipt.date, receipt.location}) {
        if (value && !value->isEmpty()) {
            known.append(withinALine(*value));
        }
    }
    if (receipt.amount) {
        known.append(amount);
    }
    return {.filePath = receipt.filePath,
            .cells = {QString::number(number), valueOrDash(receipt.date), valueOrDash(receipt.location),
                      displayText(receipt.category), displayText(receipt.summary), amount},
            .line = known.join(u" · "_s)};
}

QList<ReportTotal> totalsOf(const QList<Receipt> &receipts, AmountFormatter &amounts) {
    QList<ReportTotal> totals;
    const QList<CurrencyTotal> sums = totalsByCurrency(receipts);
    for (const CurrencyTotal &sum : sums) {
        const QString name = sum.currency.isEmpty()
                                 ? translated(QT_TRANSLATE_NOOP("Report", "Without a currency"))
                                 : displayText(sum.currency);
        ReportTotal total{.total = {.name = name, .amount = amounts.text(sum.amount, sum.currency)},
                          .parts = {}};
        for (const CategoryTotal &part : sum.categories) {
            total.parts.append(
                {.name = displayText(part.category), .amount = amounts.text(part.amount, sum.currency)});
        }
        totals.append(total);
    }
    return totals;
}

QString ofFile(FileProblem::Kind kind) {
    return QCoreApplication::translate("FileProblem",
                                       FileProblem{kind, {}}.description().toUtf8().constData());
}

QHash<QString, QString> problemTexts() {
    using Kind = FileProblem::Kind;
    return {
        {u"locked"_s, translated(QT_TRANSLATE_NOOP("Report", "The document is protected by a password."))},
        {u"unreadable"_s, translated(QT_TRANSLATE_NOOP("Report", "The file is damaged or no receipt."))},
        {u"empty"_s, translated(QT_TRANSLATE_NOOP("Report", "The document has no pages."))},
        {u"too large"_s, translated(QT_TRANSLATE_NOOP(
                             "Report", "The document takes too much memory or has too many pages."))},
        {u"link"_s, translated(QT_TRANSLATE_NOOP("Report", "The file is a link."))},
        {u"not regular"_s, ofFile(Kind::notRegular)},
        {u"replaced"_s, translated(QT_TRANSLATE_NOOP("Report", "The file was changed while it was read."))},
        {u"large file"_s, ofFile(Kind::tooLarge)},
        {u"no answer"_s, ofFile(Kind::noAnswer)},
    };
}

} // namespace

ReportDescription describeReport(const QList<Receipt> &receipts, const QString &name, const QString &folder) {
    AmountFormatter amounts(FractionDigits::ofCurrency);
    ReportDescription description{
        //: The code of the language of this translation.
        .language = translated(QT_TRANSLATE_NOOP("Report", "en")),
        .title = translated(QT_TRANSLATE_NOOP("Report", "Receipts")),
        .subtitles = subtitlesOf(receipts, name),
        .columns = {translated(QT_TRANSLATE_NOOP("Report", "No.")),
                    translated(QT_TRANSLATE_NOOP("Report", "Date")),
                    translated(QT_TRANSLATE_NOOP("Report", "Place")),
                    translated(QT_TRANSLATE_NOOP("Report", "Category")),
                    translated(QT_TRANSLATE_NOOP("Report", "Summary")),
                    translated(QT_TRANSLATE_NOOP("Report", "Amount"))},
        .rows = {},
        .totalsHeading = translated(QT_TRANSLATE_NOOP("Report", "Totals")),
        .totals = totalsOf(receipts, amounts),
        .folder = folder,
        .csvName = ExportService::proposedFileName(ExportService::Format::csv),
        .csv = ExportService::buildCSV(receipts),
        .cannotOpen = translated(QT_TRANSLATE_NOOP("Report", "This receipt could not be opened.")),
        .problems = problemTexts()};
    int number = 0;
    for (const Receipt &receipt : receipts) {
        description.rows.append(rowOf(receipt, ++number, amounts));
    }
    return description;
}

} // namespace fennick
