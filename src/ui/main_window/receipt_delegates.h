#pragma once

#include <QStyledItemDelegate>
#include <QTimer>

namespace fennick {

// A cell of text. The table has its focus on whole rows, so that no cell shows a focus of its own.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

    // For cells that draw their text themselves, at the place and in the colour that the style would give it.
    static void paintCellBackground(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index);
    static QRect textArea(const QStyleOptionViewItem &option);
    static QColor textColor(const QStyleOptionViewItem &option);
};

// A cell that shows a symbol in its middle, or text where the model has no symbol.
class SymbolDelegate : public CellDelegate {
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

// The status cell: a turning indicator while a receipt is processed, else a symbol. The timer runs only while
// such a row is being painted.
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

// The summary cell: the summary, and under it the file's name in small secondary text.
class SummaryDelegate : public CellDelegate {
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

    // What two lines and the space between them take in this font.
    static int rowHeight(const QFont &font);
};

} // namespace fennick
