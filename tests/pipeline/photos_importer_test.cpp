#include "pipeline/photos_importer.h"
#include "platform/photo_library.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Result = std::expected<void, PhotosImporter::PhotosError>;

namespace {

QCoro::Task<> addInto(QStringList paths, std::optional<QString> album,
                      std::shared_ptr<std::optional<Result>> result) {
    *result = co_await PhotosImporter::add(paths, album);
}

// The failure's text; empty when the images were added.
QString added(const QStringList &paths, const std::optional<QString> &album) {
    const auto result = std::make_shared<std::optional<Result>>();
    addInto(paths, album, result);
    if (!waitUntil([&result] { return result->has_value(); })) {
        return u"no end"_s;
    }
    return **result ? QString() : (*result)->error().errorDescription();
}

} // namespace

class PhotosImporterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QDir(home_.path(u"Pictures"_s)).removeRecursively();
        QDir().mkpath(home_.path(u"Pictures"_s));
        QFile::remove(home_.permissionsFile());
        image_ = home_.path(u"a.jpg"_s);
        writeFile(image_, "picture");
    }

    void emptyListAsksForNothingAndTouchesNothing() {
        QCOMPARE(added({}, u"Album"_s), QString());
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
        QVERIFY(!QFileInfo::exists(home_.photoLibrary()));
    }

    void secondCallFindsTheAlbumOfTheFirst() {
        allow("authorized");
        QCOMPARE(added({image_}, u"Album: 1"_s), QString());
        QCOMPARE(added({image_}, u"Album: 1"_s), QString());
        QCOMPARE(QDir(home_.photoLibrary()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    }

    void limitedAccessIsEnough() {
        allow("limited");
        QCOMPARE(added({image_}, std::nullopt), QString());
        QVERIFY(QFileInfo::exists(home_.photoLibrary() + u"/a.jpg"_s));
    }

    void withoutAnAlbumNoneIsMade() {
        allow("authorized");
        QCOMPARE(added({image_}, std::nullopt), QString());
        QVERIFY(QDir(home_.photoLibrary()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
    }

    void deniedAccessFailsWithTheWholeText() {
        allow("denied");
        QCOMPARE(added({image_}, u"Album"_s),
                 u"Photos access was not granted. Enable it in System Settings ▸ Privacy & Security "
                 "▸ Photos."_s);
        QVERIFY(!QFileInfo::exists(home_.photoLibrary()));
    }

    void failedAddCarriesTheLibrarysWords() {
        allow("authorized");
        const QString text = added({image_, home_.path(u"missing.jpg"_s)}, std::nullopt);
        const QString prefix = u"Failed to add image to Photos: "_s;
        QVERIFY2(text.startsWith(prefix) && text.size() > prefix.size(), qPrintable(text));
        QVERIFY(text != prefix + u"unknown"_s);
        QVERIFY(!QFileInfo::exists(home_.photoLibrary() + u"/a.jpg"_s));
    }

    void failureWithoutWordsIsUnknown() {
        QCOMPARE(PhotosImporter::PhotosError::addFailed({}).errorDescription(),
                 u"Failed to add image to Photos: unknown"_s);
    }

    void undeterminedAccessIsAskedForOnce() {
        const auto result = std::make_shared<std::optional<Result>>();
        addInto({image_}, std::nullopt, result);
        QVERIFY(waitUntil([] { return !QApplication::topLevelWidgets().isEmpty(); }));
        QTest::keyClick(QApplication::topLevelWidgets().first(), Qt::Key_Return); // Allow is the default
        QVERIFY(waitUntil([&result] { return result->has_value(); }));
        QVERIFY((*result)->has_value());
        QCOMPARE(added({image_}, std::nullopt), QString());
    }

private:
    void allow(const QByteArray &decision) {
        writeFile(home_.permissionsFile(), "[General]\nphotos=" + decision + '\n');
    }

    TemporaryHome home_;
    QString image_;
};

int photos_importer_test(int argc, char **argv) {
    return runTest<QApplication, PhotosImporterTest>(argc, argv);
}
#include "photos_importer_test.moc"
