#include "platform/photo_change_linux.h"
#include "platform/photo_library.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>

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
    }

    void addsCopiesUnderTheirOwnNames() {
        QVERIFY(PhotoLibrary::performChanges({{image("Lunch.jpg")}, {}, {}}));
        QCOMPARE(readFile(home_->photoLibrary() + QStringLiteral("/Lunch.jpg")), QByteArray("Lunch.jpg"));
        QVERIFY(QFile::exists(image("Lunch.jpg")));
        QCOMPARE(entries(), QStringList{QStringLiteral("Lunch.jpg")});
    }

    void nameThatIsTakenGetsANumberAndNothingIsReplaced() {
        for (int i = 0; i < 3; ++i) {
            QVERIFY(PhotoLibrary::performChanges({{image("Lunch.jpg")}, {}, {}}));
        }
        QCOMPARE(entries(), (QStringList{QStringLiteral("Lunch (2).jpg"), QStringLiteral("Lunch (3).jpg"),
                                         QStringLiteral("Lunch.jpg")}));
    }

    void newAlbumKeepsItsExactTitle() {
        const QString title = QStringLiteral("Expenses: 2025-03-03");
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, title}));
        const auto album = PhotoLibrary::fetchAlbum(title);
        QVERIFY(album);
        QCOMPARE(QDir(album->folder).dirName(), QStringLiteral("Expenses 2025-03-03"));
        QCOMPARE(readFile(album->folder + QStringLiteral("/.album")), title.toUtf8());
        QVERIFY(QFile::exists(album->folder + QStringLiteral("/a.jpg")));
        QVERIFY(!PhotoLibrary::fetchAlbum(QStringLiteral("Expenses 2025-03-03")));
    }

    void existingAlbumIsAddedTo() {
        const QString title = QStringLiteral("Trip");
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, title}));
        const auto album = PhotoLibrary::fetchAlbum(title);
        QVERIFY(PhotoLibrary::performChanges({{image("b.jpg")}, album, {}}));
        QCOMPARE(QDir(album->folder).entryList(QDir::Files),
                 (QStringList{QStringLiteral("a.jpg"), QStringLiteral("b.jpg")}));
    }

    void titlesThatShareAFolderNameGetFoldersOfTheirOwn() {
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, QStringLiteral("A: B")}));
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, QStringLiteral("A B")}));
        QVERIFY(PhotoLibrary::fetchAlbum(QStringLiteral("A: B"))->folder !=
                PhotoLibrary::fetchAlbum(QStringLiteral("A B"))->folder);
    }

    void failureHalfwayLeavesNothing() {
        const QStringList images = {image("a.jpg"), home_->path(QStringLiteral("missing.jpg"))};
        const auto added = PhotoLibrary::performChanges({images, {}, QStringLiteral("Trip")});
        QVERIFY(!added);
        QVERIFY(!added.error().isEmpty());
        QVERIFY(entries().isEmpty());
    }

    void failureAfterTheFirstMoveTakesItBack() {
        // The album disappears between the look-up and the change.
        const PhotoLibrary::Album gone{home_->photoLibrary() + QStringLiteral("/gone")};
        QVERIFY(!PhotoLibrary::performChanges({{image("a.jpg"), image("b.jpg")}, gone, {}}));
        QVERIFY(entries().isEmpty());
    }

    void interruptedChangeIsTakenBackByTheNextStart_data() {
        QTest::addColumn<bool>("isKept");
        QTest::newRow("before its end") << false;
        QTest::newRow("right before its end is recorded") << true;
    }
    void interruptedChangeIsTakenBackByTheNextStart() {
        QFETCH(bool, isKept);
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, {}}));
        PhotoChange change(home_->photoLibrary());
        QVERIFY(change.stage({image("a.jpg"), image("b.jpg")}));
        const auto album = change.makeAlbum(QStringLiteral("Trip"));
        QVERIFY(change.moveInto(*album));
        QCOMPARE(QDir(*album).entryList(QDir::Files).size(), 2);
        if (isKept) {
            change.keep();
        }
        PhotoLibrary::undoInterruptedChanges(); // as though the change had stopped here
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void changeInterruptedBetweenTwoImagesIsTakenBack() {
        QVERIFY(PhotoLibrary::performChanges({{image("old.jpg")}, {}, QStringLiteral("Trip")}));
        const QString album = PhotoLibrary::fetchAlbum(QStringLiteral("Trip"))->folder;
        PhotoChange change(home_->photoLibrary());
        QVERIFY(change.stage({image("a.jpg"), image("old.jpg"), image("c.jpg")}));
        QVERIFY(QFile::remove(stagingFolder() + QStringLiteral("/2")));
        QVERIFY(!change.moveInto(album)); // stops at the third
        QVERIFY(QFile::exists(album + QStringLiteral("/old (2).jpg")));
        PhotoLibrary::undoInterruptedChanges();
        QCOMPARE(QDir(album).entryList(QDir::Files), QStringList{QStringLiteral("old.jpg")});
        QCOMPARE(entries(), QStringList{QDir(album).dirName()});
    }

    void imageOfSomebodyElseStaysWhenAChangeIsTakenBack() {
        PhotoChange change(home_->photoLibrary());
        QVERIFY(change.stage({image("a.jpg")}));
        QVERIFY(change.moveInto(home_->photoLibrary()));
        writeFile(home_->photoLibrary() + QStringLiteral("/a.jpg"), "another picture");
        PhotoLibrary::undoInterruptedChanges();
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void finishedChangeIsNotTakenBack() {
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, QStringLiteral("Trip")}));
        PhotoLibrary::undoInterruptedChanges();
        QVERIFY(QFile::exists(PhotoLibrary::fetchAlbum(QStringLiteral("Trip"))->folder +
                              QStringLiteral("/a.jpg")));
    }

    void albumThatCannotBeMadeStillLeavesTheImagesAdded() {
        // 300 characters make no folder name.
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, QStringLiteral("x").repeated(300)}));
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void albumReplacedByAFileIsMadeAnew() {
        const QString title = QStringLiteral("Trip");
        writeFile(home_->photoLibrary() + QStringLiteral("/Trip"), "no folder");
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, title}));
        QCOMPARE(PhotoLibrary::fetchAlbum(title)->folder,
                 home_->photoLibrary() + QStringLiteral("/Trip (2)"));
        QCOMPARE(readFile(home_->photoLibrary() + QStringLiteral("/Trip")), "no folder");
    }

    void albumReplacedByAFileDuringTheChangeIsAnError() {
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, QStringLiteral("Trip")}));
        const auto album = PhotoLibrary::fetchAlbum(QStringLiteral("Trip"));
        QVERIFY(QDir(album->folder).removeRecursively());
        writeFile(album->folder, "no folder");
        QVERIFY(!PhotoLibrary::performChanges({{image("b.jpg")}, album, {}}));
        QCOMPARE(entries(), QStringList{QStringLiteral("Trip")});
    }

    void missingPicturesFolderIsMade() {
        QVERIFY(QDir(home_->path(QStringLiteral("Pictures"))).removeRecursively());
        QVERIFY(PhotoLibrary::performChanges({{image("a.jpg")}, {}, {}}));
        QCOMPARE(entries(), QStringList{QStringLiteral("a.jpg")});
    }

    void libraryThatCannotBeMadeIsAnError() {
        writeFile(home_->photoLibrary(), "a file where the library should be");
        QVERIFY(!PhotoLibrary::performChanges({{image("a.jpg")}, {}, {}}));
    }

private:
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
