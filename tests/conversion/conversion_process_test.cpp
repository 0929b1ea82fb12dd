#include "conversion/conversion_process.h"
#include "conversion/conversion_report.h"
#include "converter/receipt_image_converter.h"
#include "platform/regular_file.h"
#include "support/conditions.h"
#include "support/striped_pdf.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QProcess>

#include <unistd.h>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

using Kind = ConverterError::Kind;
using Result = std::expected<QStringList, ConverterError>;

// The converter as a program, and what becomes of the conversion when the program fails.
class ConversionProcessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<TemporaryHome>(); }

    void pagesComeBackInOrder() {
        const QString file = home_->path(u"scan.pdf"_s);
        writeFile(file, stripedPdf(3));
        const Result result = convert(converter, file);
        QVERIFY2(result.has_value(), result ? "" : qPrintable(result.error().errorDescription()));
        QStringList names;
        for (const QString &path : *result) {
            QVERIFY(readFile(path).startsWith("\xFF\xD8"));
            names.append(QFileInfo(path).fileName());
        }
        QCOMPARE(names, (QStringList{u"Lunch (p1).jpg"_s, u"Lunch (p2).jpg"_s, u"Lunch (p3).jpg"_s}));
    }

    void pagesOfTwoProcessesAreThoseOfOne() {
        const QString file = home_->path(u"scan.pdf"_s);
        writeFile(file, stripedPdf(5));
        const Result apart = convert(converter, file);
        const Result together = ReceiptImageConverter::convertToJPEGs(file, u"Lunch"_s);
        QVERIFY(apart && together);
        QCOMPARE(apart->size(), 5);
        for (qsizetype page = 0; page < 5; ++page) {
            QCOMPARE(readFile(apart->at(page)), readFile(together->at(page)));
        }
    }

    void fileIsConvertedThatWasOpenedWhateverItsNameIsByThen() {
        const QString path = home_->path(u"scan.pdf"_s);
        writeFile(path, stripedPdf(2));
        OpenedFile opened = openRegularFile(path);
        QVERIFY(opened);
        QVERIFY(QFile::remove(path));
        QVERIFY(QFile::link(home_->path(u"secret"_s), path));
        const Result result = convert(converter, std::move(*opened), path);
        QVERIFY2(result.has_value(), result ? "" : qPrintable(result.error().errorDescription()));
        QCOMPARE(result->size(), 2);
    }

    void errorsComeBackAsTheyAre() {
        const QString damaged = home_->path(u"damaged.pdf"_s);
        writeFile(damaged, "no PDF");
        QCOMPARE(convert(converter, damaged).error().kind, Kind::pdfLoad);
        const QString text = home_->path(u"notes.TXT"_s);
        writeFile(text, "notes");
        QCOMPARE(convert(converter, text).error().errorDescription(), u"Unsupported file type: .txt"_s);
    }

    void converterThatFailsIsAnErrorOfTheReceipt_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("crash") << QByteArray("kill -SEGV $$");
        QTest::newRow("crash after the report") << QByteArray("echo '{\"paths\":[\"'; kill -SEGV $$");
        QTest::newRow("no report") << QByteArray("exit 0");
        QTest::newRow("a file that is not its own") << QByteArray("echo '{\"paths\":[\"/etc/hostname\"]}'");
        QTest::newRow("a file outside its folder")
            << QByteArray("echo \"{\\\"paths\\\":[\\\"$3/../x.jpg\\\"]}\"");
    }
    void converterThatFailsIsAnErrorOfTheReceipt() {
        QFETCH(QByteArray, script);
        const Result result = convert(program(script), anyReceipt());
        QVERIFY(!result);
        QCOMPARE(result.error().errorDescription(), u"Could not render page image"_s);
    }

    void converterThatHangsIsEnded_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("waiting") << QByteArray("exec sleep infinity");
        QTest::newRow("computing") << QByteArray("while :; do :; done");
    }
    void converterThatHangsIsEnded() {
        QFETCH(QByteArray, script);
        const Result result = convert(program(script), anyReceipt(), 1s);
        QCOMPARE(result.error().kind, Kind::renderFailed);
    }

    void converterIsEndedAsSoonAsItIsNotWanted() {
        const QString folder = home_->path(u"pages"_s);
        std::stop_source stop;
        std::optional<Result> result;
        OpenedFile opened = openRegularFile(anyReceipt());
        QVERIFY(opened);
        std::shared_ptr<QFile> content = std::move(*opened);
        QCoro::connect(ConversionProcess::convertInto(program("exec sleep infinity"), folder, content,
                                                      u"scan.pdf"_s, u"Lunch"_s, stop.get_token()),
                       QCoreApplication::instance(), [&result](Result given) { result = std::move(given); });
        letTimePass(50);
        QVERIFY(!result);
        stop.request_stop();
        QVERIFY(waitUntil([&result] { return result.has_value(); }));
        QCOMPARE(result->error().kind, Kind::renderFailed);
    }

    void memoryIsLimited() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("Programs with the sanitizer are not limited.");
#endif
        const QByteArray report = R"(print q({"paths":[]}))";
        const Result small =
            convert(program("exec perl -e '$x = q(a) x 1_000_000; " + report + '\''), anyReceipt());
        QVERIFY(small && small->isEmpty());
        const Result large =
            convert(program("exec perl -e '$x = q(a) x 1_200_000_000; " + report + '\''), anyReceipt());
        QVERIFY(!large);
    }

    void largestAcceptedPictureFitsIntoTheMemory() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("Programs with the sanitizer are not limited.");
#endif
        QImage picture(QSize(12'600, 12'600), QImage::Format_Grayscale8); // 159 megapixels
        picture.fill(90);
        const QString file = home_->path(u"large.png"_s);
        writeFile(file, ""); // makes its folder
        QVERIFY(picture.save(file));
        const Result result = convert(converter, file);
        QVERIFY2(result.has_value(), result ? "" : qPrintable(result.error().errorDescription()));
        QCOMPARE(QImage(result->first()).size(), QSize(3000, 3000));
    }

    void converterEndsWhenItsStandardInputCloses() {
        int ends[2]; // a receipt that never arrives
        QCOMPARE(::pipe(ends), 0);
        QProcess process;
        process.start(converter,
                      {u"--descriptor=%1"_s.arg(ends[0]), u"scan.pdf"_s, home_->path(u"pictures"_s), u"x"_s});
        QVERIFY(process.waitForStarted());
        QVERIFY(!process.waitForFinished(300));
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished(patience));
        ::close(ends[0]);
        ::close(ends[1]);
    }

    void missingConverterIsNamed() {
        const Result result = convert(u"/nowhere/convert_receipt"_s, anyReceipt());
        QCOMPARE(result.error().kind, Kind::platform);
        QVERIFY(result.error().errorDescription().startsWith(u"The converter could not be started: "));
    }

    void everyErrorSurvivesItsReport() {
        for (const Kind kind :
             {Kind::unsupported, Kind::pdfLoad, Kind::renderFailed, Kind::encodeFailed, Kind::platform}) {
            const Result back =
                decodeReport(encodeReport(std::unexpected(ConverterError{kind, u"é \"x\""_s})));
            QCOMPARE(back.error().kind, kind);
            QCOMPARE(back.error().payload, u"é \"x\""_s);
        }
    }

private:
    static constexpr auto converterPath = FENNICK_BIN_DIR "/convert_receipt";
    const QString converter = QString::fromUtf8(converterPath);

    static Result convert(const QString &program, const QString &file, std::chrono::seconds longest = 60s) {
        OpenedFile opened = openRegularFile(file);
        if (!opened) {
            return std::unexpected(ConverterError{Kind::platform, opened.error().description()});
        }
        return convert(program, std::move(*opened), file, longest);
    }

    static Result convert(const QString &program, std::shared_ptr<QFile> content, const QString &name,
                          std::chrono::seconds longest = 60s) {
        std::optional<Result> result;
        QCoro::connect(
            ConversionProcess::convertToJPEGs(program, std::move(content), name, u"Lunch"_s, longest),
            QCoreApplication::instance(), [&result](Result given) { result = std::move(given); });
        waitUntil([&result] { return result.has_value(); });
        return *result;
    }

    QString anyReceipt() const {
        const QString path = home_->path(u"scan.pdf"_s);
        writeFile(path, "a receipt");
        return path;
    }

    QString program(const QByteArray &script) const {
        const QString path = home_->path(u"converter"_s);
        writeFile(path, "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }

    std::unique_ptr<TemporaryHome> home_;
};

int conversion_process_test(int argc, char **argv) {
    return runTest<QCoreApplication, ConversionProcessTest>(argc, argv);
}
#include "conversion_process_test.moc"
