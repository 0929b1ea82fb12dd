#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace fennick {

// How far something is that takes a while, with a button that ends it. Unlike QProgressDialog, it never runs
// an event loop of its own. Rejected when the user cancels. Owned by the window it belongs to.
class ProgressPanel : public QDialog {
    Q_OBJECT

public:
    ProgressPanel(const QString &title, int steps, QWidget *parent);

    void showProgress(int step, const QString &text);

private:
    QLabel *text_;
    QProgressBar *bar_;
};

} // namespace fennick
