#include "model/receipt_json.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"
#include "text/path_text.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRandomGenerator>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Format = ExportService::Format;

namespace {

const FieldFormats sequenceFormats{QLocale::c(), QLocale::c()};
constexpr int sequencesInARow = 10;
constexpr int stepsInASequence = 12;
constexpr int longestLife = 40'000; // microseconds of a step that is killed

// What there is at one moment.
struct State {
    QList<Receipt> receipts;
    QSet<QString> ignored;
    QMap<QString, QByteArray> files; // by path, without the archive

    bool operator==(const State &other) const = default;
};

} // namespace

// Sequences, by chance, of what the user does and takes back, with restarts and kills in the middle of it.
// After each step list, files and ignored paths agree, on disk as well: every file is there once, every row
// leads to its file, and no file lies in the folder that a start would read. Without a kill, undo and redo
// bring back exactly what was.
class UndoSequencesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listFilesAndIgnoredPathsAlwaysAgree_data() {
        QTest::addColumn<int>("row");
        for (int row = 0; row < 20; ++row) {
            QTest::addRow("%d", row) << row;
        }
    }
    void listFilesAndIgnoredPathsAlwaysAgree() {
        QFETCH(int, row);
        for (int sequence = 0; sequence < sequencesInARow; ++sequence) {
            begin(row * sequencesInARow + sequence);
            for (int step = 0; step < stepsInASequence; ++step) {
                takeStep();
                const QString wrong = disagreement();
                QVERIFY2(wrong.isEmpty(), qPrintable(wrong + u"\nafter "_s + steps_.join(u", "_s)));
            }
        }
        end();
    }

    void cleanupTestCase() {
        qInfo("%d steps were killed, %d exact returns were checked", killed_, returns_);
    }

private:
    void begin(int seed) {
        end();
        chance_ = QRandomGenerator(static_cast<quint32>(seed));
        steps_ = {u"seed %1"_s.arg(seed)};
        contents_.clear();
        QDir(surroundings_.home.path(u"data"_s)).removeRecursively();
        QDir(folder()).removeRecursively();
        QDir().mkpath(folder());
        writeFile(surroundings_.home.preferencesFile(),
                  "[General]\naddToPhotos=false\nwatchFolder=" + folder().toUtf8() + '\n');
        start();
        for (int number = 0; number < 4; ++number) {
            addReceipt();
        }
    }

    void end() {
        appState_.reset();
        store_.reset();
        settings_.reset();
    }

    // As after a kill: nothing but what is on the disk is known.
    void start() {
        end();
        settings_ = std::make_unique<SettingsStore>();
        store_ = std::make_unique<ReceiptStore>();
        appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
        const QFuture<void> recovery = appState_->recoverFromInterruption();
        QVERIFY(waitUntil([&] { return recovery.isFinished(); }));
        forgetStates();
    }

    void forgetStates() {
        before_ = QList<std::optional<State>>(stack().count());
        after_ = before_;
    }

    void takeStep() {
        const int kind = chance_.bounded(16);
        if (kind == 0) {
            steps_.append(u"restart"_s);
            start();
        } else if (kind == 1) {
            steps_.append(u"new receipt"_s);
            addReceipt();
            forgetStates(); // what was is not what comes back
        } else if (kind < 6) {
            killInTheMiddleOf(chance_.bounded(12));
        } else {
            carryOut(chance_.bounded(12));
        }
    }

    void carryOut(int deed) {
        const int index = stack().index();
        const int count = stack().count();
        const State before = state();
        perform(deed);
        if (deed < 3) {
            checkReturn(index > 0, before_.value(index - 1));
        } else if (deed < 5) {
            checkReturn(index < count, after_.value(index));
        } else if (stack().index() == index + 1) {
            before_.resize(index);
            after_.resize(index);
            before_.append(before);
            after_.append(state());
        }
    }

    void checkReturn(bool wasPossible, const std::optional<State> &expected) {
        if (!wasPossible || !expected) {
            return;
        }
        ++returns_;
        if (!(state() == *expected)) {
            steps_.append(u"(which did not bring back what was)"_s);
            isReturnWrong_ = true;
        }
    }

    // In a process of its own, which is killed after some time by chance. It may also come to its end.
    void killInTheMiddleOf(int deed) {
        const int life = 1 + chance_.bounded(longestLife);
        steps_.append(u"killed:"_s);
        const quint32 seed = chance_.generate();
        const pid_t child = ::fork();
        if (child == 0) {
            const itimerval timer{{0, 0}, {0, life}};
            ::setitimer(ITIMER_REAL, &timer, nullptr);
            chance_ = QRandomGenerator(seed);
            perform(deed);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        killed_ += WIFSIGNALED(status) ? 1 : 0;
        steps_.append(u"%1"_s.arg(deed));
        start();
    }

    void perform(int deed) {
        UndoHistory &history = *appState_->history();
        if (deed < 3) {
            steps_.append(u"undo"_s);
            history.undo();
        } else if (deed < 5) {
            steps_.append(u"redo"_s);
            history.redo();
        } else if (deed < 8) {
            correct();
        } else if (deed == 8) {
            removeSome();
        } else if (deed == 9) {
            steps_.append(u"clear"_s);
            history.clearAll();
        } else {
            steps_.append(u"archive"_s);
            appState_->archiveAndClear(chance_.bounded(2) == 0 ? Format::csv : Format::html);
        }
    }

    void correct() {
        if (store_->receipts().isEmpty()) {
            return;
        }
        const QString id = store_->receipts()[chance_.bounded(store_->receipts().size())].id;
        steps_.append(u"correct"_s);
        const QString amount = QString::number(1 + chance_.bounded(3)); // names that collide
        QVERIFY(appState_->correct(id, {{ReceiptField::amount, amount}}, sequenceFormats));
    }

    void removeSome() {
        QSet<QString> ids;
        for (const Receipt &receipt : store_->receipts()) {
            if (chance_.bounded(2) == 0) {
                ids.insert(receipt.id);
            }
        }
        steps_.append(u"remove %1"_s.arg(ids.size()));
        appState_->history()->removeFromList(ids);
    }

    void addReceipt() {
        const QString name = u"scan %1.pdf"_s.arg(contents_.size());
        const Receipt receipt = finishedReceipt(folder() + u'/' + name);
        contents_.insert(receipt.id, "content of " + name.toUtf8());
        writeFile(receipt.filePath, contents_.value(receipt.id));
        store_->add(receipt);
    }

    QString disagreement() const {
        if (isReturnWrong_) {
            return u"undo or redo"_s;
        }
        const auto receipts = decodeReceipts(readFile(surroundings_.home.receiptsFile()));
        if (!receipts || *receipts != store_->receipts()) {
            return u"the list on disk is another"_s;
        }
        if (QFileInfo::exists(surroundings_.home.ignoredFile())) {
            const auto ignored = decodePaths(readFile(surroundings_.home.ignoredFile()));
            if (!ignored || *ignored != store_->ignoredPaths()) {
                return u"the ignored paths on disk are others"_s;
            }
        }
        const QString file = wrongFile();
        return file.isEmpty() ? wrongRow() : file;
    }

    QString wrongFile() const {
        QList<QByteArray> found;
        const QMap<QString, QByteArray> files = allFiles();
        for (auto file = files.begin(); file != files.end(); ++file) {
            if (lastPathComponent(file.key()).startsWith("receipts-"_L1)) {
                continue; // a ledger
            }
            found.append(file.value());
            if (!isArchived(file.key()) && !store_->hasFilePath(file.key())) {
                return u"would be read: "_s + file.key();
            }
        }
        QList<QByteArray> expected = contents_.values();
        std::sort(found.begin(), found.end());
        std::sort(expected.begin(), expected.end());
        return found == expected ? QString() : u"files: "_s + files.keys().join(u", "_s);
    }

    QString wrongRow() const {
        QSet<QString> ids;
        for (const Receipt &receipt : store_->receipts()) {
            if (ids.contains(receipt.id) || !QFileInfo::exists(receipt.filePath) ||
                readFile(receipt.filePath) != contents_.value(receipt.id) ||
                lastPathComponent(receipt.filePath) != receipt.fileName) {
                return u"row: "_s + receipt.filePath;
            }
            ids.insert(receipt.id);
        }
        return {};
    }

    State state() const {
        State now{store_->receipts(), store_->ignoredPaths(), allFiles()};
        now.files.removeIf([this](const auto &file) { return isArchived(file.key()); });
        return now;
    }

    bool isArchived(const QString &path) const { return path.startsWith(folder() + u"/Receipt Archive/"_s); }

    QMap<QString, QByteArray> allFiles() const {
        QMap<QString, QByteArray> files;
        QDirIterator entries(folder(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString path = entries.next();
            files.insert(path, readFile(path));
        }
        return files;
    }

    const QUndoStack &stack() const { return *appState_->history()->stack(); }
    QString folder() const { return surroundings_.home.path(u"watched"_s); }

    Surroundings surroundings_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
    QRandomGenerator chance_;
    QMap<QString, QByteArray> contents_; // by receipt
    QList<std::optional<State>> before_; // each deed of the stack; absent where it is not known
    QList<std::optional<State>> after_;
    QStringList steps_;
    int killed_ = 0;
    int returns_ = 0; // that were compared with what was
    bool isReturnWrong_ = false;
};

int undo_sequences_test(int argc, char **argv) {
    return runTest<QApplication, UndoSequencesTest>(argc, argv);
}
#include "undo_sequences_test.moc"
