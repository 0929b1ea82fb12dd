#include "report/wrapped_text.h"

#include <QTextOption>

#include <algorithm>

namespace fennick {

namespace {

// Of the longest text that is laid out at all: a summary may be as long as its service likes.
constexpr qsizetype mostCharacters = 2000;

} // namespace

WrappedText::WrappedText(const QString &text, const QFont &font, double width, int mostLines,
                         Qt::Alignment alignment)
    : layout_(text.left(mostCharacters), font) {
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    const qsizetype end = layOut(width, mostLines);
    if (end >= 0) {
        layout_.setText(text.left(end) + u'…');
        layOut(width, mostLines);
    }
}

qsizetype WrappedText::layOut(double width, int mostLines) {
    height_ = 0;
    layout_.beginLayout();
    qsizetype end = -1;
    for (int count = 0;; ++count) {
        QTextLine line = layout_.createLine();
        if (!line.isValid()) {
            break;
        }
        if (count == mostLines) {
            end = std::max(0, line.textStart() - 2);
            break;
        }
        line.setLineWidth(width);
        line.setPosition({0, height_});
        height_ += line.height();
    }
    layout_.endLayout();
    return end;
}

} // namespace fennick
