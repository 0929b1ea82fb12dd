#pragma once

#include "model/receipt.h"

#include <QWidget>

class QToolButton;

namespace fennick {

// The buttons at the end of a row: reveal the file, add it to Photos, retry the scan. Exists while its row
// is visible; owned by the table.
class RowActions : public QWidget {
    Q_OBJECT

public:
    explicit RowActions(QWidget *parent = nullptr);

    // Shows the buttons that apply to this receipt. Add to Photos is offered only while Photos export is on.
    void show(const Receipt &receipt, bool isPhotosExportOn);

    // Draws the buttons on the colour of a selected row.
    void setSelected(bool isSelected);

    // Only the buttons of the current row are tab stops: otherwise leaving the table would take too many
    // presses of the Tab key.
    void setTabStops(bool areTabStops);

    // Puts the buttons after `before` in the tab order.
    void followInTabOrder(QWidget *before);

Q_SIGNALS:
    void revealRequested();
    void addToPhotosRequested();
    void retryRequested();

private:
    QToolButton *reveal_;
    QToolButton *addToPhotos_;
    QToolButton *retry_;
};

} // namespace fennick
