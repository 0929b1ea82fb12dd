#pragma once

#include <QObject>

class QWidget;

namespace fennick {

// Gives a window the size and position that it had when it was last closed, also by the end of the program,
// and remembers them from then on, by the window's object name. Owned by the window; main thread.
class RememberedGeometry : public QObject {
    Q_OBJECT

public:
    explicit RememberedGeometry(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void remember() const;

    QWidget *window_;
};

} // namespace fennick
