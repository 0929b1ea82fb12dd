#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QObject>

namespace fennick {

// The actions of the main window. Each exists once and is shared by toolbar, menu bar and context menu.
// Owned by the main window, which connects and enables them.
struct MainActions {
    Q_DECLARE_TR_FUNCTIONS(fennick::MainActions)

public:
    explicit MainActions(QObject *owner);

    // The whole list.
    QAction *chooseFolder;
    QAction *exportCsv;
    QAction *exportHtml;
    QAction *exportReport;
    QAction *archiveCsv;
    QAction *archiveHtml;
    QAction *clearAll;
    QAction *openArchiveFolder;
    QAction *restoreIgnored;

    // The selected receipts.
    QAction *open;
    QAction *reveal;
    QAction *addToPhotos;
    QAction *retry;
    QAction *copySummary;
    QAction *details;
    QAction *readAgain;
    QAction *remove;
    QAction *copy;

    // All receipts that failed.
    QAction *retryAll;
    QAction *stopRetrying;

    QAction *undo;
    QAction *redo;
    QAction *find;
    QAction *summary;

    // The program.
    QAction *settings;
    QAction *closeWindow;
    QAction *quit;
};

} // namespace fennick
