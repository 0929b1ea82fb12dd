#include "extraction/gemini_error.h"
#include "model/data_folder_lock.h"
#include "platform/regular_file.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "text/currency_text.h"
#include "ui/interface_language.h"
#include "ui/tray/menu_bar_content.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLocale>
#include <QProcess>
#include <QPushButton>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class InterfaceLanguageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::system()); }

    void firstLanguageThatThereIsCounts_data() {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<std::optional<QString>>("chosen");
        const auto row = [](const char *name, const QStringList &languages, const char *chosen) {
            QTest::newRow(name) << languages
                                << (chosen == nullptr ? std::nullopt
                                                      : std::optional(QString::fromLatin1(chosen)));
        };
        row("German", {u"de-DE"_s, u"de-Latn-DE"_s, u"de"_s}, "de");
        row("German of Austria", {u"de-AT"_s, u"de-Latn-AT"_s}, "de");
        row("French of Canada", {u"fr-CA"_s}, "fr");
        row("as in an environment", {u"fr_FR"_s}, "fr");
        row("English", {u"en-US"_s}, nullptr);
        row("English before German", {u"en-US"_s, u"en-Latn-US"_s, u"en"_s, u"de-DE"_s}, nullptr);
        row("German before English", {u"de"_s, u"en"_s}, "de");
        row("one that there is not, before French", {u"es-ES"_s, u"fr-FR"_s, u"de-DE"_s}, "fr");
        row("one that there is not, before English", {u"es-ES"_s, u"en-GB"_s, u"de-DE"_s}, nullptr);
        row("one that nobody knows, before German", {u"xx"_s, u"de"_s}, "de");
        row("only one that there is not", {u"ja-JP"_s}, nullptr);
        row("C", {u"C"_s}, nullptr);
        row("POSIX before German", {u"POSIX"_s, u"de"_s}, nullptr);
        row("none", {}, nullptr);
    }
    void firstLanguageThatThereIsCounts() {
        QFETCH(QStringList, languages);
        QFETCH(std::optional<QString>, chosen);
        QCOMPARE(InterfaceLanguage::chosen(languages), chosen);
    }

    void countsHaveTheFormsOfTheLanguage_data() {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QStringList>("texts"); // of no, one, two, 1234 receipts
        QTest::newRow("en") << u"en"_s
                            << QStringList{u"No receipts yet"_s, u"1 receipts"_s, u"2 receipts"_s,
                                           u"1234 receipts"_s};
        QTest::newRow("de") << u"de"_s
                            << QStringList{u"Noch keine Belege"_s, u"1 Beleg"_s, u"2 Belege"_s,
                                           u"1.234 Belege"_s};
        QTest::newRow("fr") << u"fr"_s
                            << QStringList{u"Aucun reçu pour l’instant"_s, u"1 reçu"_s, u"2 reçus"_s,
                                           u"1\u202F234 reçus"_s};
    }
    void countsHaveTheFormsOfTheLanguage() {
        QFETCH(QString, language);
        QFETCH(QStringList, texts);
        QLocale::setDefault(QLocale(language));
        const InterfaceLanguage installed({language});
        QStringList shown;
        ReceiptStore store;
        store.clearAll();
        const MenuBarContent menu(&store);
        for (const char *const name : {"", "a", "b"}) {
            if (*name != '\0') {
                store.add(finishedReceipt(u"/w/%1.pdf"_s.arg(QLatin1StringView(name))));
            }
            shown.append(menu.findChild<QAction *>(u"count"_s)->text());
        }
        shown.append(MenuBarContent::tr("%n receipts", nullptr, 1234));
        QCOMPARE(shown, texts);
    }

    void libraryAndFailuresSpeakItToo() {
        const auto cancel = [] {
            return QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text();
        };
        const GeminiError failure{GeminiError::Kind::http, 503, u"%1 %2"_s};
        const QString english = cancel();
        {
            const InterfaceLanguage german({u"de"_s});
            QCOMPARE(cancel(), u"Abbrechen"_s);
            QCOMPARE(inUsersLanguage(failure.errorDescription()), u"Fehler der Gemini-API: 503 – %1 %2"_s);
        }
        QCOMPARE(cancel(), english);
        QCOMPARE(inUsersLanguage(failure.errorDescription()), u"Gemini API error: 503 — %1 %2"_s);
    }

    void storedErrorsAreTheSameInEveryLanguage_data() {
        using Kind = GeminiError::Kind;
        QTest::addColumn<GeminiError>("error");
        QTest::addColumn<QString>("stored");
        QTest::newRow("file") << GeminiError{Kind::fileRead, 0, u"x"_s} << u"Failed to read file: x"_s;
        QTest::newRow("http") << GeminiError{Kind::http, 503, {}} << u"Gemini API error: 503"_s;
        QTest::newRow("http with body")
            << GeminiError{Kind::http, 503, u"x — y"_s} << u"Gemini API error: 503 — x — y"_s;
        QTest::newRow("api") << GeminiError{Kind::api, 7, u"x: y"_s}
                             << u"Gemini API returned error 7: x: y"_s;
        QTest::newRow("no text") << GeminiError{Kind::noText, 0, u"SAFETY"_s}
                                 << u"Gemini API returned no text content. Finish reason: SAFETY"_s;
        QTest::newRow("parse") << GeminiError{Kind::parse, 0, u"x"_s}
                               << u"Could not parse JSON from Gemini response. Raw response: x"_s;
        QTest::newRow("no candidates")
            << GeminiError{Kind::noCandidates, 0, {}} << u"Gemini API returned no candidates in response"_s;
    }
    void storedErrorsAreTheSameInEveryLanguage() {
        QFETCH(GeminiError, error);
        QFETCH(QString, stored);
        const InterfaceLanguage german({u"de"_s});
        QCOMPARE(error.errorDescription(), stored);
        const QString shown = inUsersLanguage(stored);
        QVERIFY(shown != stored);
        QVERIFY(shown.endsWith(error.text));
    }

    void ownReasonsAreStoredInEnglishToo_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        using Kind = FileProblem::Kind;
        QTest::newRow("whole") << FileProblem{Kind::tooLarge, {}}.description() << u"Die Datei"_s;
        QTest::newRow("in another text")
            << GeminiError{GeminiError::Kind::fileRead, 0, FileProblem{Kind::link, {}}.description()}
                   .errorDescription()
            << u"Verknüpfung"_s;
        QTest::newRow("with a number") << QString::fromUtf8(answerTooLargeText).arg(64) << u"größer als 64"_s;
        QTest::newRow("interrupted") << u"The scan was interrupted. Retry to scan this receipt again."_s
                                     << u"unterbrochen"_s;
    }
    void ownReasonsAreStoredInEnglishToo() {
        QFETCH(QString, stored);
        QFETCH(QString, shown);
        QVERIFY(stored.startsWith(u"The ") || stored.startsWith(u"Failed to read file: The file is a link"));
        const InterfaceLanguage german({u"de"_s});
        QVERIFY2(inUsersLanguage(stored).contains(shown), qPrintable(inUsersLanguage(stored)));
        QVERIFY(!inUsersLanguage(stored).contains(u"The "));
    }

    void otherTextsAreShownAsTheyStand() {
        const InterfaceLanguage german({u"de"_s});
        QCOMPARE(inUsersLanguage(u"Connection refused"_s), u"Connection refused"_s);
        QCOMPARE(inUsersLanguage({}), QString());
        const QString overlapping = u"The answer is larger than MB."_s; // of a damaged list
        QCOMPARE(inUsersLanguage(overlapping), overlapping);
    }

    void formatsStayTheUsers() {
        const QLocale before;
        const QString amount = AmountFormatter(FractionDigits::ofCurrency).text(1234.5, u"USD"_s);
        const InterfaceLanguage german({u"de"_s});
        QCOMPARE(QLocale(), before);
        QCOMPARE(AmountFormatter(FractionDigits::ofCurrency).text(1234.5, u"USD"_s), amount);
    }

    void programSpeaksTheLanguageOfItsEnvironment_data() {
        QTest::addColumn<QString>("languages");
        QTest::addColumn<QByteArray>("said");
        QTest::newRow("none") << u""_s
                              << QByteArray("Fennick is already running in another session of yours.");
        QTest::newRow("German") << u"de"_s
                                << QByteArray("Fennick läuft bereits in einer anderen Sitzung von Ihnen.");
        QTest::newRow("English before German")
            << u"en_US:de_DE"_s << QByteArray("Fennick is already running in another session of yours.");
        QTest::newRow("French") << u"es:fr_CA:de"_s
                                << QByteArray("Fennick est déjà ouvert dans une autre de vos sessions.");
    }
    // By what it says when another session of the user's holds the list.
    void programSpeaksTheLanguageOfItsEnvironment() {
        QFETCH(QString, languages);
        QFETCH(QByteArray, said);
        const DataFolderLock lock;
        QVERIFY(!lock.isTaken());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LANGUAGE"_s, languages);
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QString::fromUtf8(FENNICK_BIN_DIR "/fennick"), QStringList());
        QByteArray output;
        QVERIFY(waitUntil([&] {
            output += program.readAllStandardError();
            return output.contains("Fennick") && output.endsWith('\n');
        }));
        program.kill(); // it waits for an answer to its dialog
        QVERIFY(program.waitForFinished(patience));
        QVERIFY2(output.contains(said), output.constData());
    }

private:
    TemporaryHome home_;
    PrivateSession session_;
};

int interface_language_test(int argc, char **argv) {
    return runTest<QApplication, InterfaceLanguageTest>(argc, argv);
}
#include "interface_language_test.moc"
