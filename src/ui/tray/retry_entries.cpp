#include "ui/tray/retry_entries.h"

#include "pipeline/retry_all.h"

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

RetryEntries::RetryEntries(RetryAll *retries, QMenu *menu, QAction *before)
    : QObject(menu)
    , retries_(retries)
    , menu_(menu)
    , before_(before)
    , progress_(new QAction(this))
    , stop_(new QAction(tr("Stop Retrying"), this)) {
    progress_->setObjectName(u"retryProgress"_s);
    progress_->setEnabled(false);
    stop_->setObjectName(u"menuStopRetrying"_s);
    connect(stop_, &QAction::triggered, retries, &RetryAll::stop);
    connect(retries, &RetryAll::changed, this, &RetryEntries::show);
    show();
}

QString RetryEntries::progressText(const RetryAll &retries) {
    const int current = std::min(retries.finishedCount() + 1, retries.totalCount());
    //: %1 is the number of the receipt under way, %2 how many there are.
    return tr("Retrying %1 of %2").arg(current).arg(retries.totalCount());
}

// At other times the menu is as it always was.
void RetryEntries::show() {
    if (!retries_->isUnderWay()) {
        menu_->removeAction(progress_);
        menu_->removeAction(stop_);
        return;
    }
    progress_->setText(progressText(*retries_));
    if (!menu_->actions().contains(progress_)) {
        menu_->insertActions(before_, {progress_, stop_});
    }
}

} // namespace fennick
