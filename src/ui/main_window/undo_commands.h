#pragma once

#include "ui/main_window/main_actions.h"

#include <QObject>

namespace fennick {

class UndoHistory;

// Undo and Redo of the main window: their texts name the deed, and what could not be undone is shown. In a
// field for text their keys undo typing and nothing else. Owned by the main window; main thread.
class UndoCommands : public QObject {
    Q_OBJECT

public:
    UndoCommands(MainActions *actions, UndoHistory *history, QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show();

    MainActions *actions_;
    UndoHistory *history_;
};

} // namespace fennick
