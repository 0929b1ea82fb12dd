#include "ui/main_window/receipt_delegates.h"

#include "ui/main_window/receipts_table_model.h"
#include "ui/widgets/plain_tool_tip.h"
#include "ui/widgets/symbols.h"
#include "ui/widgets/text_style.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDateTime>
#include <QHelpEvent>
#include <QPainter>
#include <QTableView>
#include <QToolTip>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int turnInterval = 80; // milliseconds a step
constexpr int spokes = 8;
constexpr int indicatorSize = 14;
constexpr int lineSpacing = 2;
constexpr int verticalMargin = 6;

} // namespace

void CellDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
}

bool CellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                             const QModelIndex &index) {
    const QString wholeText = event->type() == QEvent::ToolTip ? cutOffTextToolTip(option, index) : QString();
    if (wholeText.isEmpty()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), wholeText, view->viewport(), option.rect);
    return true;
}

QString CellDelegate::cutOffTextToolTip(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const QString text = index.data().toString();
    const bool fits = QFontMetrics(option.font).horizontalAdvance(text) <= textArea(option).width();
    return fits ? QString() : plainToolTip(text);
}

void CellDelegate::paintCellBackground(QPainter *painter, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) {
    QStyleOptionViewItem background = option;
    background.index = index;
    background.state &= ~QStyle::State_HasFocus;
    background.text.clear();
    background.icon = QIcon();
    const QStyle *const style = option.widget == nullptr ? QApplication::style() : option.widget->style();
    style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
}

QRect CellDelegate::textArea(const QStyleOptionViewItem &option) {
    const QStyle *const style = option.widget == nullptr ? QApplication::style() : option.widget->style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    return option.rect.adjusted(margin, 0, -margin, 0);
}

QColor CellDelegate::textColor(const QStyleOptionViewItem &option) {
    const bool isSelected = option.state & QStyle::State_Selected;
    return option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
}

void SymbolDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const {
    const QIcon symbol = index.data(Qt::DecorationRole).value<QIcon>();
    if (symbol.isNull()) {
        CellDelegate::paint(painter, option, index);
        return;
    }
    paintCellBackground(painter, option, index);
    const QRect place =
        QStyle::alignedRect(option.direction, Qt::AlignCenter, option.decorationSize, option.rect);
    symbol.paint(painter, place, Qt::AlignCenter,
                 option.state & QStyle::State_Selected ? QIcon::Selected : QIcon::Normal);
}

StatusDelegate::StatusDelegate(QWidget *view)
    : SymbolDelegate(view)
    , view_(view) {
    turn_.setSingleShot(true);
    turn_.setInterval(turnInterval);
    connect(&turn_, &QTimer::timeout, view_, qOverload<>(&QWidget::update));
}

void StatusDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const {
    if (!index.data(ReceiptsTableModel::isProcessingRole).toBool()) {
        SymbolDelegate::paint(painter, option, index);
        return;
    }
    paintCellBackground(painter, option, index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(option.rect).center());
    const bool isSelected = option.state & QStyle::State_Selected;
    QColor colour = isSelected ? textColor(option) : tintColor(Tint::secondary, option.palette);
    const auto step = QDateTime::currentMSecsSinceEpoch() / turnInterval % spokes;
    for (int spoke = 0; spoke < spokes; ++spoke) {
        const auto age = (step - spoke + spokes) % spokes;
        colour.setAlphaF(static_cast<float>(spokes - age) / spokes);
        painter->setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(QPointF(0, -indicatorSize / 4.0), QPointF(0, -indicatorSize / 2.0));
        painter->rotate(360.0 / spokes);
    }
    painter->restore();
    turn_.start();
}

void SummaryDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const {
    paintCellBackground(painter, option, index);
    const bool isSelected = option.state & QStyle::State_Selected;
    const QRect area = textArea(option);
    const QFont small = styledFont(option.font, TextStyle::smallestCaption);
    const int firstHeight = option.fontMetrics.height();
    const int secondHeight = QFontMetrics(small).height();
    const int top = area.top() + (area.height() - firstHeight - lineSpacing - secondHeight) / 2;

    painter->save();
    painter->setFont(option.font);
    painter->setPen(textColor(option));
    painter->drawText(QRect(area.left(), top, area.width(), firstHeight), Qt::AlignLeft | Qt::AlignVCenter,
                      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, area.width()));
    painter->setFont(small);
    painter->setPen(isSelected ? textColor(option) : tintColor(Tint::secondary, option.palette));
    painter->drawText(QRect(area.left(), top + firstHeight + lineSpacing, area.width(), secondHeight),
                      Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(small).elidedText(index.data(ReceiptsTableModel::fileNameRole).toString(),
                                                     Qt::ElideRight, area.width()));
    painter->restore();
}

// Both lines. A file name that alone is cut off is the cell's usual tool tip.
QString SummaryDelegate::cutOffTextToolTip(const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const {
    const QString summary = CellDelegate::cutOffTextToolTip(option, index);
    return summary.isEmpty()
               ? QString()
               : summary + u"<br>"_s + plainToolTip(index.data(ReceiptsTableModel::fileNameRole).toString());
}

int SummaryDelegate::rowHeight(const QFont &font) {
    return QFontMetrics(font).height() + lineSpacing +
           QFontMetrics(styledFont(font, TextStyle::smallestCaption)).height() + 2 * verticalMargin;
}

} // namespace fennick
