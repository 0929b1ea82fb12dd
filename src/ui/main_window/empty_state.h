#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace fennick {

// Shown in the main window while the list is empty: what to do next, with a button for it.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    explicit EmptyState(QWidget *parent = nullptr);

Q_SIGNALS:
    void chooseFolderRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyTints();

    QLabel *explanation_;
    QPushButton *choose_;
};

} // namespace fennick
