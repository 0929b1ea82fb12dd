#include "platform/photo_change.h"
#include "platform/photo_library.h"
#include "platform/regular_file.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/stat.h>

#include <memory>

using namespace fennick;
using test::readFile;
using test::writeFile;

class PhotoLibraryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<test::TemporaryHome>();
        QDir().mkpath(home_->path(QStringLiteral("Pictures")));
        QDir().mkpath(journals());
    }

    void addsCopiesUnderTheirOwnNames() {
        QVERIFY(add({{image("Lunch.jpg")}, {}, {}}));
        QCOMPARE(readFile(home_->photoLibrary() + QStringLiteral("/Lunch.jpg")), QByteArray("Lunch.jpg"));
        QVERIFY(QFile::exists(image("Lunch.jpg")));
        QCOMPARE(entries(), QStringList{QStringLiteral("Lunch.jpg")});
    }

    void nameThatIsTakenGetsANumberAndNothingIsReplaced() {
        for (int i = 0; i < 3; ++i) {
            QVERIFY(add({{image("Lunch.jpg")}, {}, {}}));
        }
        QCOMPARE(entries(), (QStringList{QStringLiteral("Lunch (2).jpg"), QStringLiteral("Lunch (3).jpg"),
                                         QStringLiteral("Lunch.jpg")}));
    }

    void newAlbumKeepsItsExactTitle() {
        const QString title = QStringLiteral("Expenses: 2025-03-03");
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        const auto album = PhotoLibrary::fetchAlbum(title);
        QVERIFY(album);
        QCOMPARE(QDir(album->folder).dirName(), QStringLiteral("Expenses 2025-03-03"));
        QCOMPARE(readFile(album->folder + QStringLiteral("/.album")), title.toUtf8());
        QVERIFY(QFile::exists(album->folder + QStringLiteral("/a.jpg")));
        QVERIFY(!PhotoLibrary::fetchAlbum(QStringLiteral("Expenses 2025-03-03")));
    }

    void existingAlbumIsAddedTo() {
        const QString title = QStringLiteral("Trip");
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        const auto album = PhotoLibrary::fetchAlbum(title);
        QVERIFY(add({{image("b.jpg")}, album, {}}));
        QCOMPARE(QDir(album->folder).entryList(QDir::Files),
                 (QStringList{QStringLiteral("a.jpg"), QStringLiteral("b.jpg")}));
    }

    void titlesThatShareAFolderNameGetFoldersOfTheirOwn() {
        QVERIFY(add({{image("a.jpg")}, {}, QStringLiteral("A: B")}));
        QVERIFY(add({{image("a.jpg")}, {}, QStringLiteral("A B")}));
        QVERIFY(PhotoLibrary::fetchAlbum(QStringLiteral("A: B"))->folder !=
                PhotoLibrary::fetchAlbum(QStringLiteral("A B"))->folder);
    }

    void failureHalfwayLeavesNothing() {
        const QStringList images = {image("a.jpg"), home_->path(QStringLiteral("missing.jpg"))};
        const auto added = add({images, {}, QStringLiteral("Trip")});
        QVERIFY(!added);
        QVERIFY(!added.error().isEmpty());
        QVERIFY(entries().isEmpty());
    }

    void failureAfterTheFirstMoveTakesItBack() {
        // The album disappears between the look-up and the change.
        const PhotoLibrary::Album gone{home_->photoLibrary() + QStringLiteral("/gone")};
        QVERIFY(!add({{image("a.jpg"), image("b.jpg")}, gone, {}}));
        QVERIFY(entries().isEmpty());
    }

    void interruptedChangeIsTakenBackByTheNextStart_data() {
        QTest::addColumn<bool>("isKept");
        QTest::newRow("before its end") << false;
        QTest::newRow("right before its end is recorded") << true;
    }
    void interruptedChangeIsTakenBackByTheNextStart() {
        QFETCH(bool, isKept);
        QVERIFY(add({{image("a.jpg")}, {}, {}}));
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg"), image("b.jpg")}));
        const auto album = change.makeAlbum(QStringLiteral("Trip"));
        QVERIFY(change.moveInto(*album));
        QCOMPARE(QDir(*album).entryList(QDir::Files).size(), 2);
        if (isKept) {
            change.keep();
        }
        PhotoLibrary::undoInterruptedChanges(journals()); // as though the change had stopped here
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void changeInterruptedBetweenTwoImagesIsTakenBack() {
        QVERIFY(add({{image("old.jpg")}, {}, QStringLiteral("Trip")}));
        const QString album = PhotoLibrary::fetchAlbum(QStringLiteral("Trip"))->folder;
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg"), image("old.jpg"), image("c.jpg")}));
        QVERIFY(QFile::remove(stagingFolder() + QStringLiteral("/2")));
        QVERIFY(!change.moveInto(album)); // stops at the third
        QVERIFY(QFile::exists(album + QStringLiteral("/old (2).jpg")));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(QDir(album).entryList(QDir::Files), QStringList{QStringLiteral("old.jpg")});
        QCOMPARE(entries(), QStringList{QDir(album).dirName()});
    }

    void imageOfSomebodyElseStaysWhenAChangeIsTakenBack() {
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg")}));
        QVERIFY(change.moveInto(home_->photoLibrary()));
        writeFile(home_->photoLibrary() + QStringLiteral("/a.jpg"), "another picture");
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void pictureInAPlaceOfTheSameSizeStaysWhenAChangeIsTakenBack() {
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg")}));
        QVERIFY(change.moveInto(home_->photoLibrary()));
        const QString place = home_->photoLibrary() + QStringLiteral("/a.jpg");
        writeFile(place + QStringLiteral(".new"), "b.jpg");
        QVERIFY(QFile::remove(place) && QFile::rename(place + QStringLiteral(".new"), place));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(readFile(place), "b.jpg");
    }

    // Whoever can write into a synchronised Pictures folder must not choose which files are removed.
    void journalInTheLibraryIsNotBelieved() {
        const QString thesis = home_->path(QStringLiteral("thesis.odt"));
        writeFile(thesis, "my thesis");
        const QString planted = home_->photoLibrary() + QStringLiteral("/.import-x/");
        writeFile(planted + QStringLiteral("journal"), removalOf(QStringLiteral("/nonexistent"), thesis));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(readFile(thesis), "my thesis");
        QVERIFY(QFile::exists(planted + QStringLiteral("journal")));
    }

    void pipeInTheLibraryHoldsNobodyUp() {
        const QString planted = home_->photoLibrary() + QStringLiteral("/.import-x");
        QVERIFY(QDir().mkpath(planted));
        QCOMPARE(::mkfifo(QFile::encodeName(planted + QStringLiteral("/journal")).constData(), 0600), 0);
        PhotoLibrary::undoInterruptedChanges(journals());
        QVERIFY(QFile::exists(planted));
    }

    void pipeAmongTheJournalsHoldsNobodyUp() {
        const QString planted = journals() + QStringLiteral("/importing-x");
        QCOMPARE(::mkfifo(QFile::encodeName(planted).constData(), 0600), 0);
        PhotoLibrary::undoInterruptedChanges(journals());
        QVERIFY(!QFile::exists(planted));
    }

    void journalRemovesNothingOutsideItsLibrary_data() {
        QTest::addColumn<QString>("staged");
        QTest::addColumn<QString>("target");
        const QString staged = QStringLiteral("<library>/.import-x/0");
        const QString inside = QStringLiteral("<library>/linked/thesis.odt");
        QTest::newRow("outside") << staged << QStringLiteral("<home>/thesis.odt");
        QTest::newRow("upwards") << staged << QStringLiteral("<library>/../../thesis.odt");
        QTest::newRow("behind a link") << staged << inside;
        QTest::newRow("not from its own staging folder")
            << QStringLiteral("/nonexistent") << QStringLiteral("<library>/mine.jpg");
    }
    void journalRemovesNothingOutsideItsLibrary() {
        QFETCH(QString, staged);
        QFETCH(QString, target);
        const QString thesis = home_->path(QStringLiteral("thesis.odt"));
        const QString mine = home_->photoLibrary() + QStringLiteral("/mine.jpg");
        writeFile(thesis, "my thesis");
        writeFile(mine, "my photo!");
        QVERIFY(QFile::link(home_->path(QString()), home_->photoLibrary() + QStringLiteral("/linked")));
        const auto full = [this](QString pattern) {
            return pattern.replace(QStringLiteral("<library>"), home_->photoLibrary())
                .replace(QStringLiteral("<home>"), home_->path(QString()));
        };
        const QString removed = target.contains(u"mine") ? mine : thesis;
        writeFile(journals() + QStringLiteral("/importing-x"),
                  removalOf(full(staged), full(target), fileStateAt(removed).identity.number));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(readFile(thesis), "my thesis");
        QCOMPARE(readFile(mine), "my photo!");
    }

    // What it did not put there itself, a change leaves alone when it is taken back.
    void filesOfOthersInTheStagingFolderStay() {
        writeFile(home_->path(QStringLiteral("docs/letter.odt")), "a letter");
        {
            PhotoChange change(home_->photoLibrary(), journals());
            QVERIFY(change.stage({image("a.jpg")}));
            writeFile(stagingFolder() + QStringLiteral("/letter.odt"), "a letter");
            QVERIFY(QFile::link(home_->path(QStringLiteral("docs")), stagingFolder() + QStringLiteral("/7")));
        }
        QCOMPARE(readFile(stagingFolder() + QStringLiteral("/letter.odt")), "a letter");
        QCOMPARE(readFile(home_->path(QStringLiteral("docs/letter.odt"))), "a letter");
    }

    void linkThatLeadsNowhereHoldsItsName() {
        QDir().mkpath(home_->photoLibrary());
        QVERIFY(QFile::link(home_->path(QStringLiteral("nowhere")),
                            home_->photoLibrary() + QStringLiteral("/Lunch.jpg")));
        QVERIFY(add({{image("Lunch.jpg")}, {}, {}}));
        QCOMPARE(readFile(home_->photoLibrary() + QStringLiteral("/Lunch (2).jpg")), QByteArray("Lunch.jpg"));
    }

    void finishedChangeLeavesNoJournal() {
        QVERIFY(add({{image("a.jpg")}, {}, QStringLiteral("Trip")}));
        QVERIFY(!add({{home_->path(QStringLiteral("missing.jpg"))}, {}, {}}));
        QVERIFY(QDir(journals()).isEmpty());
    }

    void finishedChangeIsNotTakenBack() {
        QVERIFY(add({{image("a.jpg")}, {}, QStringLiteral("Trip")}));
        PhotoLibrary::undoInterruptedChanges(journals());
        QVERIFY(QFile::exists(PhotoLibrary::fetchAlbum(QStringLiteral("Trip"))->folder +
                              QStringLiteral("/a.jpg")));
    }

    void albumThatCannotBeMadeStillLeavesTheImagesAdded() {
        // 300 characters make no folder name.
        QVERIFY(add({{image("a.jpg")}, {}, QStringLiteral("x").repeated(300)}));
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void albumTitleIsAShortRegularFile_data() {
        QTest::addColumn<int>("kind");
        QTest::newRow("link to an endless file") << 0;
        QTest::newRow("pipe") << 1;
        QTest::newRow("too long") << 2;
        QTest::newRow("link to a title") << 3;
        QTest::newRow("in a linked folder") << 4;
    }
    void albumTitleIsAShortRegularFile() {
        QFETCH(int, kind);
        const QString title = QStringLiteral("Trip");
        const QString elsewhere = home_->path(QStringLiteral("elsewhere"));
        writeFile(elsewhere + QStringLiteral("/.album"), "Trip");
        const QString album = home_->photoLibrary() + QStringLiteral("/planted");
        const QString file = album + QStringLiteral("/.album");
        QVERIFY(QDir().mkpath(kind == 4 ? home_->photoLibrary() : album));
        switch (kind) {
        case 0:
            QVERIFY(QFile::link(QStringLiteral("/dev/zero"), file));
            break;
        case 1:
            QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
            break;
        case 2:
            writeFile(file, QByteArray("Trip").leftJustified(4097));
            break;
        case 3:
            QVERIFY(QFile::link(elsewhere + QStringLiteral("/.album"), file));
            break;
        default:
            QVERIFY(QFile::link(elsewhere, album));
        }
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        QCOMPARE(PhotoLibrary::fetchAlbum(title)->folder, home_->photoLibrary() + QStringLiteral("/Trip"));
    }

    void albumReplacedByAFileIsMadeAnew() {
        const QString title = QStringLiteral("Trip");
        writeFile(home_->photoLibrary() + QStringLiteral("/Trip"), "no folder");
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        QCOMPARE(PhotoLibrary::fetchAlbum(title)->folder,
                 home_->photoLibrary() + QStringLiteral("/Trip (2)"));
        QCOMPARE(readFile(home_->photoLibrary() + QStringLiteral("/Trip")), "no folder");
    }

    void albumReplacedByAFileDuringTheChangeIsAnError() {
        QVERIFY(add({{image("a.jpg")}, {}, QStringLiteral("Trip")}));
        const auto album = PhotoLibrary::fetchAlbum(QStringLiteral("Trip"));
        QVERIFY(QDir(album->folder).removeRecursively());
        writeFile(album->folder, "no folder");
        QVERIFY(!add({{image("b.jpg")}, album, {}}));
        QCOMPARE(entries(), QStringList{QStringLiteral("Trip")});
    }

    void missingPicturesFolderIsMade() {
        QVERIFY(QDir(home_->path(QStringLiteral("Pictures"))).removeRecursively());
        QVERIFY(add({{image("a.jpg")}, {}, {}}));
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void libraryThatCannotBeMadeIsAnError() {
        writeFile(home_->photoLibrary(), "a file where the library should be");
        QVERIFY(!add({{image("a.jpg")}, {}, {}}));
    }

private:
    // Where nobody but the user can write.
    QString journals() const { return home_->path(QStringLiteral("data/Fennick")); }

    std::expected<void, QString> add(const PhotoLibrary::Additions &additions) const {
        return PhotoLibrary::performChanges(additions, journals());
    }

    // A journal that has the file at `target`, of nine bytes, removed.
    static QByteArray removalOf(const QString &staged, const QString &target, quint64 number = 0) {
        return QJsonDocument(QJsonObject{{QStringLiteral("staged"), staged},
                                         {QStringLiteral("target"), target},
                                         {QStringLiteral("size"), 9},
                                         {QStringLiteral("number"), QString::number(number)}})
                   .toJson(QJsonDocument::Compact) +
               '\n';
    }

    QString image(const char *name) {
        const QString path = home_->path(QStringLiteral("images/") + QString::fromUtf8(name));
        writeFile(path, name);
        return path;
    }

    QString stagingFolder() const {
        const QDir library(home_->photoLibrary());
        return library.filePath(
            library.entryList({QStringLiteral(".import-*")}, QDir::Dirs | QDir::Hidden).value(0));
    }

    QStringList entries() const {
        return QDir(home_->photoLibrary()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<test::TemporaryHome> home_;
};

int photo_library_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PhotoLibraryTest>(argc, argv);
}
#include "photo_library_test.moc"
