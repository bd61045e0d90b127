#include "forecast/groupfilter.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace groupfilter;

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

// The shape of random lists: up to so many lines of up to so many tokens
// over an alphabet, some with a lone CR or LF in the first list.
struct Shape {
    QStringList alphabet;
    bool lineBreaksInKept = false;
    int lines = 40;
    int tokens = 8;
};

// Random lists of a shape: lines of the first list, some repeated or
// blank; lines to take out cut from anywhere in the first list (so they
// start and end inside numbers, or inside surrogate pairs), whole lines of
// it, or cut from what earlier removals leave, in changed case, padded or
// blank; now and then one that holds a lone CR or LF, and on even seeds
// none that holds half of a surrogate pair.
std::pair<QString, QString> randomLists(quint32 seed, const Shape& shape)
{
    const QStringList& alphabet = shape.alphabet;
    const bool lineBreaksInKept = shape.lineBreaksInKept;
    const int longestPiece = std::max(12, shape.tokens / 2);
    QRandomGenerator random(seed);
    const auto pick = [&](const QStringList& from) { return from[qsizetype(random.bounded(int(from.size())))]; };
    const auto piece = [&](const QString& text, int longest) {
        return text.isEmpty() ? text : text.mid(random.bounded(int(text.size())), 1 + int(random.bounded(longest)));
    };

    QStringList kept;
    for (int i = int(random.bounded(1, shape.lines)); i > 0; --i) {
        QStringList tokens;
        for (int t = int(random.bounded(shape.tokens)); t > 0; --t)
            tokens.append(pick(alphabet));
        QString line = !kept.isEmpty() && random.bounded(4) == 0 ? pick(kept) : tokens.join(QLatin1Char(' '));
        if (lineBreaksInKept && random.bounded(6) == 0)
            line.insert(random.bounded(int(line.size()) + 1), random.bounded(2) ? u'\r' : u'\n');
        kept.append(line);
    }
    const QString keptText = random.bounded(2) ? lines(kept) : lines(kept) + QStringLiteral("\r\n");

    QString left = keptText;
    QStringList takenOut;
    for (int i = int(random.bounded(30)); i > 0; --i) {
        const int kind = int(random.bounded(4));
        QString line = kind == 0 ? piece(keptText, longestPiece)
                       : kind == 1 ? piece(left, longestPiece - 4)
                       : kind == 2 ? pick(kept)
                                   : pick(alphabet) + QLatin1Char(' ') + pick(alphabet);
        for (QChar& c : line)
            if (random.bounded(3) == 0)
                c = c.isUpper() ? c.toLower() : c.toUpper();
        if (random.bounded(20) == 0)
            line.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        else
            line.removeIf([](QChar c) { return c == u'\r' || c == u'\n'; });
        if (seed % 2 == 0)
            line.removeIf([](QChar c) { return c.isSurrogate(); });
        if (random.bounded(6) == 0)
            line = QStringLiteral(" ") + line + QStringLiteral("  ");
        if (random.bounded(10) == 0)
            line.clear();
        takenOut.append(line);
        if (!line.trimmed().isEmpty())
            left.replace(line.trimmed(), QString(), Qt::CaseInsensitive);
    }
    return {keptText, lines(takenOut)};
}

} // namespace

Q_DECLARE_METATYPE(Shape)

class GroupFilterTest : public QObject {
    Q_OBJECT

private slots:
    void designedCases_data();
    void designedCases();
    void agreesWithTheSequentialWay_data();
    void agreesWithTheSequentialWay();
    void eventsRunEveryHundredLinesOfBothLists_data();
    void eventsRunEveryHundredLinesOfBothLists();
    void eventsRunAsTheWorkGoesOnOneLongLine();
};

void GroupFilterTest::designedCases_data()
{
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("takenOut");
    QTest::addColumn<QString>("result");
    const QString six = QStringLiteral("01 02 03 04 05 06");
    QTest::newRow("six reds out of a seven-number line leave the blue") << six + " 07" << six << lines({"07", ""});
    QTest::newRow("nothing to take out: lines trimmed, blank ones gone")
        << lines({"  08 09 17 25 27 32 ", "", "   ", six, ""}) << QString() << lines({"08 09 17 25 27 32", six, ""});
    QTest::newRow("letters regardless of case") << lines({"AB", "xaBy", "cd"}) << "ab" << lines({"xy", "cd", ""});
    QTest::newRow("a match may start and end inside a number")
        << lines({"11 12 13", "12 13 14", "02 1"}) << "2 1" << lines({"11 13", "13 14", "0", ""});
    QTest::newRow("an earlier removal makes a later line match") << "11 2 3" << lines({"1 3", "1 2", "1 3"})
                                                                 << QString();
    QTest::newRow("padding around a line to take out doesn't count") << lines({"05 06 07", "08"}) << "   06   "
                                                                     << lines({"05  07", "08", ""});
    QTest::newRow("duplicates all go, the others stay in order") << lines({six, "09", six, "10", six}) << six
                                                                 << lines({"09", "10", ""});
    QTest::newRow("a pair beyond the basic plane, in the other case")
        << QStringLiteral("\U00010400x \U00010428y") << QStringLiteral("\U00010428") << lines({"x y", ""});
    QTest::newRow("halves that meet once a cut is made") << QString(QChar(0xD801)) + "ab" + QChar(0xDC00) + " c"
                                                          << lines({"ab", "\U00010428"}) << lines({"c", ""});
    QTest::newRow("a line end in a line to take out") << "a\nb\r\nc" << "A\nB" << lines({"c", ""});
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
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<quint32>("firstSeed");
    QTest::addColumn<int>("seeds");
    const QString high(QChar(0xD801));
    const QString low(QChar(0xDC00));
    const QString foldedLow(QChar(0xDC28));
    QStringList wide{"0"}; // thousands of units that follow the same one
    for (char16_t c = 0x4E00; c < 0x4E00 + 3000; ++c)
        wide.append(QStringLiteral("0") + QChar(c));
    QTest::newRow("two-digit numbers") << Shape{{"01", "02", "03", "10", "11", "12", "20", "21"}} << 1u << 400;
    QTest::newRow("short numbers, line ends") << Shape{{"1", "2", "11", "12", "21"}, true} << 10001u << 400;
    QTest::newRow("letters in mixed case") << Shape{{"a", "B", "ab", "Ab", "BA", "aB"}} << 20001u << 400;
    QTest::newRow("characters that fold in odd ways")
        << Shape{{"s", "S", "\u00DF", "\u1E9E", "k", "\u212A", "\u03C3", "\u03A3", "\u03C2", "\u0130", "i"}, true}
        << 30001u << 400;
    QTest::newRow("beyond the basic plane") << Shape{{"\U0001F600", "\U00010400", "\U00010428", "x", "X"}} << 40001u
                                            << 400;
    QTest::newRow("beyond the basic plane, with lone halves")
        << Shape{{"\U00010400", "\U00010428", "\U000104B0", "\U000104D8", high, low, foldedLow, high + high, "x"}, true}
        << 50001u << 600;
    QTest::newRow("a wide alphabet") << Shape{wide, false, 20, 40} << 60001u << 150;
    QTest::newRow("long lines") << Shape{{"01", "02", "03", "10", "11", "12", "20", "21"}, false, 3, 3000} << 70001u
                                << 40;
    QTest::newRow("long lines beyond the basic plane")
        << Shape{{"\U00010400", "\U00010428", high, low, "x", "X"}, true, 3, 3000} << 80001u << 40;
}

void GroupFilterTest::agreesWithTheSequentialWay()
{
    QFETCH(Shape, shape);
    QFETCH(quint32, firstSeed);
    QFETCH(int, seeds);
    for (quint32 seed = firstSeed; seed < firstSeed + quint32(seeds); ++seed) {
        const auto [kept, takenOut] = randomLists(seed, shape);
        QCOMPARE(filterGroups(kept, takenOut, {}), filterGroupsSequentially(kept, takenOut, {}));
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
    const QString kept = lines(QStringList(keptLines, QStringLiteral("01 33")));
    const QString takenOut = QStringLiteral("01 33") + QStringLiteral("\r\n").repeated(outLines - 1);
    int sequentialYields = 0;
    int yieldsNow = 0;
    filterGroupsSequentially(kept, takenOut, [&] { ++sequentialYields; });
    filterGroups(kept, takenOut, [&] { ++yieldsNow; });
    QCOMPARE(sequentialYields, yields);
    QCOMPARE(yieldsNow, yields);
}

// One line of a megabyte counts as one line, yet its work lets events run
// again and again: some 65,000 steps of work lie between two runs at most.
void GroupFilterTest::eventsRunAsTheWorkGoesOnOneLongLine()
{
    const QString line = QStringLiteral("01 02 03 04 05 06 07 ").repeated(50'000);
    int yields = 0;
    const QString left = filterGroups(line, QStringLiteral("01\r\n") + line, [&] { ++yields; });
    QCOMPARE(left, QStringLiteral("02 03 04 05 06 07  ").repeated(50'000).trimmed() + QStringLiteral("\r\n"));
    QVERIFY2(yields >= 1'050'000 / 65'536, qPrintable(QString::number(yields)));
}

QTEST_APPLESS_MAIN(GroupFilterTest)

#include "tst_groupfilter.moc"
