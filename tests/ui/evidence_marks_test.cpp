#include "extraction/on_device_engine.h"
#include "pipeline/evidence_search.h"
#include "pipeline/folder_threads.h"
#include "pipeline/last_error.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/details/evidence_marks.h"
#include "ui/details/page_canvas.h"
#include "ui/details/page_view.h"
#include "ui/details/receipt_form.h"
#include "ui/widgets/caption_label.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>

#include <cmath>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// Of WCAG 2: at least 3 for what must stand out from its surroundings.
double contrast(const QColor &left, const QColor &right) {
    const auto luminance = [](const QColor &colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double a = luminance(left) + 0.05;
    const double b = luminance(right) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

// A mark on white paper with a black stroke across it.
QImage paintedMark(bool isEmphasised, const QPalette &palette) {
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.fillRect(QRect(0, 28, 100, 4), Qt::black);
    paintMark(painter, QRectF(20, 10, 60, 40), isEmphasised, palette);
    painter.end();
    return image;
}

QPalette paletteWith(const QColor &highlight) {
    QPalette palette;
    palette.setColor(QPalette::Highlight, highlight);
    return palette;
}

} // namespace

// The widgets of the details window together, with the real engine.
class EvidenceMarksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        engine_ = std::make_unique<OnDeviceEngine>(QString::fromUtf8(FENNICK_BIN_DIR "/fennick-engine"));
        search_ = std::make_unique<EvidenceSearch>(&watchedFolder_, &folderThreads_, engine_.get(), &tasks_);
        window_ = std::make_unique<QWidget>();
        form_ = new ReceiptForm(FieldFormats::ofUser());
        pages_ = new PageView;
        auto *const layout = new QHBoxLayout(window_.get());
        layout->addWidget(pages_, 1);
        layout->addWidget(form_);
        new EvidenceMarks(search_.get(), form_, pages_, window_.get());
        window_->resize(800, 500);
        window_->show();
        QVERIFY(QTest::qWaitForWindowActive(window_.get()));
        pages_->showPages({pageFile(u"1.jpg"_s), pageFile(u"2.jpg"_s)});
        pages_->setFocus();
    }
    void cleanup() {
        window_.reset();
        search_.reset();
        engine_.reset();
    }

    void valuesAreMarkedAndMissingOnesSaid() {
        Receipt receipt = ticket();
        receipt.amount = 18.7;
        show(receipt);
        QVERIFY(canvas()->marks().isEmpty());
        QVERIFY(!isSaidMissing("amountField"));
        QVERIFY(waitUntil([this] { return isSaidMissing("amountField"); }));
        QVERIFY(isMarked(ReceiptField::date));
        QVERIFY(isMarked(ReceiptField::location));
        QVERIFY(!isMarked(ReceiptField::amount));
        QVERIFY(!isSaidMissing("dateField"));
        QVERIFY(!isSaidMissing("summaryField")); // the program's own words
        QCOMPARE(missingLabel("amountField")->text(), u"Not found on the page"_s);
        const auto *const accessible = QAccessible::queryAccessibleInterface(line("amountField"));
        QCOMPARE(accessible->text(QAccessible::Description), u"Not found on the page"_s);
        QVERIFY(pages_->accessibleDescription().startsWith(u"Marked: Date"_s));
    }

    void editedFieldHasNeitherMarkNorWords() {
        Receipt receipt = ticket();
        receipt.amount = 18.7;
        show(receipt);
        QVERIFY(waitUntil([this] { return isSaidMissing("amountField"); }));
        line("amountField")->setText(u"18.6"_s);
        QVERIFY(!isSaidMissing("amountField"));
        QCOMPARE(line("amountField")->accessibleDescription(), QString());
        line("dateField")->setText(u"2024-01-01"_s);
        QVERIFY(!isMarked(ReceiptField::date));
        form_->showReceipt(receipt, {}); // as it was
        QVERIFY(isSaidMissing("amountField"));
        QVERIFY(isMarked(ReceiptField::date));
    }

    void whatIsWrongIsDescribedFirst() {
        Receipt receipt = ticket();
        form_->showReceipt(receipt, {});
        form_->showMissing({ReceiptField::amount});
        form_->showProblems(
            {{ReceiptField::amount, FieldProblem{FieldProblem::Kind::unclearAmount, u"x"_s}}});
        const QString problem = line("amountField")->accessibleDescription();
        QVERIFY(!problem.isEmpty() && problem != u"Not found on the page"_s);
    }

    void fieldShowsItsPlace() {
        pages_->showMarks({{ReceiptField::date, {0, QRectF(0.1, 0.1, 0.2, 0.02)}},
                           {ReceiptField::amount, {1, QRectF(0.7, 0.95, 0.2, 0.02)}}});
        QCOMPARE(pages_->page(), 0);
        pages_->zoomIn();
        pages_->zoomIn();
        line("amountField")->setFocus(Qt::TabFocusReason);
        QCOMPARE(pages_->page(), 1);
        QVERIFY(isInView(ReceiptField::amount));
        pages_->horizontalScrollBar()->setValue(0);
        pages_->showPreviousPage();
        QTest::mouseClick(line("amountField"), Qt::LeftButton); // although it has the focus
        QCOMPARE(pages_->page(), 1);
        QVERIFY(isInView(ReceiptField::amount));
        line("dateField")->setFocus(Qt::TabFocusReason);
        QCOMPARE(pages_->page(), 0);
        QVERIFY(isInView(ReceiptField::date));
        line("timeField")->setFocus(Qt::TabFocusReason); // which has no place
        QCOMPARE(pages_->page(), 0);
    }

    void placeIsShownAsSoonAsItIsKnown() {
        line("amountField")->setFocus(Qt::TabFocusReason);
        QCOMPARE(pages_->page(), 0);
        pages_->showMarks({{ReceiptField::amount, {1, QRectF(0.7, 0.95, 0.2, 0.02)}}});
        QCOMPARE(pages_->page(), 1);
        pages_->showPreviousPage();
        pages_->showMarks({{ReceiptField::amount, {1, QRectF(0.7, 0.95, 0.2, 0.02)}}});
        QCOMPARE(pages_->page(), 0); // it was known
    }

    void clickOnAMarkGoesToItsField() {
        pages_->showMarks({{ReceiptField::location, {0, QRectF(0.1, 0.05, 0.8, 0.1)}},
                           {ReceiptField::amount, {0, QRectF(0.7, 0.05, 0.1, 0.05)}}});
        clickOn(QPointF(0.2, 0.1));
        QVERIFY(line("locationField")->hasFocus());
        clickOn(QPointF(0.75, 0.07)); // where both are
        QVERIFY(line("amountField")->hasFocus());
        QSignalSpy clicks(pages_, &PageView::markClicked);
        clickOn(QPointF(0.5, 0.3));
        QVERIFY(clicks.isEmpty());
    }

    void marksKeepTheirPlaceAtEverySize() {
        pages_->showMarks({{ReceiptField::amount, {0, QRectF(0.5, 0.25, 0.25, 0.1)}}});
        for (int step = 0; step < 3; ++step) {
            const QSize page = canvas()->size();
            const QPointF middle = canvas()->marks().first().frameOn(page).center();
            QVERIFY(std::abs(middle.x() - 0.625 * page.width()) < 1);
            QVERIFY(std::abs(middle.y() - 0.3 * page.height()) < 1);
            pages_->zoomIn();
        }
    }

    void marksOfOtherPagesAreGone() {
        show(ticket());
        QVERIFY(waitUntil([this] { return isMarked(ReceiptField::amount); }));
        search_->clear();
        QVERIFY(canvas()->marks().isEmpty());
        QVERIFY(pages_->accessibleDescription().isEmpty());
    }

    void markCanBeSeenAndPrintRead_data() {
        QTest::addColumn<QColor>("highlight");
        QTest::newRow("light theme") << QColor(0x30, 0x8C, 0xC6);
        QTest::newRow("dark theme") << QColor(0x9F, 0xC5, 0xF8);
        QTest::newRow("yellow") << QColor(Qt::yellow);
        QTest::newRow("grey") << QColor(0xC0, 0xC0, 0xC0);
        QTest::newRow("black") << QColor(Qt::black);
    }
    void markCanBeSeenAndPrintRead() {
        QFETCH(QColor, highlight);
        for (const bool isEmphasised : {false, true}) {
            const QImage image = paintedMark(isEmphasised, paletteWith(highlight));
            QCOMPARE(image.pixelColor(50, 30), QColor(Qt::black));
            const QColor paper = image.pixelColor(50, 20);
            QVERIFY(paper != QColor(Qt::white));
            QVERIFY2(contrast(paper, Qt::black) > 7, qPrintable(paper.name()));
            double best = 1;
            for (int y = 5; y < 15; ++y) {
                best = std::max(best, contrast(image.pixelColor(50, y), Qt::white));
            }
            QVERIFY2(best >= 3, qPrintable(QString::number(best)));
        }
    }

private:
    void show(const Receipt &receipt) {
        form_->showReceipt(receipt, {});
        search_->searchFor(receipt, 1);
    }

    PageCanvas *canvas() const { return qobject_cast<PageCanvas *>(pages_->widget()); }
    QLineEdit *line(const char *objectName) const {
        return form_->findChild<QLineEdit *>(QString::fromLatin1(objectName));
    }
    CaptionLabel *missingLabel(const char *field) const {
        return form_->findChild<CaptionLabel *>(QString::fromLatin1(field) + u"Missing"_s);
    }
    bool isSaidMissing(const char *field) const { return missingLabel(field)->isVisible(); }
    bool isMarked(ReceiptField field) const { return markOf(field) != nullptr; }

    const PageMark *markOf(ReceiptField field) const {
        const QList<PageMark> &marks = canvas()->marks();
        const auto found = std::find_if(marks.begin(), marks.end(),
                                        [field](const PageMark &mark) { return mark.field == field; });
        return found == marks.end() ? nullptr : &*found;
    }

    bool isInView(ReceiptField field) const {
        const PageMark *const mark = markOf(field);
        const QRect view(-canvas()->pos(), pages_->viewport()->size());
        return mark && view.contains(mark->frameOn(canvas()->size()).toRect());
    }

    void clickOn(QPointF place) const {
        QTest::mouseClick(
            canvas(), Qt::LeftButton, {},
            QPoint(qRound(place.x() * canvas()->width()), qRound(place.y() * canvas()->height())));
    }

    QString pageFile(const QString &name) const {
        QImage image(600, 1500, QImage::Format_RGB32);
        image.fill(Qt::white);
        const QString path = home_.path(name);
        image.save(path);
        return path;
    }

    static Receipt ticket() {
        Receipt receipt = freshReceipt(QString::fromUtf8(FENNICK_SOURCE_DIR "/samples/receipts/ticket.pdf"));
        receipt.date = u"2024-05-05"_s;
        receipt.time = u"09:10"_s;
        receipt.amount = 18.6;
        receipt.currency = u"EUR"_s;
        receipt.location = u"Auberge du Marronnier"_s;
        receipt.category = u"breakfast"_s;
        receipt.summary = u"Breakfast at the inn"_s;
        receipt.status = ReceiptStatus::done;
        return receipt;
    }

    TemporaryHome home_;
    LastError lastError_;
    Tasks tasks_{&lastError_};
    FolderThreads folderThreads_;
    WatchedFolder watchedFolder_;
    std::unique_ptr<OnDeviceEngine> engine_;
    std::unique_ptr<EvidenceSearch> search_;
    std::unique_ptr<QWidget> window_;
    ReceiptForm *form_ = nullptr;
    PageView *pages_ = nullptr;
};

int evidence_marks_test(int argc, char **argv) {
    return runTest<QApplication, EvidenceMarksTest>(argc, argv);
}
#include "evidence_marks_test.moc"
