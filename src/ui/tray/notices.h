#pragma once

#include "platform/notifier.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace fennick {

// Shows desktop notifications for what the user cannot see in the window: batches that finish while it is
// out of sight, failures that no row shows, and what became of an export. Never more than one notification in
// ten seconds; what happens in between is combined. Owned by the shell; main thread.
class Notices : public QObject {
    Q_OBJECT

public:
    // `isWindowInFront` is called whenever there is something to show.
    explicit Notices(std::function<bool()> isWindowInFront, QObject *parent = nullptr);

    // `repeats`: how many of the scanned receipts may be duplicates of others.
    void showBatch(int scanned, int failed, int repeats = 0);
    void showFailure(const QString &failure);

    // Offers to retry that many receipts, which failed because there was no valid API key.
    void offerRetry(int receipts);
    // With a button that asks to show the file.
    void showSaved(const QString &path);
    void showNotSaved(const QString &path, const QString &reason);

    // With buttons that ask to undo the archive and to open its folder, until this is withdrawn.
    void showArchived(int receipts, const QString &folder);
    void withdrawArchive();

    // That the window has gone into the tray, and nothing has ended.
    void showInTray();

    // Until it is back: then the notice goes.
    void showFolderMissing(const QString &folder);
    void showFolderFound();

    // "3 receipts scanned, 1 may be a duplicate, 1 failed".
    static QString batchText(int scanned, int failed, int repeats = 0);

Q_SIGNALS:
    // The user clicked a notification.
    void activated();
    // The user wants to see the file of the notice.
    void showFileRequested(const QString &path);

    // The user takes the offer to retry.
    void retryRequested();

    // The user takes one of the offers after an archive.
    void undoArchiveRequested();
    void openFolderRequested(const QString &folder);

private:
    void handleButton(int number);
    QStringList takeMessages();
    QStringList takeOffer();
    void showWhenAllowed();
    void show();

    std::function<bool()> isWindowInFront_;
    Notifier notifier_;
    QTimer pause_;
    int scanned_ = 0;
    int failed_ = 0;
    int repeats_ = 0;
    QString failure_;
    int retries_ = 0; // offered
    QString savedFile_;
    QString missingFolder_;
    bool isInTray_ = false;
    int archived_ = 0;
    QString archiveFolder_;
    enum class Offer { none, showFile, retry, archive };
    Offer shownOffer_ = Offer::none;    // of the notice that was shown last
    QString shownPath_;                 // the file or the folder of that notice
    bool isArchiveShown_ = false;       // by that notice, alone
    bool isMissingFolderShown_ = false; // by that notice, alone
};

} // namespace fennick
