#include "ui/main_window/report_command.h"

#include "export/export_service.h"
#include "model/receipt_store.h"
#include "reporting/report_contents.h"
#include "reporting/report_process.h"
#include "settings/report_memory.h"
#include "settings/settings_store.h"
#include "text/path_text.h"
#include "ui/dialogs/export_panel.h"
#include "ui/dialogs/progress_panel.h"

#include <QAction>
#include <QCoreApplication>
#include <QInputDialog>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

ReportCommand::ReportCommand(QAction *action, const ReceiptStore *store, const SettingsStore *settings,
                             QWidget *window)
    : QObject(window)
    , action_(action)
    , store_(store)
    , settings_(settings)
    , window_(window) {
    connect(action, &QAction::triggered, this, &ReportCommand::begin);
    connect(store, &ReceiptStore::receiptsChanged, this, &ReportCommand::enable);
    enable();
}

ReportCommand::~ReportCommand() = default;

void ReportCommand::enable() {
    action_->setEnabled(!isUnderWay_ && !store_->receipts().isEmpty());
}

void ReportCommand::begin() {
    isUnderWay_ = true;
    enable();
    receipts_ = store_->receipts();
    if (const auto name = ReportMemory().name()) {
        chooseFile(*name);
    } else {
        askForName();
    }
}

void ReportCommand::askForName() {
    auto *const question = new QInputDialog(window_);
    question->setObjectName(u"reportName"_s);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setWindowTitle(tr("PDF Report"));
    question->setLabelText(tr("Name on the report:"));
    connect(question, &QInputDialog::rejected, this, &ReportCommand::end);
    connect(question, &QInputDialog::textValueSelected, this, [this](const QString &text) {
        const QString name = text.trimmed();
        ReportMemory().setName(name);
        chooseFile(name);
    });
    question->open();
}

void ReportCommand::chooseFile(const QString &name) {
    QString proposed = ExportService::proposedFileName(ExportService::Format::csv);
    proposed.chop(ExportService::fileExtension(ExportService::Format::csv).size());
    const QString extension = u"pdf"_s;
    const auto path = chooseExportFile(
        window_,
        {.proposedName = proposed + extension, .extension = extension, .mimeType = u"application/pdf"_s});
    if (path) {
        make(name, *path);
    } else {
        end();
    }
}

void ReportCommand::make(const QString &name, const QString &path) {
    panel_ = new ProgressPanel(tr("PDF Report"), static_cast<int>(receipts_.size()), window_);
    connect(panel_, &QDialog::rejected, this, [this] {
        process_->cancel();
        end();
    });
    process_ =
        std::make_unique<ReportProcess>(joinedPath(QCoreApplication::applicationDirPath(), u"make_report"_s));
    connect(process_.get(), &ReportProcess::progressed, this, &ReportCommand::showProgress);
    connect(process_.get(), &ReportProcess::saved, this, [this, path] {
        end();
        Q_EMIT saved(path);
    });
    connect(process_.get(), &ReportProcess::failed, this, [this, path](const QString &reason) {
        end();
        Q_EMIT notSaved(path, reason);
    });
    showProgress(0);
    panel_->open();
    process_->start(describeReport(receipts_, name, settings_->watchFolderPath().value_or(QString())), path);
}

void ReportCommand::showProgress(int receipts) {
    const auto count = static_cast<int>(receipts_.size());
    //: %1 is the number of the receipt under way, %2 how many there are.
    panel_->showProgress(receipts, tr("Receipt %1 of %2").arg(std::min(receipts + 1, count)).arg(count));
}

// Called by signals of the process and the panel, which therefore go later.
void ReportCommand::end() {
    if (panel_ != nullptr) {
        panel_->disconnect(this);
        panel_->close();
        panel_->deleteLater();
        panel_ = nullptr;
    }
    if (process_) {
        process_.release()->deleteLater();
    }
    receipts_.clear();
    isUnderWay_ = false;
    enable();
}

} // namespace fennick
