#include "ui/main_window/main_window.h"

#include "settings/window_memory.h"
#include "ui/dialogs/confirmations.h"
#include "ui/dialogs/export_panel.h"
#include "ui/dialogs/ignored_files_dialog.h"
#include "ui/dialogs/watch_folder_chooser.h"
#include "ui/main_window/archive_folder_command.h"
#include "ui/main_window/home_view.h"
#include "ui/main_window/read_with_menu.h"
#include "ui/main_window/receipt_commands.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/report_command.h"
#include "ui/main_window/undo_commands.h"
#include "ui/widgets/focus_frame.h"
#include "ui/widgets/symbols.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

using Format = ExportService::Format;

constexpr QSize defaultSize{900, 560};
constexpr QSize minimumContentSize{720, 420};

// Room around the buttons, and the arrow of a menu beside its text instead of in the corner below it.
QString toolBarStyle() {
    return focusFrameStyle(u"highlight"_s) + u"QToolButton { padding: 3px 8px; }"
                                             "QToolButton[popupMode=\"2\"] { padding-right: 20px; }"
                                             "QToolButton::menu-indicator { subcontrol-origin: padding;"
                                             " subcontrol-position: center right; right: 6px; }"_s;
}

QStringList receiptFilesIn(const QMimeData &data) {
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile() && AppState::isSupported(url.toLocalFile())) {
            paths.append(url.toLocalFile());
        }
    }
    return paths;
}

} // namespace

MainWindow::MainWindow(ReceiptStore *store, SettingsStore *settings, AppState *appState)
    : store_(store)
    , settings_(settings)
    , appState_(appState)
    , actions_(this)
    , home_(new HomeView(store, settings, this)) {
    setObjectName(u"main"_s);
    setWindowTitle(u"Fennick"_s);
    home_->setMinimumSize(minimumContentSize);
    home_->table()->setDuplicates(appState->duplicates());
    setCentralWidget(home_);
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::NoContextMenu); // the toolbar cannot be hidden by accident
    buildToolBar();
    buildMenuBar();
    buildContextMenu();
    connectActions();
    new ReceiptCommands(&actions_, home_->table(), store, settings, appState, this);
    new UndoCommands(&actions_, appState->history(), this);
    enableActions();

    resize(defaultSize);
    const WindowMemory memory;
    restoreGeometry(memory.geometry());
    home_->table()->restoreColumnState(memory.columns());
    connect(qApp, &QCoreApplication::aboutToQuit, this, &MainWindow::rememberSize);
}

void MainWindow::buildToolBar() {
    QToolBar *const bar = addToolBar(tr("Toolbar"));
    bar->setObjectName(u"toolbar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setIconSize({18, 18});
    bar->setStyleSheet(toolBarStyle());
    bar->addAction(actions_.chooseFolder);
    exportButton_ = makeMenuButton(u"exportMenu"_s, tr("Export"), symbolIcon(Symbol::exportLedger),
                                   {actions_.exportCsv, actions_.exportHtml});
    bar->addWidget(exportButton_);
    archiveButton_ = makeMenuButton(u"archiveMenu"_s, tr("Archive && Clear"), symbolIcon(Symbol::archive),
                                    {actions_.archiveCsv, actions_.archiveHtml});
    bar->addWidget(archiveButton_);
    bar->addAction(actions_.clearAll);
    const auto buttons = bar->findChildren<QToolButton *>();
    for (QToolButton *const button : buttons) {
        button->setFocusPolicy(Qt::TabFocus);
    }
}

QToolButton *MainWindow::makeMenuButton(const QString &objectName, const QString &text, const QIcon &icon,
                                        const QList<QAction *> &items) {
    auto *const button = new QToolButton(this);
    button->setObjectName(objectName);
    button->setText(text);
    button->setAccessibleName(QString(text).replace(u"&&"_s, u"&"_s));
    button->setIcon(icon);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto *const menu = new QMenu(button);
    menu->addActions(items);
    button->setMenu(menu);
    return button;
}

void MainWindow::buildMenuBar() {
    QMenu *const file = menuBar()->addMenu(tr("&File"));
    file->addActions({actions_.chooseFolder, actions_.exportCsv, actions_.exportHtml, actions_.exportReport});
    file->addSeparator();
    file->addActions({actions_.archiveCsv, actions_.archiveHtml, actions_.clearAll});
    file->addSeparator();
    file->addActions({actions_.openArchiveFolder, actions_.restoreIgnored});
    file->addSeparator();
    file->addMenu(new ReadWithMenu(settings_, file));
    file->addSeparator();
    file->addActions({actions_.closeWindow, actions_.quit});
    QMenu *const edit = menuBar()->addMenu(tr("&Edit"));
    edit->addActions({actions_.undo, actions_.redo});
    edit->addSeparator();
    edit->addActions({actions_.copy, actions_.find});
    edit->addSeparator();
    edit->addAction(actions_.settings);
    menuBar()->addMenu(tr("&View"))->addAction(actions_.summary);
    QMenu *const receipt = menuBar()->addMenu(tr("&Receipt"));
    receipt->addActions(
        {actions_.open, actions_.reveal, actions_.addToPhotos, actions_.retry, actions_.copySummary});
    receipt->addSeparator();
    receipt->addActions({actions_.details, actions_.readAgain, actions_.remove});
    receipt->addSeparator();
    receipt->addActions({actions_.retryAll, actions_.stopRetrying});
}

void MainWindow::buildContextMenu() {
    home_->table()->addActions(
        {actions_.open, actions_.reveal, actions_.addToPhotos, actions_.retry, actions_.copySummary});
}

void MainWindow::connectActions() {
    connect(actions_.chooseFolder, &QAction::triggered, this, &MainWindow::chooseFolder);
    connect(home_, &HomeView::chooseFolderRequested, this, &MainWindow::chooseFolder);
    connect(actions_.exportCsv, &QAction::triggered, this, [this] { exportList(Format::csv); });
    connect(actions_.exportHtml, &QAction::triggered, this, [this] { exportList(Format::html); });
    auto *const report = new ReportCommand(actions_.exportReport, store_, settings_, this);
    connect(report, &ReportCommand::saved, this, &MainWindow::ledgerSaved);
    connect(report, &ReportCommand::notSaved, this, &MainWindow::ledgerNotSaved);
    connect(actions_.archiveCsv, &QAction::triggered, this, [this] { archive(Format::csv); });
    connect(actions_.archiveHtml, &QAction::triggered, this, [this] { archive(Format::html); });
    connect(actions_.clearAll, &QAction::triggered, this, &MainWindow::clearAll);
    connect(actions_.openArchiveFolder, &QAction::triggered, this,
            [this] { openArchiveFolder(this, appState_); });
    connect(actions_.restoreIgnored, &QAction::triggered, this, [this] {
        auto *const dialog = new IgnoredFilesDialog(store_, appState_, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
    connect(actions_.find, &QAction::triggered, home_, &HomeView::find);
    connect(actions_.closeWindow, &QAction::triggered, this, &QWidget::close);

    connect(appState_, &AppState::watchedFolderMissingChanged, home_, &HomeView::showFolderMissing);
    connect(store_, &ReceiptStore::receiptsChanged, this, &MainWindow::enableActions);
    connect(home_->table(), &ReceiptsTable::selectedReceiptChanged, this,
            &MainWindow::selectedReceiptChanged);
}

void MainWindow::enableActions() {
    const bool hasReceipts = !store_->receipts().isEmpty();
    for (QAction *const action : {actions_.exportCsv, actions_.exportHtml, actions_.archiveCsv,
                                  actions_.archiveHtml, actions_.clearAll}) {
        action->setEnabled(hasReceipts);
    }
    exportButton_->setEnabled(hasReceipts);
    archiveButton_->setEnabled(hasReceipts);
}

std::optional<Receipt> MainWindow::selectedReceipt() const {
    return home_->table()->selectedReceipt();
}

void MainWindow::selectFurther(int rows) {
    home_->table()->selectFurther(rows);
}

void MainWindow::selectReceipt(const QString &id) {
    home_->selectReceipt(id);
}

void MainWindow::chooseFolder() {
    chooseWatchFolder(this, appState_, settings_);
}

void MainWindow::exportList(Format format) {
    const auto ledger = exportLedger(this, store_->receipts(), format);
    if (!ledger) {
        return;
    }
    if (ledger->written) {
        Q_EMIT ledgerSaved(ledger->path);
    } else {
        Q_EMIT ledgerNotSaved(ledger->path, ledger->written.error().description());
    }
}

void MainWindow::archive(Format format) {
    const QString name = format == Format::html ? u"HTML"_s : u"CSV"_s;
    if (Confirmations::confirmArchive(this, name, store_, appState_->archiveDestinationPath())) {
        appState_->archiveAndClear(format);
    }
}

void MainWindow::clearAll() {
    if (Confirmations::confirmClear(this)) {
        appState_->history()->clearAll();
    }
}

void MainWindow::rememberSize() {
    WindowMemory().remember(saveGeometry(), home_->table()->columnState());
}

void MainWindow::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) {
        Q_EMIT appeared();
    }
}

void MainWindow::closeEvent(QCloseEvent *event) {
    rememberSize();
    event->ignore();
    Q_EMIT closeRequested();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event) {
    if (settings_->watchFolderPath() && !receiptFilesIn(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void MainWindow::dropEvent(QDropEvent *event) {
    appState_->copyIntoWatchFolder(receiptFilesIn(*event->mimeData()));
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

} // namespace fennick
