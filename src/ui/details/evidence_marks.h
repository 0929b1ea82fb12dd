#pragma once

#include <QObject>

namespace fennick {

class EvidenceSearch;
class PageView;
class ReceiptForm;

// Shows in the details window where values stand: as marks on the pages, which lead to the fields and back,
// and as words beside the fields whose values are nowhere. A field that was edited has neither until it is
// saved. Borrows all three; owned by the details window.
class EvidenceMarks : public QObject {
    Q_OBJECT

public:
    EvidenceMarks(const EvidenceSearch *search, ReceiptForm *form, PageView *pages, QObject *parent);

private:
    void refresh();

    const EvidenceSearch *search_;
    ReceiptForm *form_;
    PageView *pages_;
};

} // namespace fennick
