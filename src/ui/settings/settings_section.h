#pragma once

#include "ui/widgets/switch_control.h"

#include <QGroupBox>

class QVBoxLayout;

namespace fennick {

// One section of the settings: its title over a card with rounded corners that holds the rows.
class SettingsSection : public QGroupBox {
    Q_OBJECT

public:
    // What rows with a control at their end keep clear there, in pixels: a switch needs it for the ring that
    // shows the focus, and the others are to be aligned with it.
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
