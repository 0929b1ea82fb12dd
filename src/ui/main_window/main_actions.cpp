#include "ui/main_window/main_actions.h"

#include "ui/widgets/symbols.h"

#include <QKeySequence>

namespace fennick {

namespace {

QAction *make(QObject *owner, const char *objectName, const QString &text,
              const QKeySequence &shortcut = {}) {
    auto *const action = new QAction(text, owner);
    action->setObjectName(QLatin1StringView(objectName));
    action->setShortcut(shortcut);
    return action;
}

QAction *withSymbol(QAction *action, Symbol symbol) {
    action->setIcon(symbolIcon(symbol));
    return action;
}

} // namespace

MainActions::MainActions(QObject *owner)
    : chooseFolder(withSymbol(make(owner, "chooseFolder", tr("Choose Folder"), QKeySequence::Open),
                              Symbol::chooseFolder))
    , exportCsv(make(owner, "exportCsv", tr("Export as CSV…"), QKeySequence(Qt::CTRL | Qt::Key_E)))
    , exportHtml(
          make(owner, "exportHtml", tr("Export as HTML…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E)))
    , exportReport(make(owner, "exportReport", tr("Export as PDF Report…"),
                        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)))
    , archiveCsv(make(owner, "archiveCsv", tr("Export CSV, Archive && Clear")))
    , archiveHtml(make(owner, "archiveHtml", tr("Export HTML, Archive && Clear")))
    , clearAll(withSymbol(make(owner, "clearAll", tr("Clear All")), Symbol::clear))
    , openArchiveFolder(make(owner, "openArchiveFolder", tr("Open Archive Folder")))
    , restoreIgnored(make(owner, "restoreIgnored", tr("Restore Ignored Files…")))
    , open(make(owner, "open", tr("Open")))
    //: Shows the file in the desktop's file manager.
    , reveal(withSymbol(
          make(owner, "revealSelected", tr("Reveal in Finder"), QKeySequence(Qt::CTRL | Qt::Key_R)),
          Symbol::reveal))
    , addToPhotos(withSymbol(
          make(owner, "addSelectedToPhotos", tr("Add to Photos"), QKeySequence(Qt::CTRL | Qt::Key_P)),
          Symbol::addToPhotos))
    , retry(withSymbol(make(owner, "retrySelected", tr("Retry"), QKeySequence(Qt::CTRL | Qt::Key_T)),
                       Symbol::retry))
    , copySummary(make(owner, "copySummary", tr("Copy Summary")))
    , details(make(owner, "details", tr("Details…"), QKeySequence(Qt::CTRL | Qt::Key_I)))
    , readAgain(make(owner, "readAgain", tr("Read Again")))
    , remove(make(owner, "removeFromList", tr("Remove from List"), QKeySequence(Qt::Key_Delete)))
    //: The selected rows, as a table for the clipboard.
    , copy(make(owner, "copy", tr("Copy"), QKeySequence::Copy))
    , retryAll(
          make(owner, "retryAll", tr("Retry All Failed"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T)))
    , stopRetrying(make(owner, "stopRetrying", tr("Stop Retrying")))
    , undo(make(owner, "undo", tr("Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z)))
    , redo(make(owner, "redo", tr("Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)))
    , find(make(owner, "find", tr("Find…"), QKeySequence::Find))
    , summary(make(owner, "summary", tr("Summary…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)))
    , settings(make(owner, "settings", tr("Settings…"), QKeySequence(Qt::CTRL | Qt::Key_Comma)))
    , closeWindow(make(owner, "closeWindow", tr("Close Window"), QKeySequence(Qt::CTRL | Qt::Key_W)))
    , quit(make(owner, "quit", tr("Quit Fennick"), QKeySequence(Qt::CTRL | Qt::Key_Q))) {
    settings->setMenuRole(QAction::PreferencesRole);
    quit->setMenuRole(QAction::QuitRole);
}

} // namespace fennick
