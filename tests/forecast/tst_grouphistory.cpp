#include "forecast/grouphistory.h"
#include "forecasthelpers.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace forecasttest;

class GroupHistoryTest : public QObject {
    Q_OBJECT

private slots:
    void fillKeepsThe17And20CharacterPrefixesAndLookUpFindsTheirBeginnings();
    void indexAnswersAsTheScanDoes();
};

void GroupHistoryTest::fillKeepsThe17And20CharacterPrefixesAndLookUpFindsTheirBeginnings()
{
    DrawHistory draws;
    addRows(draws, {" 08 09 17 25 27 32 06 15 ", "01 02 03", "ab cd 17 25 27 32 06 15 01"});
    FillHistoryCollections(draws);
    QCOMPARE(forecastHistory().RedGroupHistory(), (QStringList{"08 09 17 25 27 32", "01 02 03", "ab cd 17 25 27 32"}));
    QCOMPARE(forecastHistory().FullGroupHistory(),
             (QStringList{"08 09 17 25 27 32 06", "01 02 03", "ab cd 17 25 27 32 06"}));
    // A text is found where it begins an item, without regard to case: not
    // further on in an item, and never in a shorter row.
    QStringList withBlue, redsOnly;
    for (const QString text : {"08 09 17 25 27 32 06", "08 09 17 25 27 32 0", "09 17 25 27 32", "01 02 03 04 05 06",
                               "AB Cd 17 25 27 32"}) {
        if (IsInHistory(text, true))
            withBlue << text;
        if (IsInHistory(text, false))
            redsOnly << text;
    }
    QCOMPARE(withBlue, (QStringList{"08 09 17 25 27 32 06", "08 09 17 25 27 32 0", "AB Cd 17 25 27 32"}));
    QCOMPARE(redsOnly, QStringList{"AB Cd 17 25 27 32"});

    FillHistoryCollections(DrawHistory());
    QCOMPARE(forecastHistory().FullGroupHistory(), QStringList());
    QVERIFY(!IsInHistory(QStringLiteral("08 09 17 25 27 32"), false));
}

void GroupHistoryTest::indexAnswersAsTheScanDoes()
{
    // Rows and texts of a few characters, so that they meet often: digits,
    // blanks, letters in both cases, the Kelvin sign and a CJK character, of
    // every length up to beyond 20; every third round has only short rows.
    const QString alphabet = QStringLiteral("0123  aAkK\u212A号");
    QRandomGenerator random(17);
    const auto randomText = [&](int longest) {
        QString text;
        for (int i = int(random.bounded(longest + 1)); i > 0; --i)
            text += alphabet[qsizetype(random.bounded(int(alphabet.size())))];
        return text;
    };
    for (int round = 0; round < 60; ++round) {
        DrawHistory draws;
        QStringList rows, texts;
        for (int i = int(random.bounded(40)); i > 0; --i)
            rows.append(randomText(round % 3 == 0 ? 8 : 24));
        addRows(draws, rows);
        GroupHistory history;
        history.fill(draws);
        for (int i = 0; i < 200; ++i)
            texts.append(randomText(22));
        // Texts that certainly occur: items, their prefixes, case changed.
        for (const QString& item : history.FullGroupHistory() + history.RedGroupHistory())
            texts << item << item.toUpper() << item.toLower() << item.left(item.size() / 2);
        for (const QString& text : texts) {
            for (bool withBlue : {false, true}) {
                const QStringList& items = withBlue ? history.FullGroupHistory() : history.RedGroupHistory();
                QVERIFY2(history.contains(text, withBlue) == GroupHistory::scan(items, text),
                         qPrintable(QStringLiteral("round %1: \"%2\"").arg(round).arg(text)));
            }
        }
    }
}

QTEST_GUILESS_MAIN(GroupHistoryTest)

#include "tst_grouphistory.moc"
