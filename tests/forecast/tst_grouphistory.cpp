#include "forecast/grouphistory.h"
#include "forecasthelpers.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace forecasttest;

class GroupHistoryTest : public QObject {
    Q_OBJECT

private slots:
    void collectionsHoldTheFirst17And20Characters();
    void lookUp_data();
    void lookUp();
    void indexAnswersAsTheScanDoes();
    void sharedCollectionsAreRebuiltAtEachFill();
};

void GroupHistoryTest::collectionsHoldTheFirst17And20Characters()
{
    DrawHistory draws;
    addRows(draws, {" 08 09 17 25 27 32 06 15 ", "01 02 03", "", "1 2 3 4 5 6 7 8 9 10 11 12"});
    GroupHistory history;
    history.fill(draws);
    QCOMPARE(history.RedGroupHistory(),
             (QStringList{"08 09 17 25 27 32", "01 02 03", "", "1 2 3 4 5 6 7 8 9"}));
    QCOMPARE(history.FullGroupHistory(),
             (QStringList{"08 09 17 25 27 32 06", "01 02 03", "", "1 2 3 4 5 6 7 8 9 10"}));

    // Filling again starts from nothing.
    DrawHistory fewer;
    addRows(fewer, {"10 11 12 13 14 15 16 01"});
    history.fill(fewer);
    QCOMPARE(history.RedGroupHistory(), QStringList{"10 11 12 13 14 15"});
}

void GroupHistoryTest::lookUp_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("withBlue");
    QTest::addColumn<bool>("found");
    const QStringList rows{"01 02 03 04 05 06 07 00", "08 09 17 25 27 32 06 15"};
    QTest::newRow("reds found") << rows << "08 09 17 25 27 32" << false << true;
    QTest::newRow("reds with blue found") << rows << "08 09 17 25 27 32 06" << true << true;
    QTest::newRow("other blue not found") << rows << "08 09 17 25 27 32 07" << true << false;
    QTest::newRow("reds not looked up among the full items by their own")
        << rows << "08 09 17 25 27 32" << true << true;
    QTest::newRow("a shorter text begins an item") << rows << "08 09 17" << false << true;
    QTest::newRow("a text longer than every item") << rows << "08 09 17 25 27 32 06 15" << true << false;
    QTest::newRow("not at the start") << rows << "09 17 25 27 32" << false << false;
    QTest::newRow("empty history") << QStringList{} << "08 09 17 25 27 32" << false << false;
    QTest::newRow("short row never matches") << QStringList{"08 09 17 25 27"} << "08 09 17 25 27 32" << false
                                             << false;
    QTest::newRow("case is ignored") << QStringList{"ab cd 17 25 27 32 06 15"} << "AB Cd 17 25 27 32" << false
                                     << true;
    QTest::newRow("case is ignored, short text") << QStringList{"ab cd 17 25 27 32 06 15"} << "aB" << false << true;
    QTest::newRow("Kelvin sign equals k without regard to case")
        << QStringList{"k1 02 03 04 05 06 07 00"} << QStringLiteral("\u212A1 02 03 04 05 06") << false << true;
    QTest::newRow("k equals a Kelvin sign in a row")
        << QStringList{QStringLiteral("\u212A1 02 03 04 05 06 07 00")} << "K1 02 03 04 05 06" << false << true;
    QTest::newRow("a CJK row among ASCII rows") << QStringList{"01 02 03 04 05 06 07 00", "号码 02 03 04 05 06 07"}
                                                << "号码 02 03 04 05 06" << false << true;
}

void GroupHistoryTest::lookUp()
{
    QFETCH(QStringList, rows);
    QFETCH(QString, text);
    QFETCH(bool, withBlue);
    QFETCH(bool, found);
    DrawHistory draws;
    addRows(draws, rows);
    GroupHistory history;
    history.fill(draws);
    QCOMPARE(history.contains(text, withBlue), found);
    const QStringList& items = withBlue ? history.FullGroupHistory() : history.RedGroupHistory();
    QCOMPARE(GroupHistory::scan(items, text), found);
}

void GroupHistoryTest::indexAnswersAsTheScanDoes()
{
    // Rows and texts made of a few characters, so that they meet often:
    // digits, blanks, letters in both cases, the Kelvin sign and a CJK
    // character, of every length up to beyond 20.
    const QString alphabet = QStringLiteral("0123  aAkK\u212A号");
    QRandomGenerator random(17);
    auto randomText = [&](int longest) {
        QString text;
        const int length = int(random.bounded(longest + 1));
        for (int i = 0; i < length; ++i)
            text += alphabet[qsizetype(random.bounded(int(alphabet.size())))];
        return text;
    };
    for (int round = 0; round < 60; ++round) {
        QStringList rows;
        const int count = int(random.bounded(40));
        for (int i = 0; i < count; ++i)
            rows.append(randomText(round % 3 == 0 ? 8 : 24));
        DrawHistory draws;
        addRows(draws, rows);
        GroupHistory history;
        history.fill(draws);
        QStringList texts;
        for (int i = 0; i < 200; ++i)
            texts.append(randomText(22));
        // Texts that certainly occur: items, their prefixes, case changed.
        for (const QString& item : history.FullGroupHistory()) {
            texts.append(item);
            texts.append(item.toUpper());
            texts.append(item.left(item.size() / 2));
        }
        for (const QString& item : history.RedGroupHistory())
            texts.append(item.toLower());
        for (const QString& text : texts) {
            for (bool withBlue : {false, true}) {
                const QStringList& items = withBlue ? history.FullGroupHistory() : history.RedGroupHistory();
                QVERIFY2(history.contains(text, withBlue) == GroupHistory::scan(items, text),
                         qPrintable(QStringLiteral("round %1: \"%2\"").arg(round).arg(text)));
            }
        }
    }
}

void GroupHistoryTest::sharedCollectionsAreRebuiltAtEachFill()
{
    DrawHistory draws;
    addRows(draws, {"08 09 17 25 27 32 06 15"});
    FillHistoryCollections(draws);
    QVERIFY(IsInHistory(QStringLiteral("08 09 17 25 27 32"), false));
    QVERIFY(IsInHistory(QStringLiteral("08 09 17 25 27 32 06"), true));
    FillHistoryCollections(DrawHistory());
    QVERIFY(!IsInHistory(QStringLiteral("08 09 17 25 27 32"), false));
}

QTEST_GUILESS_MAIN(GroupHistoryTest)

#include "tst_grouphistory.moc"
