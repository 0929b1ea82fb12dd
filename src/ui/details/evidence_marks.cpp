#include "ui/details/evidence_marks.h"

#include "pipeline/evidence_search.h"
#include "ui/details/page_view.h"
#include "ui/details/receipt_form.h"

namespace fennick {

EvidenceMarks::EvidenceMarks(const EvidenceSearch *search, ReceiptForm *form, PageView *pages,
                             QObject *parent)
    : QObject(parent)
    , search_(search)
    , form_(form)
    , pages_(pages) {
    connect(search, &EvidenceSearch::changed, this, &EvidenceMarks::refresh);
    connect(form, &ReceiptForm::edited, this, &EvidenceMarks::refresh);
    connect(form, &ReceiptForm::shown, this, &EvidenceMarks::refresh);
    connect(form, &ReceiptForm::fieldEntered, pages, &PageView::emphasise);
    connect(pages, &PageView::markClicked, form, &ReceiptForm::focusField);
}

void EvidenceMarks::refresh() {
    const TypedFields typed = form_->typed();
    std::map<ReceiptField, PlaceOnPage> places;
    std::set<ReceiptField> missing;
    for (const ReceiptField field : receiptFields) {
        if (typed.contains(field)) {
            continue;
        }
        if (const auto place = search_->places().find(field); place != search_->places().end()) {
            places.insert(*place);
        }
        if (search_->isMissing(field)) {
            missing.insert(field);
        }
    }
    pages_->showMarks(places);
    form_->showMissing(missing);
}

} // namespace fennick
