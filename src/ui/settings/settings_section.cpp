#include "ui/settings/settings_section.h"

#include "ui/widgets/caption_label.h"

#include <QPainter>
#include <QVBoxLayout>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int cardPadding = 14;
constexpr int rowSpacing = 6;
constexpr int groupSpacing = 4; // on top of the spacing of rows
constexpr int cardRadius = 9;
constexpr int headerGap = 5;
constexpr float borderOpacity = 0.18F;

} // namespace

SettingsSection::SettingsSection(const QString &title, QWidget *parent)
    : QGroupBox(QString(title).replace(u'&', u"&&"_s), parent)
    , header_(title)
    , rows_(new QVBoxLayout(this)) {
    setAccessibleName(title);
    rows_->setContentsMargins(cardPadding, cardPadding - 2 + headerGap, cardPadding - endMargin,
                              cardPadding - 2);
    rows_->setSpacing(rowSpacing);
}

void SettingsSection::addSwitch(SwitchControl *control) {
    if (rows_->count() > 0) {
        rows_->addSpacing(groupSpacing);
    }
    rows_->addWidget(control);
}

void SettingsSection::addExplanation(const QString &text) {
    auto *const explanation = new CaptionLabel(text, Tint::secondary, std::nullopt, this);
    explanation->setContentsMargins(0, 0, endMargin, 0);
    explanation->setWordWrap(true);
    rows_->addWidget(explanation);
}

// The style reserves the room over the contents for the title; the card is what is left of it.
void SettingsSection::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect contents = contentsRect();
    const QRectF card = QRectF(0, contents.top() + headerGap, width(), height() - contents.top() - headerGap)
                            .adjusted(0.5, 0.5, -0.5, -0.5);
    QColor border = palette().color(QPalette::WindowText);
    border.setAlphaF(borderOpacity);
    painter.setPen(border);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(card, cardRadius, cardRadius);

    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(2, 0, width() - 4, contents.top()), Qt::AlignLeading | Qt::AlignVCenter, header_);
}

} // namespace fennick
