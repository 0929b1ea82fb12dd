#include "ui/main_window/undo_commands.h"

#include "pipeline/undo/undo_history.h"
#include "ui/dialogs/undo_report.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// A menu takes a single ampersand for the sign of a shortcut.
QString forMenu(const QString &deed) {
    return QString(deed).replace(u'&', u"&&"_s);
}

bool isTextField(const QObject *object) {
    return qobject_cast<const QLineEdit *>(object) != nullptr ||
           qobject_cast<const QPlainTextEdit *>(object) != nullptr ||
           qobject_cast<const QTextEdit *>(object) != nullptr;
}

} // namespace

UndoCommands::UndoCommands(MainActions *actions, UndoHistory *history, QWidget *window)
    : QObject(window)
    , actions_(actions)
    , history_(history) {
    connect(actions->undo, &QAction::triggered, history, &UndoHistory::undo);
    connect(actions->redo, &QAction::triggered, history, &UndoHistory::redo);
    connect(history->stack(), &QUndoStack::indexChanged, this, &UndoCommands::show);
    // Queued: the dialog must not hold up what is under way.
    connect(
        history, &UndoHistory::incomplete, window,
        [window](const QStringList &problems) { showUndoReport(window, problems); }, Qt::QueuedConnection);
    qApp->installEventFilter(this);
    show();
}

// A field that has nothing to undo would leave the key to the window, and who holds the key to undo typing
// would undo an archive.
bool UndoCommands::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && isTextField(watched)) {
        const auto *const keys = static_cast<QKeyEvent *>(event);
        if (keys->matches(QKeySequence::Undo) || keys->matches(QKeySequence::Redo)) {
            event->accept();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void UndoCommands::show() {
    const QUndoStack *const deeds = history_->stack();
    actions_->undo->setEnabled(deeds->canUndo());
    actions_->redo->setEnabled(deeds->canRedo());
    //: %1 is what was done, such as "Clear All".
    actions_->undo->setText(deeds->canUndo() ? tr("Undo %1").arg(forMenu(deeds->undoText())) : tr("Undo"));
    //: %1 is what was undone, such as "Clear All".
    actions_->redo->setText(deeds->canRedo() ? tr("Redo %1").arg(forMenu(deeds->redoText())) : tr("Redo"));
}

} // namespace fennick
