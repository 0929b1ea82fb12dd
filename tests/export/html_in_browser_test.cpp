#include "export/export_service.h"
#include "export/headless_browser.h"
#include "export/ledger_fixtures.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QColor>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using ColourScheme = HeadlessBrowser::ColourScheme;

namespace {

// Asks the page what became of it, and leaves the answer as an attribute in the DOM.
const QByteArray probe = R"(<script>
const texts = (selector) => [...document.querySelectorAll(selector)].map((element) => element.textContent);
const answer = {
  cells: [...document.querySelectorAll("tbody tr")].map((row) => [...row.cells].map((cell) => cell.textContent)),
  columns: texts("thead th"),
  total: texts(".total").join("|"),
  exported: texts(".meta").join("|"),
  title: document.title,
  elementsInBody: [...new Set([...document.body.querySelectorAll("*")].map((element) => element.localName))].sort(),
  scripts: document.scripts.length,
  attributes: [...new Set([...document.body.querySelectorAll("*")].flatMap((element) => element.getAttributeNames()))],
  attacked: window.attacked === true,
};
document.documentElement.dataset.answer = btoa(unescape(encodeURIComponent(JSON.stringify(answer))));
</script>
</body>)";

QJsonObject answerIn(const QByteArray &dom) {
    static const QRegularExpression pattern(u"data-answer=\"([^\"]*)\""_s);
    const QString encoded = pattern.match(QString::fromUtf8(dom)).captured(1);
    return QJsonDocument::fromJson(QByteArray::fromBase64(encoded.toLatin1())).object();
}

// Everything in it would run, load or leave its cell if it were taken for markup.
const QString hostileText =
    u"</td></tr></table></div><script>window.attacked=true;console.error('attacked')</script>"
    "<img src=x onerror=\"window.attacked=true\"><svg/onload=window.attacked=true>"
    "\" onmouseover=\"window.attacked=true\" ' autofocus onfocus='window.attacked=true' "
    "<iframe srcdoc=\"<script>parent.attacked=true</script>\"></iframe>"
    "<!-- --><![CDATA[ &lt;script&gt; &amp;#60; &#60;b&#62; <style>*{display:none}</style>"
    "</title></style></body></html> javascript:window.attacked=true `${window.attacked=true}`"_s;

Receipt hostileReceipt() {
    Receipt receipt = freshReceipt(u"/receipts/a.pdf"_s);
    receipt.fileName = hostileText;
    receipt.date = receipt.time = receipt.location = receipt.currency = hostileText;
    receipt.category = receipt.summary = hostileText;
    receipt.amount = 1;
    return receipt;
}

} // namespace

class HtmlInBrowserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!HeadlessBrowser::isInstalled()) {
            QSKIP(
                "Chromium is not installed (Debian package chromium): the HTML ledger was not opened in it");
        }
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }
    void cleanupTestCase() { QLocale::setDefault(QLocale::c()); }

    // Without this, the tests that want no messages would pass on any page.
    void messagesOfAPageAreSeen() {
        writeFile(path(),
                  "<!doctype html><title>t</title><script>console.error('seen'); undefined.x;</script>");
        const auto page = browser_.open(path());
        QVERIFY(page.isLoaded);
        QCOMPARE(page.consoleMessages.filter(u"seen"_s).size(), 1);
        QCOMPARE(page.consoleMessages.filter(u"TypeError"_s).size(), 1);
    }

    void pageLoadsWithoutAMessage_data() {
        QTest::addColumn<ColourScheme>("scheme");
        QTest::newRow("light") << ColourScheme::light;
        QTest::newRow("dark") << ColourScheme::dark;
    }
    void pageLoadsWithoutAMessage() {
        QFETCH(ColourScheme, scheme);
        QVERIFY(ExportService::writeLedger(batch(), ExportService::Format::html, path()));
        const auto page = browser_.open(path(), scheme);
        QVERIFY(page.isLoaded);
        QCOMPARE(page.consoleMessages, QStringList());
        QCOMPARE(page.dom.count("<tr>"), 1 + batch().size());
        QVERIFY(page.dom.contains("<div class=\"total\">Total: 6270.50</div>"));
    }

    void readerSeesTheReceiptsAndTheirTotal() {
        const QJsonObject answer = answerOf(batch());
        QCOMPARE(answer[u"columns"].toArray(),
                 QJsonArray::fromStringList({u"Date"_s, u"Time"_s, u"Amount"_s, u"Location"_s, u"Category"_s,
                                             u"Summary"_s, u"File"_s}));
        const QJsonArray rows = answer[u"cells"].toArray();
        QCOMPARE(rows.size(), batch().size());
        QCOMPARE(rows[2].toArray(),
                 QJsonArray::fromStringList({u"2024-05-02"_s, u"—"_s, u"€12.50"_s,
                                             u"Bar & <b>Grill</b> \"Zur Post\""_s, u"dinner"_s,
                                             u"Soup &amp; salad, \"for two\""_s, u"bar, & grill.jpg"_s}));
        QCOMPARE(answer[u"total"].toString(), u"Total: 6270.50"_s);
        QVERIFY(answer[u"exported"].toString().endsWith(u" · 5 receipts"_s));
        QVERIFY(answer[u"title"].toString().startsWith(u"Receipts — "_s));
    }

    void emptyLedgerHasNoRows() {
        const QJsonObject answer = answerOf({});
        QVERIFY(answer[u"cells"].isArray());
        QVERIFY(answer[u"cells"].toArray().isEmpty());
        QCOMPARE(answer[u"total"].toString(), u"Total: 0.00"_s);
        QVERIFY(answer[u"exported"].toString().endsWith(u" · 0 receipts"_s));
    }

    void markupInReceiptsIsInertText() {
        const QJsonObject answer = answerOf({hostileReceipt(), hostileReceipt()});
        const QJsonArray rows = answer[u"cells"].toArray();
        QCOMPARE(rows.size(), 2);
        QJsonArray expected;
        for (int column = 0; column < 7; ++column) {
            expected.append(column == 2 ? u"1.00"_s : hostileText);
        }
        QCOMPARE(rows[0].toArray(), expected);
        QCOMPARE(rows[1].toArray(), expected);
        QCOMPARE(answer[u"attacked"].toBool(true), false);
        QCOMPARE(answer[u"scripts"].toInt(), 1); // the probe itself
        QCOMPARE(answer[u"elementsInBody"].toArray(),
                 QJsonArray::fromStringList({u"div"_s, u"h1"_s, u"script"_s, u"table"_s, u"tbody"_s, u"td"_s,
                                             u"th"_s, u"thead"_s, u"tr"_s}));
        QCOMPARE(answer[u"attributes"].toArray(), QJsonArray{u"class"_s});
    }

    void hostileReceiptsLoadWithoutAMessage() {
        QVERIFY(ExportService::writeLedger({hostileReceipt()}, ExportService::Format::html, path()));
        const auto page = browser_.open(path());
        QVERIFY(page.isLoaded);
        QCOMPARE(page.consoleMessages, QStringList());
        QVERIFY(!page.dom.contains("<script"));
        QVERIFY(!page.dom.contains("<img"));
        QCOMPARE(page.dom.count("<tr>"), 2);
    }

    void colourSchemeFollowsTheReader() {
        QVERIFY(ExportService::writeLedger(batch(), ExportService::Format::html, path()));
        const QImage light = browser_.screenshot(path(), ColourScheme::light);
        const QImage dark = browser_.screenshot(path(), ColourScheme::dark);
        QVERIFY(!light.isNull());
        QVERIFY(!dark.isNull());
        const QPoint margin(5, 5);
        QCOMPARE(light.pixelColor(margin), QColor(0xff, 0xff, 0xff));
        QCOMPARE(dark.pixelColor(margin), QColor(0x1d, 0x1d, 0x1f));
        QVERIFY(textPixels(light) > 1000);
        QVERIFY(textPixels(dark) > 1000);
    }

    void tenThousandReceiptsLoad() {
        constexpr int count = 10000;
        QVERIFY(ExportService::writeLedger(manyReceipts(count), ExportService::Format::html, path()));
        const auto page = browser_.open(path());
        QVERIFY(page.isLoaded);
        QCOMPARE(page.consoleMessages, QStringList());
        QCOMPARE(page.dom.count("<tr>"), count + 1);
        QVERIFY(page.dom.contains(" · 10000 receipts</div>"));
        // 25 times each amount from 0.00 to 99.75 in steps of 0.25.
        QVERIFY(page.dom.contains("<div class=\"total\">Total: 498750.00</div>"));
    }

private:
    // What the browser makes of the ledger of these receipts, by the probe.
    QJsonObject answerOf(const QList<Receipt> &receipts) {
        QByteArray html = ExportService::buildHTML(receipts).toUtf8();
        html.replace("</body>\n</html>\n", probe + "\n</html>\n");
        writeFile(path(), html);
        return answerIn(browser_.open(path()).dom);
    }

    QString path() const { return home_.path(u"ledger.html"_s); }

    // Pixels that are neither background nor nearly so.
    static int textPixels(const QImage &picture) {
        const int background = qGray(picture.pixel(5, 5));
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += qAbs(qGray(picture.pixel(x, y)) - background) > 80 ? 1 : 0;
            }
        }
        return count;
    }

    TemporaryHome home_;
    HeadlessBrowser browser_;
};

int html_in_browser_test(int argc, char **argv) {
    return runTest<QCoreApplication, HtmlInBrowserTest>(argc, argv);
}
#include "html_in_browser_test.moc"
