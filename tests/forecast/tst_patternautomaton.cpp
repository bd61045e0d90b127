#include "forecast/patternautomaton.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

std::vector<char32_t> folded(const QString& text)
{
    std::vector<char32_t> units;
    for (qsizetype i = 0; i < text.size(); ++i)
        units.push_back(foldedUnit(text[i].unicode(), i > 0 ? text[i - 1].unicode() : 0));
    return units;
}

} // namespace

class PatternAutomatonTest : public QObject {
    Q_OBJECT

private slots:
    void findsEveryPatternThatEnds_data();
    void findsEveryPatternThatEnds();
};

void PatternAutomatonTest::findsEveryPatternThatEnds_data()
{
    QTest::addColumn<QStringList>("alphabet");
    QStringList wide; // more units after the same one than a list of siblings holds
    for (char16_t c = 0x4E00; c < 0x4E00 + 300; ++c)
        wide.append(QStringLiteral("0") + QChar(c));
    QTest::newRow("digits") << QStringList{"0", "1", "2", "01", "10", " "};
    QTest::newRow("letters in both cases") << QStringList{"a", "A", "b", "B", "ab", "aaa"};
    QTest::newRow("a wide alphabet") << wide;
    QTest::newRow("beyond the basic plane, and halves")
        << QStringList{"\U00010400", "\U00010428", "x", QString(QChar(0xD801)), QString(QChar(0xDC28))};
}

// Every pattern that ends at each unit of random texts, as the automaton
// tells it pattern by pattern, against a look at each pattern there; the
// patterns are pieces of the same alphabet, some of them repeated.
void PatternAutomatonTest::findsEveryPatternThatEnds()
{
    QFETCH(QStringList, alphabet);
    for (quint32 seed = 1; seed <= 300; ++seed) {
        QRandomGenerator random(seed);
        const auto pieces = [&](int most) {
            QString text;
            for (int n = int(random.bounded(1, most)); n > 0; --n)
                text += alphabet[qsizetype(random.bounded(int(alphabet.size())))];
            return text;
        };
        PatternList patterns;
        std::vector<std::vector<char32_t>> each;
        for (int n = int(random.bounded(1, 40)); n > 0; --n) {
            each.push_back(random.bounded(8) == 0 && !each.empty() ? each.back() : folded(pieces(5)));
            patterns.units.insert(patterns.units.end(), each.back().begin(), each.back().end());
            patterns.endPattern();
        }
        const PatternAutomaton automaton(patterns);
        PatternAutomaton::Memo memo(automaton);
        qsizetype steps = 0;
        const std::vector<char32_t> text = folded(pieces(60));
        PatternAutomaton::State state = PatternAutomaton::root();
        for (size_t end = 0; end < text.size(); ++end) {
            state = automaton.step(state, automaton.symbolOf(text[end]));
            QList<qint32> told;
            for (qint32 n = automaton.firstPatternFrom(state, 0, memo, steps); n >= 0;
                 n = automaton.firstPatternFrom(state, n + 1, memo, steps))
                told.append(n);
            QList<qint32> there;
            for (size_t n = 0; n < each.size(); ++n) {
                if (each[n].size() <= end + 1
                    && std::equal(each[n].begin(), each[n].end(), text.begin() + qsizetype(end + 1 - each[n].size())))
                    there.append(qint32(n));
            }
            QCOMPARE(told, there);
        }
    }
}

QTEST_APPLESS_MAIN(PatternAutomatonTest)

#include "tst_patternautomaton.moc"
