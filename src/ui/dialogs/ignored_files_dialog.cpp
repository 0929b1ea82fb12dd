#include "ui/dialogs/ignored_files_dialog.h"

#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "text/display_text.h"
#include "ui/widgets/plain_tool_tip.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize ignoredFilesSize(640, 420);
constexpr int pathColumn = 0;
constexpr int dateColumn = 1;
constexpr int valueRole = Qt::UserRole;

QStandardItem *makeItem(const QString &text, const QVariant &value) {
    auto *const item = new QStandardItem(displayText(text));
    item->setData(value, valueRole);
    item->setEditable(false);
    return item;
}

} // namespace

IgnoredFilesDialog::IgnoredFilesDialog(const ReceiptStore *store, AppState *appState, QWidget *parent)
    : QDialog(parent)
    , store_(store)
    , appState_(appState)
    , files_(new QStandardItemModel(this))
    , sorted_(new QSortFilterProxyModel(this))
    , table_(new QTableView(this))
    //: A button: lets the selected files be read again.
    , restore_(new QPushButton(tr("Restore"), this)) {
    setObjectName(u"ignoredFiles"_s);
    setWindowTitle(tr("Ignored Files"));
    resize(ignoredFilesSize);
    sorted_->setSourceModel(files_);
    sorted_->setSortRole(valueRole);
    layOut();
    fill();
    table_->sortByColumn(dateColumn, Qt::DescendingOrder);
    connect(store, &ReceiptStore::ignoredPathsChanged, this, &IgnoredFilesDialog::fill);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &IgnoredFilesDialog::enable);
    connect(restore_, &QPushButton::clicked, this, &IgnoredFilesDialog::restore);
}

void IgnoredFilesDialog::layOut() {
    auto *const explanation =
        new QLabel(tr("Fennick does not read these files, because they have left the list. Files that you "
                      "restore are read again if they lie in the watched folder."));
    explanation->setWordWrap(true);
    table_->setModel(sorted_);
    table_->setObjectName(u"ignoredFilesTable"_s);
    table_->setAccessibleName(tr("Ignored Files"));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSortingEnabled(true);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideMiddle);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    restore_->setObjectName(u"restoreFiles"_s);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->addButton(restore_, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(table_, 1);
    layout->addWidget(buttons);
}

// All at once: the views hear of one new model, not of each path.
void IgnoredFilesDialog::fill() {
    files_->clear();
    QList<QStandardItem *> paths;
    QList<QStandardItem *> dates;
    for (const QString &path : store_->ignoredPaths()) {
        const auto date = appState_->ignoredDates().date(path);
        auto *const item = makeItem(path, path);
        item->setToolTip(plainToolTip(displayText(path)));
        paths.append(item);
        dates.append(
            makeItem(date ? QLocale::system().toString(date->toLocalTime(), QLocale::ShortFormat) : QString(),
                     date.value_or(QDateTime())));
    }
    files_->setColumnCount(0);
    files_->appendColumn(paths);
    files_->appendColumn(dates);
    files_->setHorizontalHeaderLabels({tr("File"), tr("Ignored Since")});
    table_->horizontalHeader()->setSectionResizeMode(pathColumn, QHeaderView::Stretch);
    table_->horizontalHeader()->setSectionResizeMode(dateColumn, QHeaderView::ResizeToContents);
    sorted_->sort(table_->horizontalHeader()->sortIndicatorSection(),
                  table_->horizontalHeader()->sortIndicatorOrder());
    enable();
}

void IgnoredFilesDialog::restore() {
    QStringList paths;
    const QModelIndexList rows = table_->selectionModel()->selectedRows(pathColumn);
    for (const QModelIndex &row : rows) {
        paths.append(row.data(valueRole).toString());
    }
    appState_->restoreIgnored(paths);
}

void IgnoredFilesDialog::enable() {
    restore_->setEnabled(table_->selectionModel() != nullptr && table_->selectionModel()->hasSelection());
}

} // namespace fennick
