#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QObject>

namespace fennick {

// Everything that can be done from the main window, each once: toolbar, menu bar and context menu share
// these. Owned by the main window, which says what they do and when they can be used.
struct MainActions {
    Q_DECLARE_TR_FUNCTIONS(fennick::MainActions)

public:
    explicit MainActions(QObject *owner);

    // The whole list.
    QAction *chooseFolder;
    QAction *exportCsv;
    QAction *exportHtml;
    QAction *archiveCsv;
    QAction *archiveHtml;
    QAction *clearAll;

    // The selected receipt.
    QAction *open;
    QAction *reveal;
    QAction *addToPhotos;
    QAction *retry;
    QAction *copySummary;

    // The program.
    QAction *settings;
    QAction *closeWindow;
    QAction *quit;
};

} // namespace fennick
