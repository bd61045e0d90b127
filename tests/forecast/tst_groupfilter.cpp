#include "forecast/groupfilter.h"

#include <QRandomGenerator>
#include <QtTest>

using groupfilter::filterGroups;
using groupfilter::filterGroupsSequentially;

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

QString endedLines(const QStringList& list)
{
    QString text;
    for (const QString& line : list)
        text += line + QStringLiteral("\r\n");
    return text;
}

// Random lists over an alphabet: lines of the first list, many repeated, some
// blank or padded with blanks; lines to take out cut from anywhere in the
// first list (so they start and end inside numbers), from what earlier
// removals leave, in changed case, padded, blank or repeated.
struct RandomLists {
    QString kept;
    QString takenOut;
};

QString changeCase(QRandomGenerator& random, const QString& text)
{
    QString changed = text;
    for (QChar& c : changed) {
        if (random.bounded(2) == 0)
            c = c.isUpper() ? c.toLower() : c.toUpper();
    }
    return changed;
}

QString pieceOf(QRandomGenerator& random, const QString& text, int longest)
{
    if (text.isEmpty())
        return QString();
    const int start = int(random.bounded(int(text.size())));
    const int length = 1 + int(random.bounded(longest));
    return text.mid(start, length);
}

RandomLists randomLists(quint32 seed, const QStringList& alphabet, bool lineBreaksInKept)
{
    QRandomGenerator random(seed);
    const auto token = [&] { return alphabet[qsizetype(random.bounded(int(alphabet.size())))]; };

    QStringList kept;
    const int keptLines = int(random.bounded(1, 40));
    for (int i = 0; i < keptLines; ++i) {
        if (!kept.isEmpty() && random.bounded(4) == 0) {
            kept.append(kept[qsizetype(random.bounded(int(kept.size())))]);
            continue;
        }
        QString line;
        const int tokens = int(random.bounded(0, 8));
        for (int t = 0; t < tokens; ++t)
            line += (t > 0 ? QStringLiteral(" ") : QString()) + token();
        if (random.bounded(5) == 0)
            line = QStringLiteral("  ") + line + QStringLiteral(" ");
        if (lineBreaksInKept && random.bounded(6) == 0)
            line.insert(random.bounded(int(line.size()) + 1), random.bounded(2) ? QChar(u'\r') : QChar(u'\n'));
        kept.append(line);
    }
    QString keptText = lines(kept);
    if (random.bounded(2) == 0)
        keptText += QStringLiteral("\r\n");

    // What removals leave is a source of lines that only match late.
    QString left = keptText;
    QStringList takenOut;
    const int outLines = int(random.bounded(0, 30));
    for (int i = 0; i < outLines; ++i) {
        QString line;
        switch (random.bounded(6)) {
        case 0:
            line = pieceOf(random, keptText, 12);
            break;
        case 1:
            line = pieceOf(random, left, 8);
            break;
        case 2:
            line = changeCase(random, pieceOf(random, keptText, 6));
            break;
        case 3:
            line = takenOut.isEmpty() ? token() : takenOut[qsizetype(random.bounded(int(takenOut.size())))];
            break;
        case 4:
            line = kept.isEmpty() ? QString() : kept[qsizetype(random.bounded(int(kept.size())))];
            break;
        default:
            line = token() + QStringLiteral(" ") + token();
            break;
        }
        // Now and then a line holds a lone CR or LF (a pair would split it),
        // and on even seeds no half of a surrogate pair.
        if (random.bounded(20) == 0) {
            line.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        } else {
            line.remove(QLatin1Char('\r'));
            line.remove(QLatin1Char('\n'));
        }
        if (seed % 2 == 0)
            line.removeIf([](QChar c) { return c.isSurrogate(); });
        if (random.bounded(6) == 0)
            line = QStringLiteral(" ") + line + QStringLiteral("  ");
        if (random.bounded(10) == 0)
            line = QString();
        takenOut.append(line);
        if (!line.trimmed().isEmpty())
            left.replace(line.trimmed(), QString(), Qt::CaseInsensitive);
    }
    return {keptText, lines(takenOut)};
}

} // namespace

class GroupFilterTest : public QObject {
    Q_OBJECT

private slots:
    void designedCases_data();
    void designedCases();
    void agreesWithTheSequentialWay_data();
    void agreesWithTheSequentialWay();
    void eventsRunEveryHundredLinesOfBothLists_data();
    void eventsRunEveryHundredLinesOfBothLists();
};

void GroupFilterTest::designedCases_data()
{
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("takenOut");
    QTest::addColumn<QString>("result");

    const QString six = QStringLiteral("01 02 03 04 05 06");
    const QString seven = QStringLiteral("01 02 03 04 05 06 07");
    QTest::newRow("a line taken out whole") << six << six << QString();
    QTest::newRow("six reds out of a seven-number line leave the blue")
        << seven << six << endedLines({"07"});
    QTest::newRow("seven numbers don't match inside six") << six << seven << endedLines({six});
    QTest::newRow("nothing to take out: lines trimmed, blank ones gone")
        << lines({"  08 09 17 25 27 32 ", "", "   ", "01 02 03 04 05 06", ""}) << QString()
        << endedLines({"08 09 17 25 27 32", six});
    QTest::newRow("letters regardless of case") << lines({"AB", "xaBy", "cd"}) << QStringLiteral("ab")
                                                << endedLines({"xy", "cd"});
    QTest::newRow("a match may start and end inside a number")
        << lines({"11 12 13", "12 13 14", "02 1"}) << QStringLiteral("2 1") << endedLines({"11 13", "13 14", "0"});
    QTest::newRow("an earlier removal makes a later line match")
        << QStringLiteral("11 2 3") << lines({"1 3", "1 2", "1 3"}) << QString();
    QTest::newRow("padding around a line to take out doesn't count")
        << lines({"05 06 07", "08"}) << QStringLiteral("   06   ") << endedLines({"05  07", "08"});
    QTest::newRow("duplicates all go, the others stay in order")
        << lines({six, "09", six, "10", six}) << six << endedLines({"09", "10"});
    QTest::newRow("one replace takes matches side by side, not what they leave")
        << QStringLiteral("aabb") << QStringLiteral("ab") << endedLines({"ab"});
    QTest::newRow("overlapping matches: the leftmost goes") << QStringLiteral("aaa") << QStringLiteral("aa")
                                                           << endedLines({"a"});
    QTest::newRow("empty first list") << QString() << six << QString();
    QTest::newRow("a lone LF in a line to take out reaches across lines")
        << QStringLiteral("01 02\n03 04\r\n05") << QStringLiteral("02\n03") << endedLines({"01  04", "05"});
    QTest::newRow("case folding, not lower case: K sign, sharp s, final sigma")
        << lines({QStringLiteral("\u212A1"), QStringLiteral("\u1E9E2"), QStringLiteral("\u03A33")})
        << lines({QStringLiteral("k"), QStringLiteral("\u00DF"), QStringLiteral("\u03C2")})
        << endedLines({"1", "2", "3"});
}

void GroupFilterTest::designedCases()
{
    QFETCH(QString, kept);
    QFETCH(QString, takenOut);
    QFETCH(QString, result);
    QCOMPARE(filterGroupsSequentially(kept, takenOut, {}), result);
    QCOMPARE(filterGroups(kept, takenOut, {}), result);
}

void GroupFilterTest::agreesWithTheSequentialWay_data()
{
    QTest::addColumn<QStringList>("alphabet");
    QTest::addColumn<bool>("lineBreaksInKept");
    QTest::addColumn<quint32>("firstSeed");

    QStringList numbers;
    for (int n = 1; n <= 12; ++n)
        numbers.append(QString::asprintf("%02d", n));
    QTest::newRow("two-digit numbers") << numbers << false << 1u;
    QTest::newRow("short numbers, line ends in the first list") << QStringList{"1", "2", "11", "12", "21"} << true
                                                                << 10001u;
    QTest::newRow("letters in mixed case") << QStringList{"a", "B", "ab", "Ab", "BA", "aB"} << false << 20001u;
    QTest::newRow("characters that fold in odd ways")
        << QStringList{"s", "S", "\u00DF", "\u1E9E", "k", "\u212A", "\u03C3", "\u03A3", "\u03C2", "\u0130", "i"}
        << true << 30001u;
    QTest::newRow("surrogate pairs stand in the first list")
        << QStringList{"\U0001F600", "\U00010400", "\U00010428", "x", "X"} << false << 40001u;
}

void GroupFilterTest::agreesWithTheSequentialWay()
{
    QFETCH(QStringList, alphabet);
    QFETCH(bool, lineBreaksInKept);
    QFETCH(quint32, firstSeed);
    for (quint32 seed = firstSeed; seed < firstSeed + 400; ++seed) {
        const RandomLists lists = randomLists(seed, alphabet, lineBreaksInKept);
        const QString expected = filterGroupsSequentially(lists.kept, lists.takenOut, {});
        const QString actual = filterGroups(lists.kept, lists.takenOut, {});
        if (actual != expected) {
            qWarning().noquote() << "seed" << seed << "kept" << lists.kept.toUtf8().toPercentEncoding(" ")
                                 << "takenOut" << lists.takenOut.toUtf8().toPercentEncoding(" ");
        }
        QCOMPARE(actual, expected);
    }
}

void GroupFilterTest::eventsRunEveryHundredLinesOfBothLists_data()
{
    QTest::addColumn<int>("keptLines");
    QTest::addColumn<int>("outLines");
    QTest::addColumn<int>("yields");
    QTest::newRow("99 lines") << 50 << 49 << 0;
    QTest::newRow("100 lines, counted through both loops") << 50 << 50 << 1;
    QTest::newRow("blank lines to take out count too") << 0 << 250 << 2;
    QTest::newRow("lines that went empty still count") << 399 << 1 << 4;
}

void GroupFilterTest::eventsRunEveryHundredLinesOfBothLists()
{
    QFETCH(int, keptLines);
    QFETCH(int, outLines);
    QFETCH(int, yields);
    QStringList kept;
    for (int i = 0; i < keptLines; ++i)
        kept.append(QString::asprintf("%02d 33", i % 33));
    // The first line to take out empties some lines of the first list; the
    // others are blank.
    QStringList takenOut(outLines, QString());
    if (outLines > 0)
        takenOut[0] = QStringLiteral("01 33");
    int sequentialYields = 0;
    int yieldsNow = 0;
    filterGroupsSequentially(lines(kept), lines(takenOut), [&] { ++sequentialYields; });
    filterGroups(lines(kept), lines(takenOut), [&] { ++yieldsNow; });
    QCOMPARE(sequentialYields, yields);
    QCOMPARE(yieldsNow, yields);
}

QTEST_APPLESS_MAIN(GroupFilterTest)

#include "tst_groupfilter.moc"
