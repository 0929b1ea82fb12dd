#include "ui/summary/spending_model.h"

#include "text/characters.h"
#include "text/display_text.h"

#include <QDate>
#include <QFont>
#include <QLocale>
#include <QPixmap>

#include <algorithm>
#include <array>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Distinct even to those who cannot see red or green (Okabe and Ito, 2008), on light and dark.
constexpr std::array<QRgb, 8> categoryColours{0xff0072b2, 0xffe69f00, 0xff009e73, 0xffcc79a7,
                                              0xff56b4e9, 0xffd55e00, 0xffb8a800, 0xff7f7f7f};

// The rarest categories share the last colour.
QColor colourOf(qsizetype category) {
    return QColor::fromRgb(categoryColours.at(
        static_cast<std::size_t>(std::min<qsizetype>(category, categoryColours.size() - 1))));
}

QPixmap legendOf(const QColor &colour) {
    constexpr int legendSize = 10;
    QPixmap legend(legendSize, legendSize);
    legend.fill(colour);
    return legend;
}

} // namespace

void SpendingModel::show(const Spending &spending) {
    beginResetModel();
    spending_ = spending;
    endResetModel();
}

QList<SpendingModel::Segment> SpendingModel::segments(int row) const {
    QList<Segment> segments;
    double most = 0;
    for (const Spending::Month &month : spending_.months) {
        most = std::max(most, month.sum.total);
    }
    if (isWhole(row) || most <= 0) {
        return segments;
    }
    for (qsizetype category = 0; category < spending_.categories.size(); ++category) {
        const double amount = sumOf(row).byCategory.value(spending_.categories.at(category));
        if (amount > 0) {
            segments.append({amount / most, colourOf(category)});
        }
    }
    return segments;
}

int SpendingModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() || spending_.months.isEmpty() ? 0 : static_cast<int>(spending_.months.size()) + 1;
}

int SpendingModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : firstCategoryColumn + static_cast<int>(spending_.categories.size());
}

QVariant SpendingModel::data(const QModelIndex &index, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return cellText(index);
    case Qt::TextAlignmentRole:
        return index.column() >= totalColumn ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::FontRole:
        if (isWhole(index.row())) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant SpendingModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::DecorationRole && section >= firstCategoryColumn) {
        return legendOf(colourOf(section - firstCategoryColumn));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case monthColumn:
        return tr("Month");
    case barColumn:
        return QString();
    case totalColumn:
        return tr("Total");
    default:
        return displayText(capitalised(spending_.categories.at(section - firstCategoryColumn)));
    }
}

const Spending::Sum &SpendingModel::sumOf(int row) const {
    return isWhole(row) ? spending_.whole : spending_.months.at(row).sum;
}

QString SpendingModel::monthText(int row) const {
    if (isWhole(row)) {
        return tr("All");
    }
    const QString &month = spending_.months.at(row).month;
    const QDate first = QDate::fromString(month + u"-01"_s, Qt::ISODate);
    //: Instead of a month, for receipts whose date is not known.
    return first.isValid() ? QLocale::system().toString(first, u"MMMM yyyy"_s) : tr("No date");
}

QString SpendingModel::amountText(double amount) const {
    const std::optional<QString> currency =
        spending_.currency.isEmpty() ? std::nullopt : std::optional(spending_.currency);
    return amounts_.text(amount, currency);
}

// A category that a month does not have stays empty, which shows better than many zeros.
QString SpendingModel::cellText(const QModelIndex &index) const {
    const Spending::Sum &sum = sumOf(index.row());
    switch (index.column()) {
    case monthColumn:
        return monthText(index.row());
    case barColumn:
        return {};
    case totalColumn:
        return amountText(sum.total);
    default:
        break;
    }
    const auto amount =
        sum.byCategory.constFind(spending_.categories.at(index.column() - firstCategoryColumn));
    return amount == sum.byCategory.constEnd() ? QString() : amountText(*amount);
}

} // namespace fennick
