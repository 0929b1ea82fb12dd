#include "engine/knowledge/brand_table.h"

#include "engine/knowledge/table_file.h"
#include "engine/knowledge/words.h"

#include <QMultiHash>

#include <utility>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

struct BrandTable {
    QMultiHash<QString, Brand> byWords;
    QHash<std::pair<QChar, qsizetype>, QStringList> byBeginning;
};

BrandTable loadedBrands() {
    BrandTable table;
    const QList<QStringList> rows = tableRows(u":/engine/brands.txt"_s);
    for (const QStringList &row : rows) {
        const QString words = withoutAccents(wordsOf(row.value(0))).trimmed();
        const QStringList countries = row.value(2) == u"*" ? QStringList() : row.value(2).split(u',');
        if (words.isEmpty()) {
            continue;
        }
        if (!table.byWords.contains(words)) {
            table.byBeginning[{words.front(), words.size()}].append(words);
        }
        table.byWords.insert(words, Brand{row.value(0), row.value(1), countries});
    }
    return table;
}

const BrandTable &brands() {
    static const BrandTable table = loadedBrands();
    return table;
}

QHash<QString, QString> loadedTaxNumbers() {
    QHash<QString, QString> numbers;
    const QList<QStringList> rows = tableRows(u":/engine/tax_numbers.txt"_s);
    for (const QStringList &row : rows) {
        numbers.insert(row.value(0), row.value(1));
    }
    return numbers;
}

} // namespace

QList<Brand> brandsNamed(const QString &words) {
    return brands().byWords.values(withoutAccents(words).trimmed());
}

const QStringList &brandNames(QChar first, qsizetype length) {
    static const QStringList none;
    const auto names = brands().byBeginning.constFind({first, length});
    return names == brands().byBeginning.cend() ? none : *names;
}

QString brandOfTaxNumber(const QString &number) {
    static const QHash<QString, QString> numbers = loadedTaxNumbers();
    return numbers.value(number);
}

} // namespace fennick::engine
