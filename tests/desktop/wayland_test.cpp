#include "desktop_test_case.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString compositorTitle = u"Weston Compositor - screen0"_s;

} // namespace

// The program under a Wayland compositor, which lies in a window of the desktop so that keys can be pressed.
// What the program does with its windows is read from the protocol's own log of messages.
class WaylandTest : public DesktopTestCase {
    Q_OBJECT

protected:
    QStringList missingPrograms() const override {
        const bool hasWeston = !QStandardPaths::findExecutable(u"weston"_s).isEmpty();
        return hasWeston ? QStringList() : QStringList(u"weston"_s);
    }

    void prepare() override {
        compositor_.setProcessChannelMode(QProcess::MergedChannels);
        compositor_.start(u"weston"_s, {u"--backend=x11-backend.so"_s, u"--socket=fennick-test"_s,
                                        u"--width=1200"_s, u"--height=800"_s, u"--idle-time=0"_s});
        const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/fennick-test"_s;
        QVERIFY2(
            waitUntil([&] { return QFileInfo::exists(socket) && VirtualDesktop::window(compositorTitle); }),
            compositor_.readAll().constData());
    }

    void putAway() override {
        compositor_.terminate();
        compositor_.waitForFinished(patience);
    }

private Q_SLOTS:
    void init() {
        session().renew();
        log_.clear();
    }

    void cleanup() { session().program.kill(); }

    void closedWindowIsMinimisedAndShownAnewByASecondStart() {
        session().program.start(loggingEnvironment());
        QVERIFY(hasSent("get_toplevel", 1));
        QVERIFY(hasKeyboard());
        QVERIFY2(isMinimisedByTheKey(), log_.right(3000).constData());
        FennickProgram second;
        second.start(environment());
        QVERIFY2(second.endsWithSuccess(), second.takeOutput().constData());
        QVERIFY(hasSent("get_toplevel", 2));
        QVERIFY(session().program.isRunning());
    }

    void secondStartLeavesAnOpenWindowWhereItIs() {
        session().program.start(loggingEnvironment());
        QVERIFY(hasSent("attach", 1));
        FennickProgram second;
        second.start(environment());
        QVERIFY2(second.endsWithSuccess(), second.takeOutput().constData());
        session().drop(u"a.pdf"_s); // by its end, whatever the second start asked for is done
        QVERIFY(session().waitForRows(1, u"done"_s));
        QVERIFY(hasSent("get_toplevel", 1));
        QCOMPARE(log_.count(".get_toplevel("), 1);
    }

private:
    static QProcessEnvironment environment() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        environment.insert(u"WAYLAND_DISPLAY"_s, u"fennick-test"_s);
        return environment;
    }

    static QProcessEnvironment loggingEnvironment() {
        QProcessEnvironment logging = environment();
        logging.insert(u"WAYLAND_DEBUG"_s, u"client"_s);
        return logging;
    }

    // Waits until the program has sent the message at least `count` times.
    bool hasSent(const QByteArray &message, qsizetype count, int milliseconds = patience) {
        return session().waitFor(
            [&] {
                log_ += session().program.takeOutput();
                return log_.count('.' + message + '(') >= count;
            },
            milliseconds);
    }

    // The nested compositor now and then loses a key that comes while it gets the focus of the outer one: as
    // a person does, it is pressed again.
    bool isMinimisedByTheKey() {
        constexpr int pressesAtMost = 20;
        for (int press = 0; press < pressesAtMost; ++press) {
            if (!VirtualDesktop::press(*VirtualDesktop::window(compositorTitle), u"ctrl+w"_s)) {
                return false;
            }
            if (hasSent("set_minimized", 1, patience / pressesAtMost)) {
                return true;
            }
        }
        return false;
    }

    // Waits until the keys pressed go to the program: some time after its window is on the screen.
    bool hasKeyboard() {
        static const QRegularExpression enter(uR"(wl_keyboard[@#]\d+\.enter\()"_s);
        return session().waitFor([&] {
            log_ += session().program.takeOutput();
            return QString::fromUtf8(log_).contains(enter);
        });
    }

    QProcess compositor_;
    QByteArray log_;
};

int wayland_test(int argc, char **argv) {
    return runTest<QCoreApplication, WaylandTest>(argc, argv);
}
#include "wayland_test.moc"
