#pragma once

#include "ui/widgets/switch_control.h"

#include <QGroupBox>

class QVBoxLayout;

namespace fennick {

// A section of the settings: a title above a card with rounded corners that contains the rows.
class SettingsSection : public QGroupBox {
    Q_OBJECT

public:
    // The margin in pixels that rows keep at their end: switches draw their focus ring there, and the others
    // align with them.
    static constexpr int endMargin = SwitchControl::focusMargin;

    explicit SettingsSection(const QString &title, QWidget *parent = nullptr);

    // A switch starts a new group of rows.
    void addSwitch(SwitchControl *control);

    // Small text in the secondary colour that wraps.
    void addExplanation(const QString &text);

    // The rows of the card, top to bottom.
    QVBoxLayout *rows() const { return rows_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString header_;
    QVBoxLayout *rows_;
};

} // namespace fennick
