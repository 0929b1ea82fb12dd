// Any receipts, through both ledgers: each is read back field by field.
#include "export/export_service.h"
#include "fuzz/invariant.h"
#include "fuzz/made_up_receipt.h"
#include "text/characters.h"

#include <QStringList>

using namespace fennick;
using namespace fennick::ExportService;
using namespace Qt::StringLiterals;
using fuzz::require;

namespace {

// --- CSV

// Takes one field off the front (RFC 4180, but for the line ends), and the separator behind it.
QString takeField(QStringView &csv, QChar &separator) {
    const auto takeSeparator = [&] {
        require(!csv.isEmpty(), "the CSV ends with a line feed");
        separator = csv.front();
        csv = csv.sliced(1);
    };
    QString field;
    const bool isQuoted = csv.startsWith(u'"');
    for (qsizetype index = isQuoted ? 1 : 0; index < csv.size(); ++index) {
        const bool isQuote = csv[index] == u'"';
        if (isQuoted && isQuote && csv.mid(index + 1).startsWith(u'"')) {
            ++index;
        } else if (isQuoted ? isQuote : csv[index] == u',' || csv[index] == u'\n') {
            csv = csv.sliced(isQuoted ? index + 1 : index);
            takeSeparator();
            return field;
        }
        field.append(csv[index]);
    }
    require(false, "every field ends");
    return field;
}

QStringList takeLine(QStringView &csv) {
    QStringList fields;
    QChar separator = u',';
    while (separator == u',') {
        fields.append(takeField(csv, separator));
    }
    require(separator == u'\n', "a line ends with a line feed");
    return fields;
}

void checkCsv(const QList<Receipt> &receipts) {
    const QString csv = buildCSV(receipts);
    QStringView rest = csv;
    require(takeLine(rest).size() == 10, "ten columns have names");
    for (const Receipt &receipt : receipts) {
        const QStringList expected{receipt.date.value_or(QString()),
                                   receipt.time.value_or(QString()),
                                   receipt.amount ? trimNumber(*receipt.amount) : QString(),
                                   receipt.currency.value_or(QString()),
                                   receipt.location.value_or(QString()),
                                   receipt.category,
                                   receipt.summary,
                                   receipt.fileName,
                                   rawValue(receipt.status),
                                   receipt.scannedAt};
        const QStringList fields = takeLine(rest);
        require(fields.size() == expected.size(), "a line has ten fields");
        for (qsizetype index = 0; index < fields.size(); ++index) {
            require(fields[index] == wellFormed(expected[index]), "a field reads back as it was");
        }
    }
    require(rest.isEmpty(), "there is a line for each receipt");
}

// --- HTML

// `text` without its four entities; fails on anything else that a browser would not show as it stands.
QString shownText(QStringView html) {
    QString text = html.toString();
    require(!text.contains(u'<') && !text.contains(u'>') && !text.contains(u'"'), "a text has no markup");
    text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&quot;"_s, u"\""_s);
    const qsizetype entities = text.count(u"&amp;"_s);
    require(text.count(u'&') == entities, "every ampersand begins an entity");
    return text.replace(u"&amp;"_s, u"&"_s);
}

void take(QStringView &html, QStringView piece) {
    require(html.startsWith(piece), "the page has its fixed pieces");
    html = html.sliced(piece.size());
}

QString takeCell(QStringView &html, QStringView openingTag) {
    take(html, u"        ");
    take(html, openingTag);
    const qsizetype end = html.indexOf(u'<');
    require(end >= 0, "a cell ends");
    const QString text = shownText(html.first(end));
    html = html.sliced(end);
    take(html, u"</td>\n");
    return text;
}

void takeRow(QStringView &html, const Receipt &receipt) {
    const QString dash = u"—"_s;
    const auto takeText = [&html](const QString &expected, QStringView openingTag = u"<td>") {
        require(takeCell(html, openingTag) == wellFormed(expected), "a cell shows the receipt's text");
    };
    take(html, u"      <tr>\n");
    takeText(receipt.date.value_or(dash));
    takeText(receipt.time.value_or(dash));
    takeText(formatAmount(receipt.amount, receipt.currency), uR"(<td class="num">)");
    takeText(receipt.location.value_or(dash));
    takeText(receipt.category);
    takeText(receipt.summary);
    takeText(receipt.fileName, uR"(<td class="file">)");
    take(html, u"      </tr>");
}

void checkHtml(const QList<Receipt> &receipts) {
    const QString html = buildHTML(receipts);
    QStringView rest = QStringView(html).sliced(html.indexOf(u"<tbody>\n"_s));
    take(rest, u"<tbody>\n");
    for (qsizetype index = 0; index < receipts.size(); ++index) {
        if (index > 0) {
            take(rest, u"\n");
        }
        takeRow(rest, receipts[index]);
    }
    take(rest, u"\n    </tbody>\n  </table>\n  <div class=\"total\">Total: ");
    const qsizetype end = rest.indexOf(u'<');
    require(end > 0, "there is a total");
    rest = rest.sliced(end);
    take(rest, u"</div>\n</body>\n</html>\n");
    require(rest.isEmpty(), "nothing follows the page");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider input(data, size);
    QList<Receipt> receipts;
    while (input.remaining_bytes() > 0 && receipts.size() < 3) {
        receipts.append(fuzz::consumeReceipt(input));
    }
    checkCsv(receipts);
    checkHtml(receipts);
    return 0;
}
