#include "bench/truth_table.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include <cmath>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString renderings = u"text-pdf clean faint warped page photo"_s;

int exitCodeOf(const QStringList &arguments) {
    return QProcess::execute(QStringLiteral(FENNICK_BIN_DIR "/make_world_receipts"), arguments);
}

bool isMade(const QString &folder, const QStringList &options) {
    return exitCodeOf(QStringList{folder} + options) == 0;
}

QByteArray bytesOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QByteArray> filesIn(const QString &folder) {
    QMap<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files)) {
        files.insert(name, bytesOf(folder + u'/' + name));
    }
    return files;
}

QSet<QString> countriesIn(const QList<Truth> &truths) {
    QSet<QString> countries;
    for (const Truth &truth : truths) {
        countries.insert(truth.file.left(2));
    }
    return countries;
}

bool isComplete(const Truth &truth) {
    return truth.date.isValid() && truth.total && std::abs(*truth.total) > 0 && truth.currency.size() == 3 &&
           truth.isPartOfMerchant && !truth.merchant.isEmpty() && !truth.categories.isEmpty();
}

} // namespace

class WorldReceiptsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCountryHasReceiptsWithATruth() {
        const QTemporaryDir folder;
        QList<QSet<QString>> halves;
        for (const QString &half : {u"--in-sight"_s, u"--held-out"_s}) {
            const QString path = folder.filePath(half);
            QVERIFY(
                isMade(path, {u"--seed"_s, u"1"_s, u"--count"_s, u"2"_s, u"--kind"_s, u"text-pdf"_s, half}));
            const auto truths = truthTable(path);
            QVERIFY(truths);
            halves.append(countriesIn(*truths));
            QCOMPARE(truths->size(), 2 * halves.last().size());
            for (const Truth &truth : *truths) {
                QVERIFY2(isComplete(truth), qPrintable(truth.file));
                QVERIFY2(bytesOf(path + u'/' + truth.file).startsWith("%PDF-"), qPrintable(truth.file));
            }
        }
        QVERIFY(!halves[0].intersects(halves[1]));
        const qsizetype all = halves[0].size() + halves[1].size();
        QVERIFY(all >= 40);
        QCOMPARE((all + 1) / 3, halves[1].size());
    }

    void everyRenderingCanBeOpened() {
        const QTemporaryDir folder;
        for (const QString &rendering : renderings.split(u' ')) {
            QVERIFY(isMade(folder.path(), {u"--seed"_s, u"1"_s, u"--count"_s, u"1"_s, u"--kind"_s, rendering,
                                           u"--countries"_s, u"FR"_s}));
            const auto truths = truthTable(folder.path());
            QVERIFY(truths);
            QCOMPARE(truths->size(), 1);
            const QString path = folder.filePath(truths->first().file);
            const bool isDocument = rendering == u"text-pdf";
            QVERIFY2(isDocument ? bytesOf(path).startsWith("%PDF-") : !QImage(path).isNull(),
                     qPrintable(path));
        }
    }

    void sameSeedMakesTheSameBytes() {
        const QTemporaryDir folder;
        const auto made = [&folder](const QString &name, const QString &seed) {
            const bool isDone = isMade(folder.filePath(name), {u"--seed"_s, seed, u"--count"_s, u"1"_s,
                                                               u"--countries"_s, u"DE,JP"_s});
            return isDone ? filesIn(folder.filePath(name)) : QMap<QString, QByteArray>();
        };
        const auto first = made(u"a"_s, u"7"_s);
        QCOMPARE(first.size(), 3); // a picture, a PDF and the table
        QVERIFY(made(u"b"_s, u"7"_s) == first);
        QVERIFY(made(u"c"_s, u"8"_s) != first);
    }

    void whatAReceiptSaysDoesNotHangOnItsLooks() {
        const QTemporaryDir folder;
        QStringList totals;
        for (const QString &rendering : {u"text-pdf"_s, u"clean"_s}) {
            QVERIFY(isMade(folder.path(),
                           {u"--seed"_s, u"5"_s, u"--kind"_s, rendering, u"--countries"_s, u"GB"_s}));
            const auto truths = truthTable(folder.path());
            QVERIFY(truths);
            totals.append(QString::number(truths->first().total.value_or(0)));
        }
        QCOMPARE(totals[0], totals[1]);
    }

    void arguments() {
        const QTemporaryDir folder;
        QCOMPARE(exitCodeOf({folder.path()}), 2);
        QCOMPARE(exitCodeOf({folder.path(), u"--seed"_s, u"1"_s, u"--kind"_s, u"painted"_s}), 2);
        QCOMPARE(exitCodeOf({folder.path(), u"--seed"_s, u"1"_s, u"--held-out"_s, u"--in-sight"_s}), 2);
        QCOMPARE(exitCodeOf({folder.path(), u"--seed"_s, u"1"_s, u"--countries"_s, u"XX"_s}), 1);
    }
};

int world_receipts_test(int argc, char **argv) {
    return runTest<QCoreApplication, WorldReceiptsTest>(argc, argv);
}
#include "world_receipts_test.moc"
