// list_view_benchmark: how long the window's list of 50,000 receipts takes to show a changed row, to scroll
// on by a page and to show what a key typed in the line of Find leaves of it, in milliseconds of a thousand
// rounds each. A frame lasts 16.

#include "made_up_receipts.h"
#include "model/data_folder.h"
#include "model/receipt_json.h"
#include "model/receipt_query.h"
#include "ui/main_window/receipts_table.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

using namespace fennick;
using namespace Qt::StringLiterals;

constexpr int listed = 50000;
constexpr int rounds = 1000;

void showUntilPainted(ReceiptsTable &table) {
    QCoreApplication::processEvents();
    table.viewport()->repaint();
}

void measure(const char *what, const std::function<qint64(int)> &nanoseconds) {
    QList<qint64> times;
    for (int round = 0; round < rounds; ++round) {
        times.append(nanoseconds(round));
    }
    std::ranges::sort(times);
    const auto milliseconds = [&times](double share) {
        return static_cast<double>(times[static_cast<qsizetype>(share * (rounds - 1))]) / 1e6;
    };
    std::printf("%-12s median %.1f, 99th percentile %.1f, longest %.1f\n", what, milliseconds(0.5),
                milliseconds(0.99), milliseconds(1));
}

// The store writes the list to disk at each change; that is not counted here.
qint64 timeOfChange(ReceiptStore &store, ReceiptsTable &table, int round) {
    QElapsedTimer timer;
    qint64 changing = 0;
    const auto begun =
        QObject::connect(&store, &ReceiptStore::receiptsAboutToChange, &table, [&timer] { timer.start(); });
    const auto ended = QObject::connect(&store, &ReceiptStore::receiptsChanged, &table,
                                        [&] { changing = timer.nsecsElapsed(); });
    Receipt changed = store.receipts().at(round % 10);
    changed.summary = u"Change %1"_s.arg(round);
    store.update(changed);
    QObject::disconnect(begun);
    QObject::disconnect(ended);
    timer.start();
    showUntilPainted(table);
    return changing + timer.nsecsElapsed();
}

// What stands in the line after each key, for several searches one after the other.
QStringList typedTexts() {
    QStringList texts;
    for (const QString &search :
         {u"bäckerei"_s, u"12,50"_s, u">500 eur march 2024"_s, u"no photo table 7"_s, u"nowhere"_s}) {
        for (qsizetype length = 1; length <= search.size(); ++length) {
            texts.append(search.first(length));
        }
    }
    return texts;
}

} // namespace

int main(int argc, char *argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    const QApplication application(argc, argv);
    QFile file(dataFolder() + u"/receipts.json"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(encodeReceipts(madeUpReceipts(listed))) < 0) {
        return 1;
    }
    file.close();
    ReceiptStore store;
    ReceiptsTable table(&store);
    table.resize(900, 560);
    table.show();
    showUntilPainted(table);
    measure("changed row", [&](int round) { return timeOfChange(store, table, round); });
    QScrollBar *const bar = table.verticalScrollBar();
    measure("scrolling", [&](int) {
        QElapsedTimer timer;
        timer.start();
        bar->setValue(bar->value() + bar->pageStep());
        showUntilPainted(table);
        return timer.nsecsElapsed();
    });
    QElapsedTimer preparing;
    preparing.start();
    table.prepareFind();
    std::printf("%-12s %.1f\n", "open Find", static_cast<double>(preparing.nsecsElapsed()) / 1e6);
    const QStringList texts = typedTexts();
    measure("key in Find", [&](int round) {
        QElapsedTimer timer;
        timer.start();
        table.find(ReceiptQuery(texts[round % texts.size()]));
        showUntilPainted(table);
        return timer.nsecsElapsed();
    });
    return 0;
}
