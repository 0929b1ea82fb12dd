#include "desktop_test_case.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray listOfOne(const QString &path) {
    return QJsonDocument(QJsonArray{QJsonObject{{u"id"_s, u"00000000-0000-4000-8000-000000000001"_s},
                                                {u"fileName"_s, u"a.pdf"_s},
                                                {u"filePath"_s, path},
                                                {u"category"_s, u"misc"_s},
                                                {u"summary"_s, u"A receipt."_s},
                                                {u"scannedAt"_s, u"2024-05-01T12:30:00Z"_s},
                                                {u"status"_s, u"done"_s},
                                                {u"addedToPhotos"_s, false}}})
        .toJson();
}

} // namespace

// The program in the hands of somebody without a mouse.
class KeyboardTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        writeFile(session().home.receiptsFile(), listOfOne(session().path(u"a.pdf"_s)));
        session().drop(u"a.pdf"_s);
        installOpener();
        session().program.start(environment_);
        QVERIFY(waitFor([] {
            const auto window = VirtualDesktop::window(mainTitle);
            return window && VirtualDesktop::isActive(*window);
        }));
    }

    void cleanup() { session().program.kill(); }

    void tabReachesEveryControlOfTheMainWindow() {
        const QSet<QString> reached = focusedOnTheWayOfTab(mainTitle, 12);
        for (const QString &each : {u"push button: Choose Folder"_s, u"button menu: Export"_s,
                                    u"button menu: Archive & Clear"_s, u"push button: Clear All"_s}) {
            QVERIFY2(reached.contains(each), qPrintable(each));
        }
        QVERIFY(std::any_of(reached.begin(), reached.end(), [](const QString &each) {
            return each.startsWith(u"cell: "_s) || each == u"table: Receipts"_s;
        }));
    }

    void tabReachesEveryControlOfTheSettings() {
        press(u"ctrl+comma"_s);
        QVERIFY(waitFor([] { return VirtualDesktop::window(settingsTitle).has_value(); }));
        const QSet<QString> reached = focusedOnTheWayOfTab(settingsTitle, 16);
        for (const QString &each :
             {u"push button: Choose…"_s, u"text: API Key"_s, u"push button: Save Key"_s, u"text: Model"_s,
              u"check box: Add receipts to Photos"_s, u"check box: Launch at login"_s,
              u"check box: Run in menu bar (hide Dock icon)"_s}) {
            QVERIFY2(reached.contains(each), qPrintable(each));
        }
    }

    void enterOpensTheSelectedReceipt() {
        press(u"Tab"_s); // until a row is selected
        for (int stop = 0; stop < 12 && !isRowFocused(); ++stop) {
            press(u"Tab"_s);
        }
        QVERIFY(isRowFocused());
        press(u"Return"_s);
        QVERIFY(waitFor([this] { return QFileInfo(opened_).size() > 0; })); // it is made before it is written
        QCOMPARE(QString::fromUtf8(readFile(opened_)).trimmed(), session().path(u"a.pdf"_s));
    }

    void menuBarIsOpenedByItsKey() {
        press(u"alt+f"_s);
        QVERIFY(waitFor([] { return VirtualDesktop::isMenuOpen(); }));
        VirtualDesktop::pressForMenu({u"Escape"_s});
        QVERIFY(waitFor([] { return !VirtualDesktop::isMenuOpen(); }));
    }

    void rowMenuIsOpenedByItsKey() {
        for (int stop = 0; stop < 12 && !isRowFocused(); ++stop) {
            press(u"Tab"_s);
        }
        press(u"Menu"_s);
        QVERIFY(waitFor([] { return VirtualDesktop::isMenuOpen(); }));
        VirtualDesktop::pressForMenu({u"Escape"_s});
    }

private:
    // A program for files that writes down what it was asked to open.
    void installOpener() {
        const QString folder = session().home.path(u"bin"_s);
        opened_ = session().home.path(u"opened"_s);
        QFile::remove(opened_);
        const QString script = folder + u"/xdg-open"_s;
        writeFile(script, "#!/bin/sh\nprintf '%s' \"$1\" | sed 's,^file://,,' >'" + opened_.toUtf8() + "'\n");
        QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert(u"PATH"_s, folder + u':' + environment_.value(u"PATH"_s));
    }

    bool waitFor(const std::function<bool()> &condition) const { return session().waitFor(condition); }

    static void press(const QString &keys) {
        QVERIFY(VirtualDesktop::press(*VirtualDesktop::window(mainTitle), keys));
    }

    std::optional<Accessible> focused(const QString &window) const {
        const QList<Accessible> all = accessibility().elements(window);
        const auto found = std::find_if(all.begin(), all.end(), [this](const Accessible &each) {
            return each.role != u"frame" && accessibility().hasFocus(each);
        });
        return found == all.end() ? std::nullopt : std::optional(*found);
    }

    bool isRowFocused() const {
        const auto element = focused(mainTitle);
        return element && (element->role == u"cell" || element->role == u"table");
    }

    // Role and name of what has the focus at the start and after each press of Tab.
    QSet<QString> focusedOnTheWayOfTab(const QString &window, int presses) const {
        QSet<QString> reached;
        for (int stop = 0; stop <= presses; ++stop) {
            if (const auto element = focused(window)) {
                reached.insert(element->role + u": "_s + element->name);
            }
            VirtualDesktop::press(*VirtualDesktop::window(window), u"Tab"_s);
        }
        return reached;
    }

    QProcessEnvironment environment_;
    QString opened_;
};

int keyboard_test(int argc, char **argv) {
    return runTest<QCoreApplication, KeyboardTest>(argc, argv);
}
#include "keyboard_test.moc"
