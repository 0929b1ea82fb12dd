#include "ui/widgets/switch_control.h"

#include "ui/widgets/symbols.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>

namespace fennick {

namespace {

constexpr QSize trackSize(38, 20);
constexpr int textGap = 12;
constexpr int reservedWidth = trackSize.width() + SwitchControl::focusMargin + textGap;
constexpr int lowestHeight = trackSize.height() + 2 * SwitchControl::focusMargin;
constexpr int textFlags = Qt::AlignLeading | Qt::AlignVCenter | Qt::TextWordWrap;

int widestWord(const QString &text, const QFontMetrics &metrics) {
    int widest = 0;
    for (const QString &word : text.split(u' ')) {
        widest = std::max(widest, metrics.horizontalAdvance(word));
    }
    return widest;
}

} // namespace

SwitchControl::SwitchControl(const QString &text, QWidget *parent)
    : QCheckBox(text, parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum, QSizePolicy::CheckBox);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAccessibleName(text);
}

void SwitchControl::showValue(bool isOn) {
    const QSignalBlocker blocker(this);
    setChecked(isOn);
}

QSize SwitchControl::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(text()) + 1 + reservedWidth;
    return {width, std::max(lowestHeight, fontMetrics().height())};
}

QSize SwitchControl::minimumSizeHint() const {
    return {widestWord(text(), fontMetrics()) + 1 + reservedWidth, lowestHeight};
}

int SwitchControl::heightForWidth(int width) const {
    const QRect available(0, 0, width - reservedWidth, QWIDGETSIZE_MAX);
    return std::max(lowestHeight, fontMetrics().boundingRect(available, textFlags, text()).height());
}

bool SwitchControl::hitButton(const QPoint &position) const {
    return rect().contains(position);
}

void SwitchControl::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    style()->drawItemText(
        &painter, textRectangle(),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter) |
            Qt::TextWordWrap,
        palette(), isEnabled(), text(), QPalette::Text);

    // Off is an outline, on is filled; the knob's position distinguishes the two without colour.
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor outline = isEnabled() ? tintColor(Tint::secondary, palette())
                                       : palette().color(QPalette::Disabled, QPalette::Text);
    const QColor filling = isEnabled() ? accent : outline;
    const QRectF track = QRectF(trackRectangle()).adjusted(0.75, 0.75, -0.75, -0.75);
    const double radius = track.height() / 2;
    painter.setPen(QPen(isChecked() ? filling : outline, 1.5));
    painter.setBrush(isChecked() ? QBrush(filling) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(track, radius, radius);

    const bool isKnobRight = isChecked() == isLeftToRight();
    const double knobRadius = isChecked() ? radius - 2.5 : radius - 4;
    const QPointF knob(isKnobRight ? track.right() - radius : track.left() + radius, track.center().y());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? palette().color(QPalette::Base) : outline);
    painter.drawEllipse(knob, knobRadius, knobRadius);

    if (hasFocus()) {
        const QRectF ring = QRectF(trackRectangle()).adjusted(-2.5, -2.5, 2.5, 2.5);
        painter.setPen(QPen(accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    }
}

QRect SwitchControl::trackRectangle() const {
    const QRect atRight(
        QPoint(width() - focusMargin - trackSize.width(), (height() - trackSize.height()) / 2), trackSize);
    return QStyle::visualRect(layoutDirection(), rect(), atRight);
}

QRect SwitchControl::textRectangle() const {
    return QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(0, 0, -reservedWidth, 0));
}

} // namespace fennick
