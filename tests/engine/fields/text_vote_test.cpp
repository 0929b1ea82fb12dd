#include "engine/fields/text_vote.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class TextVoteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesWhatMostHave_data() {
        QTest::addColumn<QStringList>("texts"); // the first is the base
        QTest::addColumn<QString>("voted");
        QTest::newRow("alone") << QStringList{u"HARBOUR TEA"_s} << u"HARBOUR TEA"_s;
        QTest::newRow("letter misread")
            << QStringList{u"HARB0UR TEA"_s, u"HARBOUR TEA"_s, u"HARBOUR TEA"_s} << u"HARBOUR TEA"_s;
        QTest::newRow("a letter misread in each")
            << QStringList{u"HARB0UR TEA"_s, u"HARBOUR IEA"_s, u"HAR8OUR TEA"_s} << u"HARBOUR TEA"_s;
        QTest::newRow("first letter lost")
            << QStringList{u"ARBOUR TEA"_s, u"HARBOUR TEA"_s, u"HARBOUR TEA"_s} << u"HARBOUR TEA"_s;
        QTest::newRow("last letters lost")
            << QStringList{u"HARBOUR T"_s, u"HARBOUR TEA"_s, u"HARBOUR TEA"_s} << u"HARBOUR TEA"_s;
        QTest::newRow("specks at the ends")
            << QStringList{u"; HARBOUR TEA ."_s, u"HARBOUR TEA"_s, u"HARBOUR TEA"_s} << u"HARBOUR TEA"_s;
        QTest::newRow("blank lost") << QStringList{u"HARBOURTEA"_s, u"HARBOUR TEA"_s, u"HARBOUR TEA"_s}
                                    << u"HARBOUR TEA"_s;
        QTest::newRow("equals leave the base") << QStringList{u"HARB0UR"_s, u"HARBOUR"_s} << u"HARB0UR"_s;
        QTest::newRow("empty") << QStringList{QString(), QString()} << QString();
    }
    void takesWhatMostHave() {
        QFETCH(QStringList, texts);
        QFETCH(QString, voted);
        QList<TextVote> votes;
        for (const QString &text : texts)
            votes.append({.text = text});
        QCOMPARE(votedText(texts.first(), votes), voted);
    }

    void countsTrust() {
        QCOMPARE(votedText(u"TEA"_s, {{u"TEA"_s, 0.9}, {u"TFA"_s, 0.4}, {u"TFA"_s, 0.4}}), u"TEA"_s);
        QCOMPARE(votedText(u"TEA"_s, {{u"TEA"_s, 0.7}, {u"TFA"_s, 0.4}, {u"TFA"_s, 0.4}}), u"TFA"_s);
    }
};

int text_vote_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<TextVoteTest>(argc, argv);
}
#include "text_vote_test.moc"
