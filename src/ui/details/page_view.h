#pragma once

#include "extraction/value_places.h"
#include "pipeline/typed_fields.h"

#include <QScrollArea>
#include <QStringList>

#include <map>
#include <optional>

class QLabel;

namespace fennick {

class PageCanvas;

// Shows a receipt's pages one at a time, as wide as the view or enlarged. Opens only the JPEG files that it
// is given. Owned by the details window; main thread.
class PageView : public QScrollArea {
    Q_OBJECT

public:
    explicit PageView(QWidget *parent = nullptr);

    // Shows the first of the pages.
    void showPages(const QStringList &files);

    // Shows a sentence in place of pages.
    void showMessage(const QString &text);

    // Marks the places of values on the pages.
    void showMarks(const std::map<ReceiptField, PlaceOnPage> &places);

    qsizetype pageCount() const { return files_.size(); }
    qsizetype page() const { return page_; } // from 0

public Q_SLOTS:
    void showNextPage() { showPage(page_ + 1); }
    void showPreviousPage() { showPage(page_ - 1); }
    void zoomIn();
    void zoomOut();
    void fitWidth();

    // Draws the mark of this field more strongly and brings it into view, as soon as there is one.
    void emphasise(ReceiptField field);

Q_SIGNALS:
    void markClicked(ReceiptField field);

    // Another page, or other pages, are shown.
    void pageChanged();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showPage(qsizetype page);
    void showMarksOfPage();
    void showEmphasised();
    void zoomTo(double zoom);
    void layOutPage();
    QSize fittedPage() const;

    PageCanvas *canvas_;
    QLabel *message_;
    QStringList files_;
    std::map<ReceiptField, PlaceOnPage> places_;
    std::optional<ReceiptField> emphasised_;
    qsizetype page_ = 0;
    double zoom_ = 1; // of the page that is as wide as the view
};

} // namespace fennick
