#include "forecast/groupfilter.h"

#include "forecast/patternautomaton.h"
#include "platform/textrules.h"

#include <QChar>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

namespace groupfilter {

namespace {

const QString lineEnd = QStringLiteral("\r\n");

// One count through both loops; every 100th line lets pending events run.
class RunningCount {
public:
    explicit RunningCount(const LetEventsRun& letEventsRun) : m_letEventsRun(letEventsRun) {}

    void line()
    {
        ++m_count;
        if (m_count % 100 == 0 && m_letEventsRun)
            m_letEventsRun();
    }

    void countTo(qint32 count)
    {
        while (m_count < count)
            line();
    }

private:
    const LetEventsRun& m_letEventsRun;
    qint32 m_count = 0;
};

// Lets pending events run after every so much work of a long preparation,
// outside the count of lines.
class Pacer {
public:
    explicit Pacer(const LetEventsRun& letEventsRun) : m_letEventsRun(letEventsRun) {}

    void worked(qsizetype amount)
    {
        m_work += amount;
        if (m_work >= PatternAutomaton::PauseEvery) {
            m_work = 0;
            if (m_letEventsRun)
                m_letEventsRun();
        }
    }

private:
    const LetEventsRun& m_letEventsRun;
    qsizetype m_work = 0;
};

// The lines of what is left, trimmed, the empty ones dropped, each ended by CR LF.
QString collectLines(QStringView rest, RunningCount& count)
{
    QString collected;
    collected.reserve(rest.size());
    for (const QStringView line : textrules::splitView(rest, lineEnd)) {
        const QStringView trimmed = textrules::trimView(line);
        if (!trimmed.isEmpty()) {
            collected += trimmed;
            collected += lineEnd;
        }
        count.line();
    }
    return collected;
}

bool isLineBreak(char16_t c)
{
    return c == u'\r' || c == u'\n';
}

// The case folding of the case-insensitive replace, one UTF-16 unit at a time.
// A unit that is half of a surrogate pair folds to itself here, whereas the
// replace folds a pair as a whole; so a pattern that holds one goes the
// literal way, and in the text such units simply match nothing.
char16_t folded(char16_t c)
{
    if (c < 0x80)
        return c >= u'A' && c <= u'Z' ? char16_t(c + (u'a' - u'A')) : c;
    return QChar(c).toCaseFolded().unicode();
}

// The lines to take out, trimmed, the empty ones passed over, folded. Only
// lines that hold neither a line end nor half of a surrogate pair suit the
// automaton: nothing else can reach across a line end of the first text, and
// everything else folds unit by unit.
struct TakenOut {
    PatternList patterns;
    qint32 lines = 0;
    bool suitsTheAutomaton = true;
};

TakenOut readTakenOut(QStringView takenOut, Pacer& pacer)
{
    TakenOut read;
    read.patterns.characters.reserve(takenOut.size());
    for (const QStringView line : textrules::splitView(takenOut, lineEnd)) {
        ++read.lines;
        pacer.worked(line.size() + lineEnd.size());
        const QStringView pattern = textrules::trimView(line);
        if (pattern.isEmpty())
            continue;
        for (const QChar c : pattern) {
            if (isLineBreak(c.unicode()) || c.isSurrogate()) {
                read.suitsTheAutomaton = false;
                return read;
            }
            read.patterns.characters += QChar(folded(c.unicode()));
        }
        read.patterns.endPattern();
    }
    return read;
}

// Takes the patterns out of one piece of the first text that holds no line
// end; no match reaches beyond such a piece. The characters of the piece form
// a chain from which removals cut runs. Every character where some pattern
// may end has an entry, queued under the lowest pattern number still to come
// among those patterns; taking out pattern k uses the entries queued under k,
// and each entry, once used, is queued under its next pattern. A cut rescans
// the few characters around it, the only place where new matches can form.
class PieceFilter {
public:
    PieceFilter(const PatternAutomaton& automaton, const PatternList& patterns, Pacer& pacer)
        : m_automaton(automaton), m_patterns(patterns), m_pacer(pacer)
    {
    }

    // Appends what the patterns, taken out in their order, leave of `piece`.
    void filterInto(QStringView piece, QString& out)
    {
        const auto length = qint32(piece.size());
        m_folded.resize(size_t(length));
        m_entryAt.assign(size_t(length), -1);
        m_entries.clear();
        m_queue.clear();
        PatternAutomaton::State state = PatternAutomaton::root();
        for (qint32 i = 0; i < length; ++i) {
            m_folded[size_t(i)] = folded(piece[i].unicode());
            state = m_automaton.step(state, m_folded[size_t(i)]);
            file(i, state, 0);
            m_pacer.worked(1);
        }
        if (m_queue.empty()) {
            out += piece; // no pattern occurs: the piece stays as it is
            return;
        }

        m_next.resize(size_t(length));
        m_previous.resize(size_t(length));
        for (qint32 i = 0; i < length; ++i) {
            m_next[size_t(i)] = i + 1 < length ? i + 1 : -1;
            m_previous[size_t(i)] = i - 1;
        }
        m_first = 0;
        while (!m_queue.empty())
            takeOutNext();
        for (qint32 i = m_first; i >= 0; i = m_next[size_t(i)])
            out += piece[i];
    }

private:
    using Queued = std::pair<qint32, qint32>; // pattern number, entry

    struct Entry {
        qint32 end;
        PatternAutomaton::State state;
    };

    void queue(qint32 number, qint32 entry)
    {
        m_queue.emplace_back(number, entry);
        std::push_heap(m_queue.begin(), m_queue.end(), std::greater<>());
    }

    // Gives the character at `end` a new entry for the patterns from `from`
    // on that may end there, or none.
    void file(qint32 end, PatternAutomaton::State state, qint32 from)
    {
        const qint32 number = m_automaton.firstPatternFrom(state, from);
        if (number < 0) {
            m_entryAt[size_t(end)] = -1;
            return;
        }
        m_entries.push_back({end, state});
        m_entryAt[size_t(end)] = qint32(m_entries.size() - 1);
        queue(number, qint32(m_entries.size() - 1));
    }

    void refile(qint32 entry, qint32 from)
    {
        const Entry& e = m_entries[size_t(entry)];
        const qint32 number = m_automaton.firstPatternFrom(e.state, from);
        if (number < 0)
            m_entryAt[size_t(e.end)] = -1;
        else
            queue(number, entry);
    }

    // Removes every match of the lowest queued pattern as the replace does:
    // the leftmost first, then the leftmost behind it, none overlapping.
    void takeOutNext()
    {
        const qint32 number = m_queue.front().first;
        m_found.clear();
        while (!m_queue.empty() && m_queue.front().first == number) {
            const qint32 entry = m_queue.front().second;
            std::pop_heap(m_queue.begin(), m_queue.end(), std::greater<>());
            m_queue.pop_back();
            const qint32 end = m_entries[size_t(entry)].end;
            if (m_entryAt[size_t(end)] != entry)
                continue; // the character is gone, or a rescan gave it a newer entry
            refile(entry, number + 1);
            if (const qint32 start = startOf(number, end); start >= 0)
                m_found.emplace_back(start, end);
        }
        if (m_found.empty())
            return;

        // The chain keeps the piece's order, so positions in the piece order the matches.
        std::sort(m_found.begin(), m_found.end());
        m_cuts.clear();
        qint32 lastEnd = -1;
        for (const auto& [start, end] : m_found) {
            if (start <= lastEnd)
                continue; // overlaps the match just taken out
            const qint32 before = cut(start, end);
            if (m_cuts.empty() || m_cuts.back() != before)
                m_cuts.push_back(before);
            lastEnd = end;
        }
        for (const qint32 before : m_cuts)
            rescanAround(before, number + 1);
    }

    // Where the match of pattern `number` that ends at `end` starts, or -1
    // when it would start before the piece. An entry's patterns all match
    // but where a cut took the start of the piece: the rescans renew every
    // other entry that a cut concerns, and what such a pattern needs in front
    // of the cut is gone.
    qint32 startOf(qint32 number, qint32 end) const
    {
        const QStringView pattern = m_patterns.at(number);
        qint32 at = end;
        for (qsizetype j = pattern.size() - 1;; --j) {
            if (at < 0)
                return -1;
            Q_ASSERT(m_folded[size_t(at)] == pattern[j].unicode());
            if (j == 0)
                return at;
            at = m_previous[size_t(at)];
        }
    }

    // Cuts the characters from `start` to `end` out of the chain and gives
    // the one in front of them, or -1 at the start of the piece.
    qint32 cut(qint32 start, qint32 end)
    {
        for (qint32 i = start;; i = m_next[size_t(i)]) {
            m_entryAt[size_t(i)] = -1;
            if (i == end)
                break;
        }
        const qint32 before = m_previous[size_t(start)];
        const qint32 after = m_next[size_t(end)];
        if (before >= 0)
            m_next[size_t(before)] = after;
        else
            m_first = after;
        if (after >= 0)
            m_previous[size_t(after)] = before;
        return before;
    }

    // A new match must reach across the cut behind `before`: the characters
    // after the cut that such a match may end on get new entries.
    void rescanAround(qint32 before, qint32 from)
    {
        const qsizetype reach = m_automaton.longestPattern() - 1;
        if (before < 0 || reach < 1)
            return;
        const qint32 after = m_next[size_t(before)];
        if (after < 0)
            return;
        qint32 windowStart = before;
        for (qsizetype back = 1; back < reach && m_previous[size_t(windowStart)] >= 0; ++back)
            windowStart = m_previous[size_t(windowStart)];
        PatternAutomaton::State state = PatternAutomaton::root();
        for (qint32 i = windowStart; i != after; i = m_next[size_t(i)])
            state = m_automaton.step(state, m_folded[size_t(i)]);
        qsizetype ahead = 0;
        for (qint32 i = after; i >= 0 && ahead < reach; i = m_next[size_t(i)], ++ahead) {
            state = m_automaton.step(state, m_folded[size_t(i)]);
            file(i, state, from);
        }
    }

    const PatternAutomaton& m_automaton;
    const PatternList& m_patterns;
    Pacer& m_pacer;
    // The piece at hand.
    std::vector<char16_t> m_folded;
    std::vector<qint32> m_next;
    std::vector<qint32> m_previous;
    qint32 m_first = -1;
    std::vector<Entry> m_entries;
    std::vector<qint32> m_entryAt; // the character's current entry, or -1
    std::vector<Queued> m_queue;   // a heap, lowest pattern number first
    std::vector<std::pair<qint32, qint32>> m_found;
    std::vector<qint32> m_cuts;
};

} // namespace

QString filterGroupsSequentially(const QString& kept, const QString& takenOut, const LetEventsRun& letEventsRun)
{
    RunningCount count(letEventsRun);
    QString working = kept;
    for (const QString& line : textrules::split(takenOut, lineEnd)) {
        const QString pattern = textrules::trim(line);
        if (!pattern.isEmpty())
            working = textrules::replaceNoCase(working, pattern, QString());
        count.line();
    }
    return collectLines(working, count);
}

QString filterGroups(const QString& kept, const QString& takenOut, const LetEventsRun& letEventsRun)
{
    Pacer pacer(letEventsRun);
    const TakenOut read = readTakenOut(takenOut, pacer);
    if (!read.suitsTheAutomaton || kept.size() > std::numeric_limits<qint32>::max())
        return filterGroupsSequentially(kept, takenOut, letEventsRun);

    const PatternAutomaton automaton(read.patterns, letEventsRun);
    PieceFilter filter(automaton, read.patterns, pacer);
    // The count of the lines taken out advances with the share of the first
    // text done, so that its events run while the work goes on.
    RunningCount count(letEventsRun);
    QString rest;
    rest.reserve(kept.size());
    const qsizetype length = kept.size();
    qsizetype pieceStart = 0;
    for (qsizetype i = 0; i <= length; ++i) {
        if (i < length && !isLineBreak(kept[i].unicode()))
            continue;
        filter.filterInto(QStringView(kept).sliced(pieceStart, i - pieceStart), rest);
        if (i < length)
            rest += kept[i];
        count.countTo(qint32(qint64(read.lines) * (i + 1) / (length + 1)));
        pieceStart = i + 1;
    }
    return collectLines(rest, count);
}

} // namespace groupfilter
