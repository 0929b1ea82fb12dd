#pragma once

#include "ui/widgets/symbols.h"

#include <QWidget>

class QLabel;

namespace fennick {

// Small tinted text, optionally with a symbol before it: badges, warnings, explanations.
class CaptionLabel : public QWidget {
    Q_OBJECT

public:
    CaptionLabel(const QString &text, Tint tint, std::optional<Symbol> symbol = std::nullopt,
                 QWidget *parent = nullptr);

    QString text() const;
    void setText(const QString &text);
    void setWordWrap(bool wraps);

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyTint();

    Tint tint_;
    QLabel *textLabel_;
};

} // namespace fennick
