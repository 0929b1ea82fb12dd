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
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

class PhotoLibraryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<test::TemporaryHome>();
        QDir().mkpath(home_->path(u"Pictures"_s));
        QDir().mkpath(journals());
    }

    void addsCopiesUnderTheirOwnNames() {
        QVERIFY(add({{image("Lunch.jpg")}, {}, {}}));
        QCOMPARE(readFile(home_->photoLibrary() + u"/Lunch.jpg"_s), QByteArray("Lunch.jpg"));
        QVERIFY(QFile::exists(image("Lunch.jpg")));
        QCOMPARE(entries(), QStringList{u"Lunch.jpg"_s});
    }

    void nameThatIsTakenGetsANumberAndNothingIsReplaced() {
        for (int i = 0; i < 3; ++i) {
            QVERIFY(add({{image("Lunch.jpg")}, {}, {}}));
        }
        QCOMPARE(entries(), (QStringList{u"Lunch (2).jpg"_s, u"Lunch (3).jpg"_s, u"Lunch.jpg"_s}));
    }

    void newAlbumKeepsItsExactTitle() {
        const QString title = u"Expenses: 2025-03-03"_s;
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        const auto album = PhotoLibrary::fetchAlbum(title);
        QVERIFY(album);
        QCOMPARE(QDir(album->folder).dirName(), u"Expenses 2025-03-03"_s);
        QCOMPARE(readFile(album->folder + u"/.album"_s), title.toUtf8());
        QVERIFY(QFile::exists(album->folder + u"/a.jpg"_s));
        QVERIFY(!PhotoLibrary::fetchAlbum(u"Expenses 2025-03-03"_s));
    }

    void existingAlbumIsAddedTo() {
        const QString title = u"Trip"_s;
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        const auto album = PhotoLibrary::fetchAlbum(title);
        QVERIFY(add({{image("b.jpg")}, album, {}}));
        QCOMPARE(QDir(album->folder).entryList(QDir::Files), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
    }

    void titlesThatShareAFolderNameGetFoldersOfTheirOwn() {
        QVERIFY(add({{image("a.jpg")}, {}, u"A: B"_s}));
        QVERIFY(add({{image("a.jpg")}, {}, u"A B"_s}));
        QVERIFY(PhotoLibrary::fetchAlbum(u"A: B"_s)->folder != PhotoLibrary::fetchAlbum(u"A B"_s)->folder);
    }

    void failureHalfwayLeavesNothing() {
        const QStringList images = {image("a.jpg"), home_->path(u"missing.jpg"_s)};
        const auto added = add({images, {}, u"Trip"_s});
        QVERIFY(!added);
        QVERIFY(!added.error().description().isEmpty());
        QVERIFY(entries().isEmpty());
    }

    void failureAfterTheFirstMoveTakesItBack() {
        // The album disappears between the look-up and the change.
        const PhotoLibrary::Album gone{home_->photoLibrary() + u"/gone"_s};
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
        const auto album = change.makeAlbum(u"Trip"_s);
        QVERIFY(change.moveInto(*album));
        QCOMPARE(QDir(*album).entryList(QDir::Files).size(), 2);
        if (isKept) {
            change.keep();
        }
        PhotoLibrary::undoInterruptedChanges(journals()); // as though the change had stopped here
        QCOMPARE(entries(), QStringList{u"a.jpg"_s});
    }

    void changeInterruptedBetweenTwoImagesIsTakenBack() {
        QVERIFY(add({{image("old.jpg")}, {}, u"Trip"_s}));
        const QString album = PhotoLibrary::fetchAlbum(u"Trip"_s)->folder;
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg"), image("old.jpg"), image("c.jpg")}));
        QVERIFY(QFile::remove(stagingFolder() + u"/2"_s));
        QVERIFY(!change.moveInto(album)); // stops at the third
        QVERIFY(QFile::exists(album + u"/old (2).jpg"_s));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(QDir(album).entryList(QDir::Files), QStringList{u"old.jpg"_s});
        QCOMPARE(entries(), QStringList{QDir(album).dirName()});
    }

    void imageOfSomebodyElseStaysWhenAChangeIsTakenBack() {
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg")}));
        QVERIFY(change.moveInto(home_->photoLibrary()));
        writeFile(home_->photoLibrary() + u"/a.jpg"_s, "another picture");
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(entries(), QStringList{u"a.jpg"_s});
    }

    void pictureInAPlaceOfTheSameSizeStaysWhenAChangeIsTakenBack() {
        PhotoChange change(home_->photoLibrary(), journals());
        QVERIFY(change.stage({image("a.jpg")}));
        QVERIFY(change.moveInto(home_->photoLibrary()));
        const QString place = home_->photoLibrary() + u"/a.jpg"_s;
        writeFile(place + u".new"_s, "b.jpg");
        QVERIFY(QFile::remove(place) && QFile::rename(place + u".new"_s, place));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(readFile(place), "b.jpg");
    }

    // Whoever can write into a synchronised Pictures folder must not choose which files are removed.
    void journalInTheLibraryIsNotBelieved() {
        const QString thesis = home_->path(u"thesis.odt"_s);
        writeFile(thesis, "my thesis");
        const QString planted = home_->photoLibrary() + u"/.import-x/"_s;
        writeFile(planted + u"journal"_s, removalOf(u"/nonexistent"_s, thesis));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(readFile(thesis), "my thesis");
        QVERIFY(QFile::exists(planted + u"journal"_s));
    }

    void pipeInTheLibraryHoldsNobodyUp() {
        const QString planted = home_->photoLibrary() + u"/.import-x"_s;
        QVERIFY(QDir().mkpath(planted));
        QCOMPARE(::mkfifo(QFile::encodeName(planted + u"/journal"_s).constData(), 0600), 0);
        PhotoLibrary::undoInterruptedChanges(journals());
        QVERIFY(QFile::exists(planted));
    }

    void pipeAmongTheJournalsHoldsNobodyUp() {
        const QString planted = journals() + u"/importing-x"_s;
        QCOMPARE(::mkfifo(QFile::encodeName(planted).constData(), 0600), 0);
        PhotoLibrary::undoInterruptedChanges(journals());
        QVERIFY(!QFile::exists(planted));
    }

    void journalRemovesNothingOutsideItsLibrary_data() {
        QTest::addColumn<QString>("staged");
        QTest::addColumn<QString>("target");
        const QString staged = u"<library>/.import-x/0"_s;
        const QString inside = u"<library>/linked/thesis.odt"_s;
        QTest::newRow("outside") << staged << u"<home>/thesis.odt"_s;
        QTest::newRow("upwards") << staged << u"<library>/../../thesis.odt"_s;
        QTest::newRow("behind a link") << staged << inside;
        QTest::newRow("not from its own staging folder") << u"/nonexistent"_s << u"<library>/mine.jpg"_s;
    }
    void journalRemovesNothingOutsideItsLibrary() {
        QFETCH(QString, staged);
        QFETCH(QString, target);
        const QString thesis = home_->path(u"thesis.odt"_s);
        const QString mine = home_->photoLibrary() + u"/mine.jpg"_s;
        writeFile(thesis, "my thesis");
        writeFile(mine, "my photo!");
        QVERIFY(QFile::link(home_->path(QString()), home_->photoLibrary() + u"/linked"_s));
        const auto full = [this](QString pattern) {
            return pattern.replace(u"<library>"_s, home_->photoLibrary())
                .replace(u"<home>"_s, home_->path(QString()));
        };
        const QString removed = target.contains(u"mine") ? mine : thesis;
        writeFile(journals() + u"/importing-x"_s,
                  removalOf(full(staged), full(target), fileStateAt(removed).identity.number));
        PhotoLibrary::undoInterruptedChanges(journals());
        QCOMPARE(readFile(thesis), "my thesis");
        QCOMPARE(readFile(mine), "my photo!");
    }

    // What it did not put there itself, a change leaves alone when it is taken back.
    void filesOfOthersInTheStagingFolderStay() {
        writeFile(home_->path(u"docs/letter.odt"_s), "a letter");
        {
            PhotoChange change(home_->photoLibrary(), journals());
            QVERIFY(change.stage({image("a.jpg")}));
            writeFile(stagingFolder() + u"/letter.odt"_s, "a letter");
            QVERIFY(QFile::link(home_->path(u"docs"_s), stagingFolder() + u"/7"_s));
        }
        QCOMPARE(readFile(stagingFolder() + u"/letter.odt"_s), "a letter");
        QCOMPARE(readFile(home_->path(u"docs/letter.odt"_s)), "a letter");
    }

    void linkThatLeadsNowhereHoldsItsName() {
        QDir().mkpath(home_->photoLibrary());
        QVERIFY(QFile::link(home_->path(u"nowhere"_s), home_->photoLibrary() + u"/Lunch.jpg"_s));
        QVERIFY(add({{image("Lunch.jpg")}, {}, {}}));
        QCOMPARE(readFile(home_->photoLibrary() + u"/Lunch (2).jpg"_s), QByteArray("Lunch.jpg"));
    }

    void finishedChangeLeavesNoJournal() {
        QVERIFY(add({{image("a.jpg")}, {}, u"Trip"_s}));
        QVERIFY(!add({{home_->path(u"missing.jpg"_s)}, {}, {}}));
        QVERIFY(QDir(journals()).isEmpty());
    }

    void finishedChangeIsNotTakenBack() {
        QVERIFY(add({{image("a.jpg")}, {}, u"Trip"_s}));
        PhotoLibrary::undoInterruptedChanges(journals());
        QVERIFY(QFile::exists(PhotoLibrary::fetchAlbum(u"Trip"_s)->folder + u"/a.jpg"_s));
    }

    void albumThatCannotBeMadeStillLeavesTheImagesAdded() {
        // 300 characters make no folder name.
        QVERIFY(add({{image("a.jpg")}, {}, u"x"_s.repeated(300)}));
        QCOMPARE(entries(), QStringList{u"a.jpg"_s});
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
        const QString title = u"Trip"_s;
        const QString elsewhere = home_->path(u"elsewhere"_s);
        writeFile(elsewhere + u"/.album"_s, "Trip");
        const QString album = home_->photoLibrary() + u"/planted"_s;
        const QString file = album + u"/.album"_s;
        QVERIFY(QDir().mkpath(kind == 4 ? home_->photoLibrary() : album));
        switch (kind) {
        case 0:
            QVERIFY(QFile::link(u"/dev/zero"_s, file));
            break;
        case 1:
            QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
            break;
        case 2:
            writeFile(file, QByteArray("Trip").leftJustified(4097));
            break;
        case 3:
            QVERIFY(QFile::link(elsewhere + u"/.album"_s, file));
            break;
        default:
            QVERIFY(QFile::link(elsewhere, album));
        }
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        QCOMPARE(PhotoLibrary::fetchAlbum(title)->folder, home_->photoLibrary() + u"/Trip"_s);
    }

    void albumReplacedByAFileIsMadeAnew() {
        const QString title = u"Trip"_s;
        writeFile(home_->photoLibrary() + u"/Trip"_s, "no folder");
        QVERIFY(!PhotoLibrary::fetchAlbum(title));
        QVERIFY(add({{image("a.jpg")}, {}, title}));
        QCOMPARE(PhotoLibrary::fetchAlbum(title)->folder, home_->photoLibrary() + u"/Trip (2)"_s);
        QCOMPARE(readFile(home_->photoLibrary() + u"/Trip"_s), "no folder");
    }

    void albumReplacedByAFileDuringTheChangeIsAnError() {
        QVERIFY(add({{image("a.jpg")}, {}, u"Trip"_s}));
        const auto album = PhotoLibrary::fetchAlbum(u"Trip"_s);
        QVERIFY(QDir(album->folder).removeRecursively());
        writeFile(album->folder, "no folder");
        QVERIFY(!add({{image("b.jpg")}, album, {}}));
        QCOMPARE(entries(), QStringList{u"Trip"_s});
    }

    void missingPicturesFolderIsMade() {
        QVERIFY(QDir(home_->path(u"Pictures"_s)).removeRecursively());
        QVERIFY(add({{image("a.jpg")}, {}, {}}));
        QCOMPARE(entries(), QStringList{u"a.jpg"_s});
    }

    void libraryThatCannotBeMadeIsAnError() {
        writeFile(home_->photoLibrary(), "a file where the library should be");
        QVERIFY(!add({{image("a.jpg")}, {}, {}}));
    }

private:
    // Where nobody but the user can write.
    QString journals() const { return home_->path(u"data/Fennick"_s); }

    std::expected<void, FileProblem> add(const PhotoLibrary::Additions &additions) const {
        return PhotoLibrary::performChanges(additions, journals());
    }

    // A journal that has the file at `target`, of nine bytes, removed.
    static QByteArray removalOf(const QString &staged, const QString &target, quint64 number = 0) {
        return QJsonDocument(QJsonObject{{u"staged"_s, staged},
                                         {u"target"_s, target},
                                         {u"size"_s, 9},
                                         {u"number"_s, QString::number(number)}})
                   .toJson(QJsonDocument::Compact) +
               '\n';
    }

    QString image(const char *name) {
        const QString path = home_->path(u"images/"_s + QString::fromUtf8(name));
        writeFile(path, name);
        return path;
    }

    QString stagingFolder() const {
        const QDir library(home_->photoLibrary());
        return library.filePath(library.entryList({u".import-*"_s}, QDir::Dirs | QDir::Hidden).value(0));
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
