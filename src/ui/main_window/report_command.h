#pragma once

#include "model/receipt.h"

#include <QList>
#include <QObject>
#include <QString>

#include <memory>

class QAction;
class QWidget;

namespace fennick {

class ProgressPanel;
class ReceiptStore;
class ReportProcess;
class SettingsStore;

// Exports the whole list as a PDF report: asks for the name on it, once ever, and for a file, and shows how
// far the report is. One report at a time. Owned by the main window, which outlives it like everything that
// it borrows; main thread.
class ReportCommand : public QObject {
    Q_OBJECT

public:
    ReportCommand(QAction *action, const ReceiptStore *store, const SettingsStore *settings, QWidget *window);
    ~ReportCommand() override;

Q_SIGNALS:
    void saved(const QString &path);
    void notSaved(const QString &path, const QString &reason);

private:
    void enable();
    void begin();
    void askForName();
    void chooseFile(const QString &name);
    void make(const QString &name, const QString &path);
    void showProgress(int receipts);
    void end();

    QAction *action_;
    const ReceiptStore *store_;
    const SettingsStore *settings_;
    QWidget *window_;
    QList<Receipt> receipts_; // as they were when the report was asked for
    bool isUnderWay_ = false;
    std::unique_ptr<ReportProcess> process_;
    ProgressPanel *panel_ = nullptr;
};

} // namespace fennick
