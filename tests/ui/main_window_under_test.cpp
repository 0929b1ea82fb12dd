#include "main_window_under_test.h"

#include <QDir>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

namespace fennick::test {

void MainWindowUnderTest::renew() {
    QDir(home.path(u"data/Fennick"_s)).removeRecursively();
    QDir(home.path(u"config/Fennick"_s)).removeRecursively();
    watched = home.path(u"watched"_s);
    QDir(watched).removeRecursively();
    QDir().mkpath(watched);
    settings = std::make_unique<SettingsStore>();
    store = std::make_unique<ReceiptStore>();
    appState = std::make_unique<AppState>(store.get(), settings.get());
    window = std::make_unique<MainWindow>(store.get(), settings.get(), appState.get());
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void MainWindowUnderTest::close() {
    window.reset();
    appState.reset();
}

QString MainWindowUnderTest::addFile(const QString &name) const {
    const QString path = watched + u'/' + name;
    writeFile(path, "x");
    return path;
}

QStringList MainWindowUnderTest::menuTexts(const char *name) const {
    QStringList texts;
    const auto items = button(name)->menu()->actions();
    for (const QAction *const item : items) {
        texts.append(item->text());
    }
    return texts;
}

} // namespace fennick::test
