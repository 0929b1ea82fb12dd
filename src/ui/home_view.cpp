#include "ui/home_view.h"

#include "ui/receipts_table_model.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace fennick {

namespace {

struct ColumnWidth {
    ReceiptsTableModel::Column column;
    int ideal;
};

constexpr std::array<ColumnWidth, 5> columnWidths = {{{ReceiptsTableModel::statusColumn, 32},
                                                      {ReceiptsTableModel::dateColumn, 100},
                                                      {ReceiptsTableModel::amountColumn, 90},
                                                      {ReceiptsTableModel::locationColumn, 200},
                                                      {ReceiptsTableModel::categoryColumn, 110}}};

} // namespace

HomeView::HomeView(const ReceiptStore *store, const SettingsStore *settings, QWidget *parent)
    : QWidget(parent)
    , settings_(settings)
    , model_(new ReceiptsTableModel(store, this))
    , folderLabel_(new QLabel(this))
    , missingKeyLabel_(new QLabel(tr("Set your Gemini API key in Settings (⌘,) to start scanning."), this))
    , table_(new QTableView(this)) {
    layOut();
    connect(settings, &SettingsStore::changed, this, &HomeView::showSettings);
    showSettings();
}

void HomeView::layOut() {
    folderLabel_->setObjectName(QStringLiteral("watchFolder"));
    folderLabel_->setTextFormat(Qt::PlainText);
    missingKeyLabel_->setObjectName(QStringLiteral("missingKey"));

    table_->setObjectName(QStringLiteral("receipts"));
    table_->setAccessibleName(tr("Receipts"));
    table_->setModel(model_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (const auto &[column, ideal] : columnWidths) {
        table_->setColumnWidth(column, ideal);
    }

    auto *const header = new QVBoxLayout;
    header->setContentsMargins(16, 10, 16, 10);
    header->setSpacing(6);
    header->addWidget(folderLabel_);
    header->addWidget(missingKeyLabel_);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(header);
    layout->addWidget(table_);
}

void HomeView::showSettings() {
    folderLabel_->setText(settings_->watchFolderPath().value_or(tr("No folder selected")));
    missingKeyLabel_->setVisible(!settings_->hasAPIKey());
}

} // namespace fennick
