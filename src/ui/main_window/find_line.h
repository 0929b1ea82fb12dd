#pragma once

#include <QLocale>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace fennick {

class ReceiptQuery;

// The line above the table in which the user types what to find. Hidden until it is wanted; Escape hides it
// again. Owned by the home view; main thread.
class FindLine : public QWidget {
    Q_OBJECT

public:
    explicit FindLine(QWidget *parent = nullptr);

    // Shows the line, or leads back to it, with its text selected.
    void open();

    // How many receipts match, of how many.
    void showCount(int found, int all);

    // Hides the line; everything is shown again.
    void close();

Q_SIGNALS:
    void opened();
    void queryChanged(const ReceiptQuery &query);

    // The user goes on to the receipts that were found.
    void leftDownwards();
    void closed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void emitQuery();

    QLocale language_; // of the windows
    QLineEdit *text_;
    QLabel *count_;
};

} // namespace fennick
