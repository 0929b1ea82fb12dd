#include "desktop_test_case.h"
#include "support/notification_service.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"

#include <QGuiApplication>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

// Somebody makes a PDF report in the built program, by keyboard.
class ReportTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        service_ = std::make_unique<NotificationService>();
    }

    void cleanup() {
        session().program.kill();
        service_.reset();
    }

    void reportIsMadeByKeyboard() {
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        session().drop(u"a.pdf"_s, stripedPdf(2));
        QVERIFY(session().waitForRows(1, u"done"_s));
        const QString first = session().home.path(u"first.pdf"_s);
        user().press(mainTitle, u"ctrl+shift+p"_s);
        user().waitToSee(questionTitle, u"text"_s, u"Name on the report:"_s);
        user().type(questionTitle, u"Jane Doe"_s);
        user().press(questionTitle, u"Return"_s);
        user().answerFileDialog(u"Export Receipts"_s, first);
        QVERIFY(waitForNotice(u"Saved first.pdf"_s));
        QVERIFY(service_->notices().last().actions.contains(u"Show"_s));
        QVERIFY(readFile(first).startsWith("%PDF-1.7"));
        QVERIFY(readFile(first).contains("/Count 3/Kids")); // the table and two pages

        const QString second = session().home.path(u"second.pdf"_s);
        user().press(mainTitle, u"ctrl+shift+p"_s);
        user().answerFileDialog(u"Export Receipts"_s, second);
        QVERIFY(waitForNotice(u"Saved second.pdf"_s));
        QVERIFY(readFile(second).startsWith("%PDF-1.7"));
    }

private:
    const QString questionTitle = u"PDF Report"_s;

    bool waitForNotice(const QString &text) const {
        return session().waitFor([&] {
            const auto &notices = service_->notices();
            return std::ranges::any_of(notices,
                                       [&text](const Notice &notice) { return notice.text.contains(text); });
        });
    }

    std::unique_ptr<NotificationService> service_;
};

int report_test(int argc, char **argv) {
    return runTest<QGuiApplication, ReportTest>(argc, argv);
}
#include "report_test.moc"
