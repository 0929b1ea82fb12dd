#pragma once

#include "export/spending.h"
#include "text/currency_text.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QList>

namespace fennick {

// The spending in one currency as a table: a row for each month and one for all of them, with the total, its
// bar and a column for each category. Owned by the summary window; main thread.
class SpendingModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { monthColumn, barColumn, totalColumn, firstCategoryColumn };

    // A part of a row's bar.
    struct Segment {
        double share = 0; // of the widest bar
        QColor colour;
    };

    using QAbstractTableModel::QAbstractTableModel;

    void show(const Spending &spending);

    // The parts of a month's bar, from left to right; none for the row of all months.
    QList<Segment> segments(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool isWhole(int row) const { return row == spending_.months.size(); }
    const Spending::Sum &sumOf(int row) const;
    QString monthText(int row) const;
    QString amountText(double amount) const;
    QString cellText(const QModelIndex &index) const;

    Spending spending_;
    mutable AmountFormatter amounts_{FractionDigits::ofCurrency};
};

} // namespace fennick
