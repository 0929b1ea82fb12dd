#pragma once

#include <QMenu>

namespace fennick {

class RetryAll;

// Two entries of the tray icon's menu while many receipts are retried: how far that is, and a way to stop it.
// Owned by the shell, like the menu; main thread.
class RetryEntries : public QObject {
    Q_OBJECT

public:
    // The entries come before `before`.
    RetryEntries(RetryAll *retries, QMenu *menu, QAction *before);

    // "Retrying 3 of 14".
    static QString progressText(const RetryAll &retries);

private:
    void show();

    RetryAll *retries_;
    QMenu *menu_;
    QAction *before_;
    QAction *progress_;
    QAction *stop_;
};

} // namespace fennick
