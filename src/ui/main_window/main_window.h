#pragma once

#include "export/export_service.h"
#include "pipeline/app_state.h"
#include "ui/main_window/main_actions.h"

#include <QMainWindow>

#include <optional>

class QMenu;
class QToolButton;

namespace fennick {

class HomeView;

// The main window: toolbar, menu bar and home view. Asks for confirmation before a batch leaves the list,
// accepts dropped files and remembers its size. Owned by the shell; main thread.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow(ReceiptStore *store, SettingsStore *settings, AppState *appState);

    MainActions &actions() { return actions_; }

    std::optional<Receipt> selectedReceipt() const;

    // Selects the receipt that many rows further down the list, as far as there are any.
    void selectFurther(int rows);

    void selectReceipt(const QString &id);

Q_SIGNALS:
    // The window is shown: at the start and whenever it was hidden.
    void appeared();
    // The user closes the window; the shell decides whether to hide or minimise it.
    void closeRequested();
    // Another receipt is selected, or the selected one has changed.
    void selectedReceiptChanged();
    // An export has ended.
    void ledgerSaved(const QString &path);
    void ledgerNotSaved(const QString &path, const QString &reason);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void buildToolBar();
    void buildMenuBar();
    void buildContextMenu();
    void connectActions();
    QToolButton *makeMenuButton(const QString &objectName, const QString &text, const QIcon &icon,
                                const QList<QAction *> &items);
    void enableActions();

    void chooseFolder();
    void exportList(ExportService::Format format);
    void archive(ExportService::Format format);
    void clearAll();
    void rememberSize();

    ReceiptStore *store_;
    SettingsStore *settings_;
    AppState *appState_;
    MainActions actions_;
    HomeView *home_;
    QToolButton *exportButton_ = nullptr;
    QToolButton *archiveButton_ = nullptr;
};

} // namespace fennick
