#pragma once

#include <QByteArray>
#include <QMap>
#include <QObject>

class QHeaderView;

namespace fennick {

// The widths of the columns of receipts. The summary takes what the others leave; in a narrow window those
// whose width the user has not chosen give way, each down to its minimum. Owned by the table of receipts,
// whose head it arranges; main thread.
class ReceiptColumns : public QObject {
    Q_OBJECT

public:
    // `header` belongs to the table, which outlives this object, and has its columns already.
    ReceiptColumns(QHeaderView *header, QObject *parent);

    // Divides `width`, in pixels, among the columns. At their minima they may take more, and the table
    // scrolls.
    void fitInto(int width);

    // The widths that the user has chosen, and the ideal ones of columns that only give way at the moment.
    [[nodiscard]] QByteArray state();
    void restore(const QByteArray &state);

private:
    void fix();
    void takeChosenWidth(int column, int width);
    void fit();

    QHeaderView *header_;
    QMap<int, int> chosenWidths_; // by the user, of columns
    int width_ = 0;               // of the table's viewport
    bool isFitting_ = false;
};

} // namespace fennick
