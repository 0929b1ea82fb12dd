#include "export/ledger_reader.h"

#include "export/ledger_texts.h"

#include <QLocale>
#include <QStringList>
#include <QXmlStreamReader>

namespace fennick::ExportService {

using namespace Qt::StringLiterals;

namespace {

// The fields of a text of comma-separated values, line by line (RFC 4180).
class CsvReader {
public:
    explicit CsvReader(const QString &text)
        : text_(text) {
        if (text_.startsWith(QChar::ByteOrderMark)) {
            place_ = 1;
        }
    }

    bool atEnd() const { return place_ >= text_.size(); }

    QStringList readLine() {
        QStringList fields;
        bool isLast = false;
        while (!isLast) {
            fields.append(isAt(u'"') ? quotedField() : plainField());
            isLast = !isAt(u',');
            ++place_;
        }
        if (place_ <= text_.size() && text_[place_ - 1] == u'\r' && isAt(u'\n')) {
            ++place_;
        }
        return fields;
    }

private:
    bool isAt(QChar character) const { return !atEnd() && text_[place_] == character; }

    QString plainField() {
        const qsizetype start = place_;
        while (!atEnd() && !isAt(u',') && !isAt(u'\n') && !isAt(u'\r')) {
            ++place_;
        }
        return text_.sliced(start, place_ - start);
    }

    // What follows the closing quote is taken as it stands.
    QString quotedField() {
        QString field;
        for (++place_; !atEnd(); ++place_) {
            if (isAt(u'"')) {
                ++place_;
                if (!isAt(u'"')) {
                    return field + plainField();
                }
            }
            field += text_[place_];
        }
        return field;
    }

    QString text_;
    qsizetype place_ = 0;
};

std::optional<double> plainNumber(const QString &text) {
    bool isNumber = false;
    const double number = QLocale::c().toDouble(text, &isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QList<LedgerRow> readCsv(const QString &ledger) {
    CsvReader reader(ledger);
    const QStringList names = reader.readLine();
    QList<LedgerRow> rows;
    while (!reader.atEnd()) {
        const QStringList fields = reader.readLine();
        const auto value = [&](const QString &name) {
            return fields.value(names.indexOf(name));
        };
        if (fields.size() == names.size()) {
            rows.append({.date = value(u"Date"_s),
                         .amount = plainNumber(value(u"Amount"_s)),
                         .currency = value(u"Currency"_s),
                         .amountText = {},
                         .location = value(u"Location"_s),
                         .category = value(u"Category"_s),
                         .fileName = value(u"File Name"_s)});
        }
    }
    return rows;
}

// Such amounts always have two decimals, whatever the locale's separators and digits are.
std::optional<double> shownNumber(const QString &text) {
    constexpr double hundred = 100;
    double digits = 0;
    bool isNumber = false;
    bool isNegative = false;
    for (const QChar character : text) {
        if (const int digit = character.digitValue(); digit >= 0) {
            digits = digits * 10 + digit;
            isNumber = true;
        }
        isNegative = isNegative || character == u'-' || character == u'\u2212';
    }
    return isNumber ? std::optional((isNegative ? -digits : digits) / hundred) : std::nullopt;
}

QString withoutDash(const QString &cell) {
    return cell == missing ? QString() : cell;
}

LedgerRow htmlRow(const QStringList &cells) {
    enum Column { date, time, amount, location, category, summary, file };
    return {.date = withoutDash(cells.value(date)),
            .amount = shownNumber(cells.value(amount)),
            .currency = {},
            .amountText = withoutDash(cells.value(amount)),
            .location = withoutDash(cells.value(location)),
            .category = cells.value(category),
            .fileName = cells.value(file)};
}

// The rows alone are well-formed XML.
QList<LedgerRow> readHtml(const QString &ledger) {
    const qsizetype start = ledger.indexOf(u"<tbody>"_s);
    if (start < 0) {
        return {};
    }
    QXmlStreamReader reader(ledger.sliced(start));
    QList<LedgerRow> rows;
    QStringList cells;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == u"td") {
            cells.append(reader.readElementText());
        } else if (reader.isEndElement() && reader.name() == u"tr") {
            rows.append(htmlRow(cells));
            cells.clear();
        } else if (reader.isEndElement() && reader.name() == u"tbody") {
            break;
        }
    }
    return rows;
}

} // namespace

QList<LedgerRow> readLedger(const QString &ledger, Format format) {
    return format == Format::csv ? readCsv(ledger) : readHtml(ledger);
}

} // namespace fennick::ExportService
