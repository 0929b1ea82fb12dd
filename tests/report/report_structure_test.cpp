#include "report/report_writer.h"
#include "report_under_test.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"

#include <QFile>
#include <QGuiApplication>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// How a report is put together: its table, the order of its pages, bookmarks, links and the ledger.
class ReportStructureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<TemporaryHome>(); }

    void receiptsFollowTheTableInOrder() {
        MadeReport report(threeReceipts());
        QVERIFY(report.isWritten());
        QCOMPARE(report.pages().size(), std::size_t{1 + 2 + 1 + 3});
        QCOMPARE(report.firstPageOf(0), 1);
        QCOMPARE(report.firstPageOf(1), 3);
        QCOMPARE(report.firstPageOf(2), 4);
        QCOMPARE(report.complaints(), QByteArray());
    }

    void tableSaysAllInRealText() {
        const MadeReport report(threeReceipts());
        const QString text = report.textOf(0);
        for (const QString &expected :
             {u"Receipts"_s, u"Jane Doe"_s, u"Shop 3"_s, u"2024-05-01"_s, u"Totals"_s, u"USD"_s}) {
            QVERIFY2(text.contains(expected), qPrintable(text));
        }
    }

    void everyPageSaysWhichReceiptItIs() {
        const MadeReport report(threeReceipts());
        QVERIFY(report.textOf(1).contains(u"No. 1 · Shop 1"));
        QVERIFY(report.textOf(2).contains(u"No. 1 · Shop 1"));
        QVERIFY(report.textOf(3).contains(u"No. 2 · Shop 2"));
        QVERIFY(report.textOf(6).contains(u"No. 3 · Shop 3"));
    }

    void bookmarksNameTheTableAndEachReceipt() {
        MadeReport report(threeReceipts());
        QPDFObjectHandle bookmarks = report.document().getRoot().getKey("/Outlines");
        QStringList titles;
        for (auto mark = bookmarks.getKey("/First"); mark.isDictionary(); mark = mark.getKey("/Next")) {
            titles.append(QString::fromStdString(mark.getKey("/Title").getUTF8Value()));
        }
        QCOMPARE(titles,
                 (QStringList{u"Receipts"_s, u"No. 1 · Shop 1"_s, u"No. 2 · Shop 2"_s, u"No. 3 · Shop 3"_s}));
    }

    void linksLeadBothWays() {
        MadeReport report(threeReceipts());
        QPDFObjectHandle rows = report.pages().at(0).getObjectHandle().getKey("/Annots");
        QCOMPARE(rows.getArrayNItems(), 3);
        for (int receipt = 0; receipt < 3; ++receipt) {
            QPDFObjectHandle row = rows.getArrayItem(receipt);
            const int page = pageIndexOf(report, row.getKey("/Dest"));
            QCOMPARE(page, report.firstPageOf(receipt));
            QPDFObjectHandle back = report.pages()
                                        .at(static_cast<std::size_t>(page))
                                        .getObjectHandle()
                                        .getKey("/Annots")
                                        .getArrayItem(0)
                                        .getKey("/Dest");
            QCOMPARE(pageIndexOf(report, back), 0);
            QCOMPARE(back.getArrayItem(3).getNumericValue(),
                     row.getKey("/Rect").getArrayItem(3).getNumericValue());
        }
    }

    void longTableTakesSeveralPages() {
        const QString receipt = file(u"a.pdf"_s, stripedPdf(1));
        QStringList paths;
        for (int count = 0; count < 100; ++count) {
            paths.append(receipt);
        }
        MadeReport report(descriptionOf(paths));
        const int tablePages = report.firstPageOf(0);
        QVERIFY(tablePages > 1);
        QCOMPARE(report.pages().size(), static_cast<std::size_t>(tablePages + 100));
        QVERIFY(report.textOf(tablePages - 1).contains(u"Place")); // the columns are named again
        QPDFObjectHandle back =
            report.pages().back().getObjectHandle().getKey("/Annots").getArrayItem(0).getKey("/Dest");
        QCOMPARE(pageIndexOf(report, back), tablePages - 1);
        QCOMPARE(report.complaints(), QByteArray());
    }

    void ledgerIsAttachedAsItIs() {
        MadeReport report(threeReceipts());
        QPDFEmbeddedFileDocumentHelper files(report.document());
        const auto ledger = files.getEmbeddedFile("receipts.csv");
        QVERIFY(ledger != nullptr);
        QCOMPARE(ledger->getFilename(), std::string("receipts.csv"));
        const auto content = QPDFEFStreamObjectHelper(ledger->getEmbeddedFileStream()).getObjectHandle();
        const auto data = QPDFObjectHandle(content).getStreamData();
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(data->getBuffer()),
                            static_cast<qsizetype>(data->getSize())),
                 u"Date,Place\n,東京\n"_s.toUtf8());
    }

    void languageAndTitleAreSet() {
        MadeReport report(threeReceipts());
        QPDFObjectHandle root = report.document().getRoot();
        QCOMPARE(root.getKey("/Lang").getUTF8Value(), std::string("en"));
        QCOMPARE(report.document().getTrailer().getKey("/Info").getKey("/Title").getUTF8Value(),
                 std::string("Receipts"));
        QVERIFY(root.getKey("/ViewerPreferences").getKey("/DisplayDocTitle").getBoolValue());
    }

    void fullDiskIsNoticed() {
        const ReportDescription description = threeReceipts();
        QFile full(u"/dev/full"_s);
        QVERIFY(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        ReportWriter writer(&description, &full);
        int told = 0;
        QVERIFY(!writer.write([&told](const ReportProgress &) { ++told; }));
        QVERIFY(told <= 1); // nothing more is opened
    }

    void veryLongTextsAreCut() {
        ReportDescription description = threeReceipts();
        description.rows[0].cells[4] = u"word "_s.repeated(100'000);
        description.rows[1].cells[2] = QString(50'000, u'x');
        description.rows[2].line = QString(50'000, u'W');
        MadeReport report(description);
        QVERIFY(report.isWritten());
        QCOMPARE(report.firstPageOf(0), 1);
        QCOMPARE(report.complaints(), QByteArray());
    }

    void scriptsOfTheWorldAreText() {
        ReportDescription description = threeReceipts();
        description.rows[0].cells[2] = u"Кафе Пушкин"_s;
        description.rows[1].line = u"No. 2 · Ταβέρνα"_s;
        const MadeReport report(description);
        QVERIFY(report.textOf(0).contains(u"Кафе Пушкин"));
        QVERIFY(report.textOf(3).contains(u"Ταβέρνα"));
    }

private:
    ReportDescription threeReceipts() {
        return descriptionOf({file(u"a.pdf"_s, stripedPdf(2)), file(u"b.pdf"_s, stripedPdf(1)),
                              file(u"c.pdf"_s, stripedPdf(3))});
    }

    QString file(const QString &name, const QByteArray &content) const {
        const QString path = home_->path(name);
        writeFile(path, content);
        return path;
    }

    std::unique_ptr<TemporaryHome> home_;
};

int report_structure_test(int argc, char **argv) {
    return runTest<QGuiApplication, ReportStructureTest>(argc, argv);
}
#include "report_structure_test.moc"
