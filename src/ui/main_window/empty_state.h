#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace fennick {

// What the main window shows while no receipt is listed: what to do, and a button that does it.
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
