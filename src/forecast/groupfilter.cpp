#include "forecast/groupfilter.h"

#include "forecast/patternautomaton.h"
#include "platform/eventpacer.h"
#include "platform/textrules.h"

#include <QChar>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <type_traits>
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

// Calls `take` with each line of `text` split at CR LF, as textrules::split
// splits (no line in an empty text), one after another rather than all
// first.
template <class Take>
void forEachLine(QStringView text, Take&& take)
{
    if (text.isEmpty())
        return;
    for (qsizetype start = 0;;) {
        const qsizetype end = text.indexOf(lineEnd, start);
        take(text.sliced(start, (end < 0 ? text.size() : end) - start));
        if (end < 0)
            return;
        start = end + lineEnd.size();
    }
}

// How much text is copied at a time, in units, between two counts of work.
constexpr qsizetype Part = 4096;

// The lines of what is left, trimmed, the empty ones dropped, each ended by
// CR LF. A long line goes over in parts, each counted as work for `pacer`
// where there is one.
QString collectLines(QStringView rest, RunningCount& count, EventPacer* pacer = nullptr)
{
    QString collected;
    collected.reserve(rest.size());
    forEachLine(rest, [&](QStringView line) {
        const QStringView trimmed = textrules::trimView(line);
        if (!trimmed.isEmpty()) {
            for (qsizetype at = 0; at < trimmed.size(); at += Part) {
                const qsizetype size = std::min(Part, trimmed.size() - at);
                collected += trimmed.sliced(at, size);
                if (pacer)
                    pacer->worked(size);
            }
            collected += lineEnd;
        }
        count.line();
    });
    return collected;
}

bool isLineBreak(char16_t c)
{
    return c == u'\r' || c == u'\n';
}

// The lines to take out, trimmed, the empty ones passed over, folded unit by
// unit. A line that holds a line end can take out text across the lines of
// the first text.
struct TakenOut {
    PatternList patterns;
    qint32 lines = 0;
    bool crossesLines = false;
};

TakenOut readTakenOut(QStringView takenOut, EventPacer& pacer)
{
    TakenOut read;
    read.patterns.units.reserve(size_t(takenOut.size()));
    forEachLine(takenOut, [&](QStringView line) {
        ++read.lines;
        pacer.worked(lineEnd.size());
        const QStringView pattern = textrules::trimView(line);
        if (pattern.isEmpty())
            return;
        for (qsizetype i = 0; i < pattern.size(); ++i) {
            pacer.worked(1);
            read.crossesLines = read.crossesLines || isLineBreak(pattern[i].unicode());
            read.patterns.units.push_back(foldedUnit(pattern[i].unicode(), i > 0 ? pattern[i - 1].unicode() : 0));
        }
        read.patterns.endPattern();
    });
    return read;
}

// Takes the patterns out of one piece of the first text: a line, or all of
// it when a pattern holds a line end; no match reaches beyond such a piece.
// The units of the piece form a chain from which removals cut runs. Every
// unit where some pattern may end has an entry, queued under the lowest
// pattern number still to come among those patterns; taking out pattern k
// uses the entries queued under k, and each entry, once used, is queued
// under its next pattern.
//
// The automaton's state after each unit is kept. After the cuts of a
// pattern, reading goes on from the state before each cut until a state
// comes out as it was kept, which it does at the latest where the text read
// no longer reaches back across the cut, neither now nor before; all states
// after it are then as they were, up to the next cut. So a line is read
// again at most once for each pattern that cuts it, and usually for a few
// units only. A cut that joins two halves of a surrogate pair, or parts
// them, changes how the unit after it compares; it is read anew.
class PieceFilter {
public:
    PieceFilter(const PatternAutomaton& automaton, const PatternList& patterns, EventPacer& pacer)
        : m_automaton(automaton),
          m_patterns(patterns),
          m_pacer(pacer),
          m_memo(automaton, [&pacer](qsizetype steps) { pacer.worked(steps); })
    {
        const auto count = size_t(patterns.count());
        m_firstWaiting.reserve(count);
        for (size_t at = 0; at < count; at += size_t(Part)) {
            m_firstWaiting.resize(std::min(count, at + size_t(Part)), -1);
            pacer.worked(Part);
        }
    }

    // Appends what the patterns, taken out in their order, leave of `piece`.
    void filterInto(QStringView piece, QString& out)
    {
        m_piece = piece;
        const auto length = qint32(piece.size());
        // (The arrays fill as the reading goes, paced with it: on a long
        // piece, even the first touch of their memory takes its time.
        // Reserving touches nothing.)
        for (auto* array : {&m_symbol, &m_state, &m_entryAt, &m_next, &m_previous}) {
            array->clear();
            array->reserve(size_t(length));
        }
        // Room for more than there usually are: a late move of all takes
        // long on a long piece.
        m_entries.clear();
        m_entries.reserve(2 * size_t(length));
        m_found.reserve(size_t(length));
        m_cuts.reserve(size_t(length));
        PatternAutomaton::State state = PatternAutomaton::root();
        for (qint32 i = 0; i < length; ++i) {
            m_symbol.push_back(symbolAt(i, i - 1));
            state = m_automaton.step(state, m_symbol.back());
            m_state.push_back(state);
            m_entryAt.push_back(-1);
            file(i, state, 0);
            m_pacer.worked(1);
        }
        if (m_numbersWaiting.empty()) {
            // No pattern occurs: the piece stays as it is, copied in parts.
            for (qsizetype at = 0; at < piece.size(); at += Part) {
                const qsizetype size = std::min(Part, piece.size() - at);
                out += piece.sliced(at, size);
                m_pacer.worked(size);
            }
            return;
        }

        for (qint32 i = 0; i < length; ++i) {
            m_next.push_back(i + 1 < length ? i + 1 : -1);
            m_previous.push_back(i - 1);
            m_pacer.worked(1);
        }
        m_first = 0;
        while (!m_numbersWaiting.empty())
            takeOutNext();
        for (qint32 i = m_first; i >= 0; i = m_next[size_t(i)]) {
            out += piece[i];
            m_pacer.worked(1);
        }
    }

    // Gives the memory back one array at a time, each counted as work: on a
    // long piece, even that takes its time.
    void release()
    {
        const auto free = [this](auto& array) {
            std::remove_reference_t<decltype(array)>().swap(array);
            m_pacer.tick();
        };
        free(m_symbol);
        free(m_state);
        free(m_next);
        free(m_previous);
        free(m_entries);
        free(m_entryAt);
        free(m_firstWaiting);
        free(m_numbersWaiting);
        free(m_found);
        free(m_merged);
        free(m_cuts);
    }

private:
    struct Entry {
        qint32 end;
        PatternAutomaton::State state;
        qint32 nextWaiting; // the next entry queued under the same pattern, or -1
    };

    // The symbol of the unit at `at`, compared as following the unit at
    // `previous` (-1 for none).
    PatternAutomaton::Symbol symbolAt(qint32 at, qint32 previous) const
    {
        const char16_t before = previous >= 0 ? m_piece[previous].unicode() : 0;
        return m_automaton.symbolOf(foldedUnit(m_piece[at].unicode(), before));
    }

    void queue(qint32 number, qint32 entry)
    {
        qint32& first = m_firstWaiting[size_t(number)];
        if (first < 0) {
            m_numbersWaiting.push_back(number);
            std::push_heap(m_numbersWaiting.begin(), m_numbersWaiting.end(), std::greater<>());
        }
        m_entries[size_t(entry)].nextWaiting = first;
        first = entry;
    }

    qint32 lookUp(PatternAutomaton::State state, qint32 from)
    {
        qsizetype steps = 0;
        const qint32 number = m_automaton.firstPatternFrom(state, from, m_memo, steps);
        m_pacer.worked(steps);
        return number;
    }

    // Gives the unit at `end` a new entry for the patterns from `from` on
    // that may end there, or none.
    void file(qint32 end, PatternAutomaton::State state, qint32 from)
    {
        const qint32 number = lookUp(state, from);
        if (number < 0) {
            m_entryAt[size_t(end)] = -1;
            return;
        }
        m_entries.push_back({end, state, -1});
        m_entryAt[size_t(end)] = qint32(m_entries.size() - 1);
        queue(number, qint32(m_entries.size() - 1));
    }

    void refile(qint32 entry, qint32 from)
    {
        const Entry& e = m_entries[size_t(entry)];
        const qint32 number = lookUp(e.state, from);
        if (number < 0)
            m_entryAt[size_t(e.end)] = -1;
        else
            queue(number, entry);
    }

    // Removes every match of the lowest queued pattern as the replace does:
    // the leftmost first, then the leftmost behind it, none overlapping.
    void takeOutNext()
    {
        std::pop_heap(m_numbersWaiting.begin(), m_numbersWaiting.end(), std::greater<>());
        const qint32 number = m_numbersWaiting.back();
        m_numbersWaiting.pop_back();
        m_found.clear();
        qint32 waiting = std::exchange(m_firstWaiting[size_t(number)], -1);
        while (waiting >= 0) {
            const qint32 entry = waiting;
            waiting = m_entries[size_t(entry)].nextWaiting; // (refiling queues it anew)
            m_pacer.worked(1);
            const qint32 end = m_entries[size_t(entry)].end;
            if (m_entryAt[size_t(end)] != entry)
                continue; // the unit is gone, or a later reading gave it a newer entry
            refile(entry, number + 1);
            if (const qint32 start = startOf(number, end); start >= 0)
                m_found.emplace_back(start, end);
        }
        if (m_found.empty())
            return;

        // The chain keeps the piece's order, so positions in the piece order the matches.
        sortFound();
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
        readOnAfterCuts(number + 1);
    }

    // Sorts the matches found, counting the work as it goes: one sort of
    // millions of matches takes longer than the window may wait. Runs of
    // them are sorted, then merged two by two.
    void sortFound()
    {
        constexpr size_t Run = 1024;
        const size_t count = m_found.size();
        for (size_t at = 0; at < count; at += Run) {
            const size_t end = std::min(count, at + Run);
            std::sort(m_found.begin() + qsizetype(at), m_found.begin() + qsizetype(end));
            m_pacer.worked(qsizetype(end - at));
        }
        if (count <= Run)
            return;
        m_merged.clear();
        m_merged.reserve(count);
        for (size_t width = Run; width < count; width *= 2) {
            for (size_t at = 0; at < count; at += 2 * width) {
                const size_t middle = std::min(count, at + width);
                const size_t end = std::min(count, at + 2 * width);
                for (size_t left = at, right = middle; left < middle || right < end;) {
                    const bool fromLeft = right == end || (left < middle && m_found[left] < m_found[right]);
                    m_merged.push_back(m_found[fromLeft ? left++ : right++]);
                    m_pacer.worked(1);
                }
            }
            m_found.swap(m_merged);
            m_merged.clear();
        }
    }

    // Where the match of pattern `number` that ends at `end` starts, or -1
    // when it would start before the piece.
    qint32 startOf(qint32 number, qint32 end)
    {
        const std::span<const char32_t> pattern = m_patterns.at(number);
        qint32 at = end;
        for (size_t j = pattern.size() - 1;; --j) {
            m_pacer.worked(1);
            if (at < 0)
                return -1;
            Q_ASSERT(m_symbol[size_t(at)] == m_automaton.symbolOf(pattern[j]));
            if (j == 0)
                return at;
            at = m_previous[size_t(at)];
        }
    }

    // Cuts the units from `start` to `end` out of the chain and gives the
    // one in front of them, or -1 at the start of the piece.
    qint32 cut(qint32 start, qint32 end)
    {
        for (qint32 i = start;; i = m_next[size_t(i)]) {
            m_pacer.worked(1);
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

    // Reads the chain again from each cut on, left to right in one pass,
    // until a state comes out as it was kept: from there to the next cut,
    // the text and so all states are as they were. The units read get
    // entries for the patterns from `from` on.
    void readOnAfterCuts(qint32 from)
    {
        qint32 readUpTo = -1; // the units up to here have been read in this pass
        for (const qint32 before : m_cuts) {
            const qint32 after = before >= 0 ? m_next[size_t(before)] : m_first;
            if (after < 0 || after <= readUpTo)
                continue; // the pass has read past this cut already
            PatternAutomaton::State state = before >= 0 ? m_state[size_t(before)] : PatternAutomaton::root();
            for (qint32 i = after; i >= 0; i = m_next[size_t(i)]) {
                readUpTo = i;
                m_pacer.worked(1);
                if (m_piece[i].isLowSurrogate())
                    m_symbol[size_t(i)] = symbolAt(i, m_previous[size_t(i)]); // it may have found or lost its pair
                state = m_automaton.step(state, m_symbol[size_t(i)]);
                if (state == m_state[size_t(i)])
                    break;
                m_state[size_t(i)] = state;
                file(i, state, from);
            }
        }
    }

    const PatternAutomaton& m_automaton;
    const PatternList& m_patterns;
    EventPacer& m_pacer;
    PatternAutomaton::Memo m_memo;
    // The piece at hand.
    QStringView m_piece;
    std::vector<PatternAutomaton::Symbol> m_symbol;
    std::vector<PatternAutomaton::State> m_state; // after each unit
    std::vector<qint32> m_next;
    std::vector<qint32> m_previous;
    qint32 m_first = -1;
    std::vector<Entry> m_entries;
    std::vector<qint32> m_entryAt; // the unit's current entry, or -1
    // The entries queued under each pattern number, as a list through
    // Entry::nextWaiting, and the numbers that have some, as a heap, the
    // lowest first.
    std::vector<qint32> m_firstWaiting;
    std::vector<qint32> m_numbersWaiting;
    std::vector<std::pair<qint32, qint32>> m_found;
    std::vector<std::pair<qint32, qint32>> m_merged; // room for sorting m_found
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
    EventPacer pacer(letEventsRun);
    TakenOut read = readTakenOut(takenOut, pacer);
    if (kept.size() > std::numeric_limits<qint32>::max())
        return filterGroupsSequentially(kept, takenOut, letEventsRun);

    auto automaton = std::make_unique<PatternAutomaton>(read.patterns,
                                                              [&pacer](qsizetype steps) { pacer.worked(steps); });
    auto filter = std::make_unique<PieceFilter>(*automaton, read.patterns, pacer);
    // The count of the lines taken out advances with the share of the first
    // text done, so that its events run while the work goes on.
    RunningCount count(letEventsRun);
    QString rest;
    rest.reserve(kept.size());
    const qsizetype length = kept.size();
    if (read.crossesLines) {
        filter->filterInto(kept, rest);
        count.countTo(read.lines);
    } else {
        qsizetype pieceStart = 0;
        for (qsizetype i = 0; i <= length; ++i) {
            if (i < length && !isLineBreak(kept[i].unicode()))
                continue;
            filter->filterInto(QStringView(kept).sliced(pieceStart, i - pieceStart), rest);
            if (i < length)
                rest += kept[i];
            count.countTo(qint32(qint64(read.lines) * (i + 1) / (length + 1)));
            pieceStart = i + 1;
        }
    }
    // Freeing the memory of a large run takes its time too: a part at a time.
    filter->release();
    filter.reset();
    pacer.tick();
    automaton->release([&pacer] { pacer.tick(); });
    automaton.reset();
    read = {};
    pacer.tick();
    return collectLines(rest, count, &pacer);
}

} // namespace groupfilter
