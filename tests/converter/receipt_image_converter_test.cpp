#include "converter/converter_fixtures.h"
#include "converter/receipt_image_converter.h"
#include "support/test_program.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

using namespace fennick;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

using Kind = ConverterError::Kind;

namespace {

// No file may grow beyond `bytes` while this lives: a disk that is full after them.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
        : formerHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit small{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

private:
    rlimit former_{};
    void (*formerHandler_)(int);
};

// Makes `path` the temporary directory while this lives.
class TemporaryFolder {
public:
    explicit TemporaryFolder(const QString &path)
        : former_(qgetenv("TMPDIR")) {
        qputenv("TMPDIR", QFile::encodeName(path));
    }
    ~TemporaryFolder() { qputenv("TMPDIR", former_); }
    Q_DISABLE_COPY_MOVE(TemporaryFolder)

private:
    QByteArray former_;
};

QStringList namesOf(const QStringList &paths) {
    QStringList names;
    for (const QString &path : paths)
        names.append(QFileInfo(path).fileName());
    return names;
}

} // namespace

class ReceiptImageConverterTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;
    QByteArray photo_ = encoded(fourCorners(QSize(100, 80)), "jpeg", 95);

    QByteArray pdf(int pageCount) const {
        return pdfWithPages(QList<QByteArray>(pageCount, "/MediaBox [0 0 72 36]"),
                            fourCornersContent(0, 0, 72, 36));
    }

    QStringList folders() const {
        QStringList paths;
        for (const QFileInfo &folder :
             QDir(scratch_.path(u"FennickJPEG"_s)).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            paths.append(folder.filePath());
        return paths;
    }

    QStringList foldersAddedTo(const QStringList &before) const {
        QStringList added = folders();
        added.removeIf([&before](const QString &folder) { return before.contains(folder); });
        return added;
    }

    // The names of the pictures made of the file.
    QStringList names(const QString &fileName, const QByteArray &content, const QString &baseName) {
        const auto paths = ReceiptImageConverter::convertToJPEGs(scratch_.file(fileName, content), baseName);
        return paths ? namesOf(*paths) : QStringList{paths.error().errorDescription()};
    }

private Q_SLOTS:
    void namesTheOnlyPageAfterTheBaseName() {
        QCOMPARE(names(u"a.pdf"_s, pdf(1), u"Lunch"_s), QStringList{u"Lunch.jpg"_s});
    }

    void numbersSeveralPagesInOrder() {
        QCOMPARE(names(u"a.pdf"_s, pdf(3), u"Lunch"_s),
                 (QStringList{u"Lunch (p1).jpg"_s, u"Lunch (p2).jpg"_s, u"Lunch (p3).jpg"_s}));
    }

    void numbersTwentyPagesByTheirPlace() {
        const auto paths =
            ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.pdf"_s, pdf(20)), u"Trip"_s);
        QVERIFY(paths);
        QCOMPARE(paths->size(), 20);
        for (int page = 0; page < 20; ++page) {
            const QString &path = paths->at(page);
            QCOMPARE(QFileInfo(path).fileName(), u"Trip (p%1).jpg"_s.arg(page + 1));
            QCOMPARE(QImage(path).size(), QSize(200, 100));
        }
    }

    void namesAPictureAfterTheBaseName() {
        QCOMPARE(names(u"a.jpg"_s, photo_, u"Hotel"_s), QStringList{u"Hotel.jpg"_s});
    }

    void acceptsExtensionsInAnyCase() {
        QCOMPARE(names(u"a.JPeG"_s, photo_, u"Hotel"_s), QStringList{u"Hotel.jpg"_s});
        QCOMPARE(names(u"a.PDF"_s, pdf(1), u"Hotel"_s), QStringList{u"Hotel.jpg"_s});
    }

    void removesUnsafeCharactersFromTheBaseName() {
        QCOMPARE(names(u"a.jpg"_s, photo_, u"A/B\\C:D*E?F\"G<H>I|J"_s), QStringList{u"ABCDEFGHIJ.jpg"_s});
    }

    void keepsBlanksOfTheBaseName() {
        QCOMPARE(names(u"a.jpg"_s, photo_, u" two  blanks "_s), QStringList{u" two  blanks .jpg"_s});
    }

    void namesPicturesReceiptWhenNothingIsLeftOfTheBaseName() {
        QCOMPARE(names(u"a.jpg"_s, photo_, u"/:*?"_s), QStringList{u"receipt.jpg"_s});
        QCOMPARE(names(u"a.pdf"_s, pdf(2), QString()),
                 (QStringList{u"receipt (p1).jpg"_s, u"receipt (p2).jpg"_s}));
    }

    void leavesPercentSignsOfTheBaseNameAlone() {
        QCOMPARE(names(u"a.pdf"_s, pdf(2), u"%1 %2"_s),
                 (QStringList{u"%1 %2 (p1).jpg"_s, u"%1 %2 (p2).jpg"_s}));
    }

    void writesIntoANewPrivateFolderEachTime() {
        const QString photo = scratch_.file(u"a.jpg"_s, photo_);
        const auto first = ReceiptImageConverter::convertToJPEGs(photo, u"A"_s);
        const auto second = ReceiptImageConverter::convertToJPEGs(photo, u"A"_s);
        QVERIFY(first && second);
        QVERIFY(first->front() != second->front());

        const QFileInfo folder(QFileInfo(first->front()).path());
        QCOMPARE(folder.path(), scratch_.path(u"FennickJPEG"_s));
        static const QRegularExpression upperCaseUuid(
            u"^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"_s);
        QVERIFY2(upperCaseUuid.match(folder.fileName()).hasMatch(), qPrintable(folder.fileName()));
        for (const QString &path : {folder.filePath(), folder.path()}) {
            struct stat status{};
            QCOMPARE(::stat(qPrintable(path), &status), 0);
            QCOMPARE(status.st_mode & 0777u, 0700u);
        }
    }

    void createsAMissingTemporaryFolder() {
        const TemporaryFolder temporary(scratch_.path(u"not/yet/there"_s));
        const auto paths = ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.jpg"_s, photo_), u"A"_s);
        QVERIFY(paths);
        QVERIFY(paths->front().startsWith(scratch_.path(u"not/yet/there/FennickJPEG/"_s)));
    }

    void refusesOtherExtensions() {
        const auto result =
            ReceiptImageConverter::convertToJPEGs(scratch_.file(u"scan.TIFF"_s, photo_), u"A"_s);
        QVERIFY(!result);
        QCOMPARE(result.error().kind, Kind::unsupported);
        QCOMPARE(result.error().payload, u"tiff"_s);
        QCOMPARE(result.error().errorDescription(), u"Unsupported file type: .tiff"_s);
    }

    void refusesFilesWithoutExtension() {
        const auto result = ReceiptImageConverter::convertToJPEGs(scratch_.file(u"scan"_s, photo_), u"A"_s);
        QVERIFY(!result);
        QCOMPARE(result.error().kind, Kind::unsupported);
        QCOMPARE(result.error().payload, QString());
        QCOMPARE(result.error().errorDescription(), u"Unsupported file type: ."_s);
    }

    void leavesTheEmptyFolderOfARefusedFile() {
        const QStringList before = folders();
        QVERIFY(!ReceiptImageConverter::convertToJPEGs(u"/nowhere/scan.tiff"_s, u"A"_s));
        const QStringList added = foldersAddedTo(before);
        QCOMPARE(added.size(), 1);
        QVERIFY(QDir(added.front()).isEmpty());
    }

    void describesEveryFailure() {
        QCOMPARE((ConverterError{Kind::pdfLoad, {}}.errorDescription()), u"Could not open PDF"_s);
        QCOMPARE((ConverterError{Kind::renderFailed, {}}.errorDescription()),
                 u"Could not render page image"_s);
        QCOMPARE((ConverterError{Kind::encodeFailed, {}}.errorDescription()), u"Could not encode JPEG"_s);
    }

    void reportsTheSystemsReasonWhenNoFolderCanBeCreated() {
        const TemporaryFolder temporary(scratch_.file(u"a file"_s, "x"));
        const auto result = ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.jpg"_s, photo_), u"A"_s);
        QVERIFY(!result);
        QCOMPARE(result.error().kind, Kind::platform);
        QCOMPARE(result.error().errorDescription(), qt_error_string(ENOTDIR));
    }

    void evadesAFolderThatBelongsToSomebodyElse() {
        QVERIFY(QDir().mkpath(scratch_.path(u"shared"_s)));
        QVERIFY(QDir().mkpath(scratch_.path(u"elsewhere"_s)));
        QVERIFY(QFile::link(scratch_.path(u"elsewhere"_s), scratch_.path(u"shared/FennickJPEG"_s)));
        const TemporaryFolder temporary(scratch_.path(u"shared"_s));
        const auto result = ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.jpg"_s, photo_), u"A"_s);
        QVERIFY(result);
        QVERIFY(result->front().startsWith(scratch_.path(u"shared/FennickJPEG-"_s)));
        QVERIFY(QDir(scratch_.path(u"elsewhere"_s)).isEmpty());
    }

    void leavesNoPartOfAPictureOnAFullDisk() {
        const QString photo = scratch_.file(u"a.jpg"_s, photo_);
        const QStringList before = folders();
        std::expected<QStringList, ConverterError> result;
        {
            const SmallDisk disk(200);
            result = ReceiptImageConverter::convertToJPEGs(photo, u"A"_s);
        }
        QVERIFY(!result);
        QCOMPARE(result.error().kind, Kind::encodeFailed);
        const QStringList added = foldersAddedTo(before);
        QCOMPARE(added.size(), 1);
        QVERIFY(QDir(added.front()).isEmpty());
    }

    void reportsNamesThatTheFileSystemRefuses() {
        const auto result =
            ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.jpg"_s, photo_), QString(300, u'x'));
        QVERIFY(!result);
        QCOMPARE(result.error().kind, Kind::encodeFailed);
    }

    void keepsPagesWrittenBeforeAFailure() {
        const QByteArray twoPages =
            pdfWithPages({"/MediaBox [0 0 72 36]", "/MediaBox [0 0 14400 14400]"}, "");
        const QStringList before = folders();
        QCOMPARE(scratch_.failureOf(u"a.pdf"_s, twoPages), u"Could not render page image"_s);
        const QStringList added = foldersAddedTo(before);
        QCOMPARE(added.size(), 1);
        QCOMPARE(QDir(added.front()).entryList(QDir::Files), QStringList{u"Out (p1).jpg"_s});
    }
};

int receipt_image_converter_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, ReceiptImageConverterTest>(argc, argv);
}
#include "receipt_image_converter_test.moc"
