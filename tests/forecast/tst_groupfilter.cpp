#include "forecast/groupfilter.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace groupfilter;

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

// Random lists over an alphabet: lines of the first list, some repeated or
// blank; lines to take out cut from anywhere in the first list (so
// they start and end inside numbers) or from what earlier removals leave, in
// changed case, padded or blank; now and then one that holds a lone CR or LF,
// and on even seeds none that holds half of a surrogate pair.
std::pair<QString, QString> randomLists(quint32 seed, const QStringList& alphabet, bool lineBreaksInKept)
{
    QRandomGenerator random(seed);
    const auto pick = [&](const QStringList& from) { return from[qsizetype(random.bounded(int(from.size())))]; };
    const auto piece = [&](const QString& text, int longest) {
        return text.isEmpty() ? text : text.mid(random.bounded(int(text.size())), 1 + int(random.bounded(longest)));
    };

    QStringList kept;
    for (int i = int(random.bounded(1, 40)); i > 0; --i) {
        QStringList tokens;
        for (int t = int(random.bounded(8)); t > 0; --t)
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
        QString line = kind == 0 ? piece(keptText, 12)
                       : kind == 1 ? piece(left, 8)
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
    QTest::newRow("two-digit numbers") << QStringList{"01", "02", "03", "10", "11", "12", "20", "21"} << false << 1u;
    QTest::newRow("short numbers, line ends") << QStringList{"1", "2", "11", "12", "21"} << true << 10001u;
    QTest::newRow("letters in mixed case") << QStringList{"a", "B", "ab", "Ab", "BA", "aB"} << false << 20001u;
    QTest::newRow("characters that fold in odd ways")
        << QStringList{"s", "S", "\u00DF", "\u1E9E", "k", "\u212A", "\u03C3", "\u03A3", "\u03C2", "\u0130", "i"}
        << true << 30001u;
    QTest::newRow("surrogates") << QStringList{"\U0001F600", "\U00010400", "\U00010428", "x", "X"} << false << 40001u;
}

void GroupFilterTest::agreesWithTheSequentialWay()
{
    QFETCH(QStringList, alphabet);
    QFETCH(bool, lineBreaksInKept);
    QFETCH(quint32, firstSeed);
    for (quint32 seed = firstSeed; seed < firstSeed + 400; ++seed) {
        const auto [kept, takenOut] = randomLists(seed, alphabet, lineBreaksInKept);
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

QTEST_APPLESS_MAIN(GroupFilterTest)

#include "tst_groupfilter.moc"
