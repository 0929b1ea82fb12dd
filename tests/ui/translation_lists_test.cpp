#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

// A text of a list. Texts with a count have several translations, one per plural form.
struct Entry {
    QString source;
    QStringList translations;
    bool hasCount = false;
    bool isFinished = true;
};

struct List {
    QString language;
    QList<Entry> entries;
};

void readTranslations(QXmlStreamReader &reader, Entry &entry) {
    entry.isFinished = !reader.attributes().hasAttribute(u"type"_s);
    if (!entry.hasCount) {
        entry.translations.append(reader.readElementText());
        return;
    }
    while (reader.readNextStartElement()) {
        entry.translations.append(reader.readElementText());
    }
}

Entry readEntry(QXmlStreamReader &reader) {
    Entry entry;
    entry.hasCount = reader.attributes().value(u"numerus"_s) == u"yes";
    while (reader.readNextStartElement()) {
        if (reader.name() == u"source") {
            entry.source = reader.readElementText();
        } else if (reader.name() == u"translation") {
            readTranslations(reader, entry);
        } else {
            reader.skipCurrentElement();
        }
    }
    return entry;
}

List readList(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Cannot read %s", qPrintable(path));
    }
    QXmlStreamReader reader(&file);
    List list;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == u"TS") {
            list.language = reader.attributes().value(u"language"_s).toString();
        } else if (reader.isStartElement() && reader.name() == u"message") {
            list.entries.append(readEntry(reader));
        }
    }
    if (reader.hasError()) {
        qFatal("%s: %s", qPrintable(path), qPrintable(reader.errorString()));
    }
    return list;
}

// %1 to %9 and %n, sorted; %L1 is %1 written in the way of the user's country.
QStringList placeholders(const QString &text) {
    static const QRegularExpression pattern(u"%L?([1-9n])"_s);
    QStringList found;
    for (auto match = pattern.globalMatch(text); match.hasNext();) {
        found.append(match.next().captured(1));
    }
    found.sort();
    return found;
}

// Whether a letter of the text is underlined as its key; a doubled sign stands for itself.
bool hasAccelerator(const QString &text) {
    static const QRegularExpression pattern(u"&[^& ]"_s);
    return QString(text).remove(u"&&"_s).contains(pattern);
}

} // namespace

class TranslationListsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsTranslated_data() { lists(); }
    void everyTextIsTranslated() {
        QFETCH(QString, language);
        const List list = readList(pathOf(language));
        QCOMPARE(list.language, language);
        QVERIFY(list.entries.size() > 100);
        for (const Entry &entry : list.entries) {
            QVERIFY2(entry.isFinished, qPrintable(entry.source));
            QCOMPARE(entry.translations.size(), entry.hasCount ? 2 : 1);
            QVERIFY2(!entry.translations.contains(QString()), qPrintable(entry.source));
        }
    }

    void whatIsFilledInStaysInPlace_data() { lists(); }
    void whatIsFilledInStaysInPlace() {
        QFETCH(QString, language);
        forEachTranslation(language, [](const QString &source, const QString &translation) {
            QVERIFY2(placeholders(source) == placeholders(translation), qPrintable(translation));
        });
    }

    void shapeOfTheTextsStays_data() { lists(); }
    void shapeOfTheTextsStays() {
        QFETCH(QString, language);
        forEachTranslation(language, [](const QString &source, const QString &translation) {
            QVERIFY2(source.endsWith(u'…') == translation.endsWith(u'…'), qPrintable(translation));
            QVERIFY2(source.count(u'\n') == translation.count(u'\n'), qPrintable(translation));
            QVERIFY2(source.endsWith(u' ') == translation.endsWith(u' '), qPrintable(translation));
            QVERIFY2(source.endsWith(u'.') == translation.endsWith(u'.'), qPrintable(translation));
            QVERIFY2(hasAccelerator(source) == hasAccelerator(translation), qPrintable(translation));
        });
    }

    void everyListHasTheSameTexts() {
        QStringList first;
        const QStringList files = listFiles();
        QVERIFY(files.size() > 1);
        for (const QString &file : files) {
            QStringList sources;
            const List list = readList(folder().filePath(file));
            for (const Entry &entry : list.entries) {
                sources.append(entry.source);
            }
            if (first.isEmpty()) {
                first = sources;
            }
            QCOMPARE(sources, first);
        }
    }

private:
    static QDir folder() { return QDir(QString::fromUtf8(FENNICK_SOURCE_DIR "/translations")); }
    static QStringList listFiles() { return folder().entryList({u"*.ts"_s}); }
    static QString pathOf(const QString &language) {
        return folder().filePath(u"fennick_%1.ts"_s.arg(language));
    }

    static void lists() {
        QTest::addColumn<QString>("language");
        const QStringList files = listFiles();
        for (const QString &file : files) {
            const QString language = file.mid(8).chopped(3); // fennick_<language>.ts
            QTest::newRow(qPrintable(language)) << language;
        }
    }

    template <typename Check>
    static void forEachTranslation(const QString &language, Check check) {
        const List list = readList(pathOf(language));
        for (const Entry &entry : list.entries) {
            for (const QString &translation : entry.translations) {
                check(entry.source, translation);
            }
        }
    }
};

int translation_lists_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, TranslationListsTest>(argc, argv);
}
#include "translation_lists_test.moc"
