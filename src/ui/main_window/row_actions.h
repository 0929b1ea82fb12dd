#pragma once

#include "model/receipt.h"

#include <QWidget>

class QToolButton;

namespace fennick {

// The buttons at the end of one row: reveal the file, add it to Photos, scan it again. Lives as long as its
// row is on the screen; owned by the table.
class RowActions : public QWidget {
    Q_OBJECT

public:
    explicit RowActions(QWidget *parent = nullptr);

    // Shows the buttons that this receipt offers now. Add to Photos is offered only while Photos export is
    // on.
    void show(const Receipt &receipt, bool isPhotosExportOn);

    // Draws the buttons on the colour of a selected row. The key Tab stops at the buttons of that row only:
    // else it would take too many presses to leave the table.
    void setSelected(bool isSelected);

    // Puts the buttons behind `before` on the way of the key Tab.
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
