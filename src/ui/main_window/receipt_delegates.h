#pragma once

#include <QStyledItemDelegate>
#include <QTimer>

namespace fennick {

// A text cell; if its text is cut off, the tool tip shows it whole. The table focuses whole rows, so cells do
// not show a focus of their own.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    // The tool tip of a cell whose text is cut off; empty if it is not.
    virtual QString cutOffTextToolTip(const QStyleOptionViewItem &option, const QModelIndex &index) const;

    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

    // For cells that draw their text themselves, with the style's position and colour.
    static void paintCellBackground(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index);
    static QRect textArea(const QStyleOptionViewItem &option);
    static QColor textColor(const QStyleOptionViewItem &option);
};

// A cell with a centred symbol, or text if the model has no symbol.
class SymbolDelegate : public CellDelegate {
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

// The status cell: a spinner while a receipt is processed, otherwise a symbol. The timer runs only while
// such a row is visible.
class StatusDelegate : public SymbolDelegate {
    Q_OBJECT

public:
    explicit StatusDelegate(QWidget *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    QWidget *view_;
    mutable QTimer turn_;
};

// The summary cell: the summary, with the file name in small secondary text below it.
class SummaryDelegate : public CellDelegate {
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

    // The height of both lines and the space between them in this font.
    static int rowHeight(const QFont &font);

protected:
    QString cutOffTextToolTip(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace fennick
