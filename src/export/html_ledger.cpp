#include "export/export_service.h"
#include "export/ledger_texts.h"
#include "export/line_buffer.h"
#include "text/characters.h"

namespace fennick::ExportService {

namespace {

// For the reserved memory alone; a longer text makes it grow.
constexpr qsizetype typicalRowLength = 400;

// The page's fixed pieces. Between them stand, in this order: the moment, the moment again with the number of
// receipts, the rows, the total.
constexpr QStringView upToTitle = uR"(<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Receipts — )";

constexpr QStringView upToMoment = uR"(</title>
<style>
  :root { color-scheme: light dark; }
  body { font-family: -apple-system, BlinkMacSystemFont, "SF Pro Text", system-ui, sans-serif; margin: 32px; color: #1d1d1f; background: #fff; }
  @media (prefers-color-scheme: dark) { body { background: #1d1d1f; color: #f5f5f7; } }
  h1 { font-size: 22px; margin: 0 0 4px; }
  .meta { color: #86868b; font-size: 13px; margin-bottom: 24px; }
  table { width: 100%; border-collapse: collapse; font-size: 13px; }
  th, td { text-align: left; padding: 8px 10px; border-bottom: 1px solid rgba(127,127,127,0.2); vertical-align: top; }
  th { font-weight: 600; color: #86868b; text-transform: uppercase; font-size: 11px; letter-spacing: 0.04em; }
  td.num { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
  td.file { color: #86868b; font-size: 12px; }
  tr:hover td { background: rgba(127,127,127,0.06); }
  .total { margin-top: 16px; font-size: 14px; font-weight: 600; }
</style>
</head>
<body>
  <h1>Receipts</h1>
  <div class="meta">Exported )";

constexpr QStringView upToRows = uR"(</div>
  <table>
    <thead>
      <tr>
        <th>Date</th><th>Time</th><th>Amount</th><th>Location</th><th>Category</th><th>Summary</th><th>File</th>
      </tr>
    </thead>
    <tbody>
)";

constexpr QStringView upToTotal = uR"(
    </tbody>
  </table>
  <div class="total">Total: )";

constexpr QStringView upToEnd = uR"(</div>
</body>
</html>
)";

// The apostrophe stays: no text stands in an attribute.
QStringView entityOf(QChar character) {
    switch (character.unicode()) {
    case u'&':
        return u"&amp;";
    case u'<':
        return u"&lt;";
    case u'>':
        return u"&gt;";
    case u'"':
        return u"&quot;";
    default:
        return {};
    }
}

// Each character is looked at once, so an entity in the text is escaped like any other text.
template <typename Text>
void appendEscaped(Text &html, QStringView text) {
    qsizetype copied = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QStringView entity = entityOf(text[index]);
        if (!entity.isEmpty()) {
            html.append(text.sliced(copied, index - copied)).append(entity);
            copied = index + 1;
        }
    }
    html.append(text.sliced(copied));
}

void appendCell(LineBuffer &row, QStringView openingTag, QStringView text) {
    row.append(u"        ").append(openingTag);
    appendEscaped(row, text);
    row.append(u"</td>\n");
}

QStringView textOrDash(const std::optional<QString> &text) {
    return text ? QStringView(*text) : missing;
}

void appendRow(LineBuffer &row, const Receipt &receipt, AmountFormatter &formatter) {
    row.append(u"      <tr>\n");
    appendCell(row, u"<td>", textOrDash(receipt.date));
    appendCell(row, u"<td>", textOrDash(receipt.time));
    appendCell(row, uR"(<td class="num">)", formatAmount(receipt.amount, receipt.currency, formatter));
    appendCell(row, u"<td>", textOrDash(receipt.location));
    appendCell(row, u"<td>", receipt.category);
    appendCell(row, u"<td>", receipt.summary);
    appendCell(row, uR"(<td class="file">)", receipt.fileName);
    row.append(u"      </tr>");
}

void appendRows(QString &html, const QList<Receipt> &receipts) {
    AmountFormatter formatter(FractionDigits::two);
    LineBuffer row;
    bool isFirst = true;
    for (const Receipt &receipt : receipts) {
        if (!isFirst) {
            row.append(u'\n');
        }
        isFirst = false;
        appendRow(row, receipt, formatter);
        html.append(row.text());
        row.clear();
    }
}

// One plain number over all currencies and states. That is intended: the page is a reading copy, and what the
// number is of can be seen in the rows.
double total(const QList<Receipt> &receipts) {
    double sum = 0;
    for (const Receipt &receipt : receipts) {
        sum += receipt.amount.value_or(0);
    }
    return sum;
}

} // namespace

QString buildHTML(const QList<Receipt> &receipts) {
    const QString moment = longDateTime();
    QString html;
    html.reserve(upToMoment.size() + (receipts.size() + 5) * typicalRowLength);
    html.append(upToTitle);
    appendEscaped(html, moment);
    html.append(upToMoment);
    appendEscaped(html, moment);
    html.append(u" · ").append(QString::number(receipts.size()));
    html.append(receipts.size() == 1 ? u" receipt" : u" receipts");
    html.append(upToRows);
    appendRows(html, receipts);
    html.append(upToTotal);
    appendEscaped(html, trimNumber(total(receipts)));
    html.append(upToEnd);
    return wellFormed(html);
}

} // namespace fennick::ExportService
